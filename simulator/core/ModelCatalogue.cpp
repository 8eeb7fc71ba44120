#include "simulator/core/ModelCatalogue.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "simulator/core/CoreSettings.h"

namespace simulator {
namespace {

constexpr bool needsNoEscape(std::string_view text) {
  for (const char letter : text) {
    if (letter < ' ' || letter > '~' || letter == '"' || letter == '\\') return false;
  }
  return !text.empty();
}

constexpr bool modelsAreSound() {
  for (std::size_t i = 0; i < kCoreModels.size(); ++i) {
    const CoreModel& model = kCoreModels[i];
    if (!needsNoEscape(model.id) || !needsNoEscape(model.name) || !needsNoEscape(model.part_number)) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (kCoreModels[j].id == model.id || kCoreModels[j].part_number == model.part_number) return false;
    }
  }
  return true;
}

static_assert(modelsAreSound(), "a model is there twice, or a text of it does not serve in a list");

template <typename Predicate>
const CoreModel* firstModel(const Predicate& predicate) {
  const auto* model = std::find_if(kCoreModels.begin(), kCoreModels.end(), predicate);
  return model == kCoreModels.end() ? nullptr : model;
}

int32_t lastVideoStandard(const CoreIdentity& identity) {
  return maximumOf(*findRow(static_cast<uint8_t>(FunctionCode::VideoStandard)), abilitiesOf(identity));
}

}  // namespace

const CoreModel* findModel(std::string_view id) {
  return firstModel([id](const CoreModel& model) { return model.id == id; });
}

const CoreModel* usualModel(ImageSize sensor) {
  return firstModel([sensor](const CoreModel& model) { return model.sensor == sensor; });
}

CoreIdentity identityOf(const CoreModel& model) {
  CoreIdentity identity;
  identity.part_number = model.part_number;
  return identity;
}

std::string usualSerial(const CoreModel& model) { return isFast(identityOf(model)) ? "KEOD2001" : "KEOC2001"; }

std::string modelTable() {
  std::ostringstream table;
  const auto line = [&table](const auto& id, const auto& name, const std::string& sensor, const auto& rate,
                             const std::string& video, const auto& part_number) {
    table << std::left << std::setw(13) << id << std::setw(23) << name << std::setw(9) << sensor << std::setw(4) << rate
          << std::setw(7) << video << part_number << '\n';
  };
  line("MODEL", "NAME", "SENSOR", "HZ", "VIDEO", "PART NUMBER");
  for (const CoreModel& model : kCoreModels) {
    const CoreIdentity identity = identityOf(model);
    line(model.id, model.name, std::to_string(model.sensor.width) + 'x' + std::to_string(model.sensor.height),
         coreFrameRateHz(identity), "0-" + std::to_string(lastVideoStandard(identity)), model.part_number);
  }
  return table.str();
}

std::string modelJson() {
  std::ostringstream json;
  json << std::boolalpha;
  const char* separator = "[\n";
  for (const CoreModel& model : kCoreModels) {
    const CoreIdentity identity = identityOf(model);
    json << separator << R"(  {"model": ")" << model.id << R"(", "name": ")" << model.name << R"(", "width": )"
         << model.sensor.width << R"(, "height": )" << model.sensor.height << R"(, "frame_rate_hz": )"
         << coreFrameRateHz(identity) << R"(, "last_video_standard": )" << lastVideoStandard(identity)
         << R"(, "radiometric": )" << isRadiometric(identity) << R"(, "part_number": ")" << model.part_number
         << R"(", "first_serial": ")" << usualSerial(model) << "\"}";
    separator = ",\n";
  }
  json << "\n]\n";
  return json.str();
}

}  // namespace simulator
