#include "simulator/CoreArguments.h"

#include <stdexcept>

#include "simulator/core/CoreOptionsFor.h"

namespace simulator {

CoreArguments::CoreArguments(CLI::App& app) {
  constexpr const char* kGroup = "Thermal core";
  constexpr const char* kFaultGroup = "Faults of the thermal core";
  auto* model = app.get_option("--model");
  auto* none =
      app.add_flag("--no-core", none_, "Nothing at the other end of the serial port")->group(kGroup)->excludes(model);
  app.add_option("--core-part-number", part_number_, "Letter 12 is R or I where it is radiometric [by the size]")
      ->option_text("TEXT")
      ->group(kGroup)
      ->excludes(none)
      ->excludes(model);
  app.add_option("--core-serial", serial_, "First core's serial number; the next count upwards [701001]")
      ->option_text("N")
      ->group(kGroup)
      ->excludes(none);
  app.add_option("--core-flash", flash_file_, "Keeps the flash from run to run; several cameras add \".SERIAL\"")
      ->option_text("FILE")
      ->group(kGroup)
      ->excludes(none);
  auto* lens = app.add_option("--core-lens", lens_, "The lens whose tables are in a flash that is new")
                   ->option_text("NAME")
                   ->group(kGroup)
                   ->excludes(none);
  auto* calibrations = app.add_option("--core-calibration", calibrations_, "The calibration folder that has the lens")
                           ->option_text("FOLDER")
                           ->group(kGroup)
                           ->excludes(none);
  lens->needs(calibrations);
  calibrations->needs(lens);
  for (std::size_t i = 0; i < kCoreFaultCount; ++i) {
    const CoreFaultKnob& knob = coreFaultKnobs()[i];
    app.add_option("--" + std::string(knob.name), faults_[i], std::string(knob.help))
        ->expected(1, 3)
        ->option_text(std::string(knob.argument) + std::string(kCoreFaultMore))
        ->group(kFaultGroup)
        ->excludes(none);
  }
}

void CoreArguments::check() const {
  try {
    if (!part_number_.empty()) checkPartNumber(part_number_);
  } catch (const std::invalid_argument& error) {
    throw CLI::ValidationError("--core-part-number", error.what());
  }
  for (std::size_t i = 0; i < kCoreFaultCount; ++i) {
    const CoreFaultKnob& knob = coreFaultKnobs()[i];
    if (!faults_[i].empty() && !coreFaultOf(knob, faults_[i])) {
      throw CLI::ValidationError("--" + std::string(knob.name), "takes at most " + std::to_string(knob.maximum));
    }
  }
}

std::optional<LensPoints> CoreArguments::lensPoints(const std::string& serial) const {
  if (lens_.empty()) return std::nullopt;
  return readLensPoints(calibrations_, serial, lens_);
}

std::optional<CoreIdentity> CoreArguments::identity(const CameraOptions& camera, const CoreModel* model) const {
  if (none_) return std::nullopt;
  if (model != nullptr) return identityOf(*model);
  CoreIdentity identity = coreOptionsFor(camera).identity;
  if (!part_number_.empty()) identity.part_number = part_number_;
  return identity;
}

std::shared_ptr<ThermalCore> CoreArguments::make(const CameraOptions& camera, const CoreModel* model, uint32_t index,
                                                 uint32_t cameras) const {
  const std::optional<CoreIdentity> identity = this->identity(camera, model);
  if (!identity) return nullptr;
  CoreOptions options = coreOptionsFor(camera);
  options.identity = *identity;
  options.identity.core_serial = serial_ + index;
  options.identity.sensor_serial += index;
  if (!lens_.empty()) options.flash.tables = readLensTables(calibrations_, camera.serial, lens_);
  options.flash.file = flash_file_;
  if (!flash_file_.empty() && cameras > 1) options.flash.file += "." + camera.serial;
  for (std::size_t i = 0; i < kCoreFaultCount; ++i) {
    if (const auto fault = coreFaultOf(coreFaultKnobs()[i], faults_[i])) options.faults[i] = *fault;
  }
  return std::make_shared<ThermalCore>(options);
}

}  // namespace simulator
