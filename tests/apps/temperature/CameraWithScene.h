// A camera in software that sees a scene in degrees through a lens, and the folder with its calibration.
#pragma once

#include <memory>
#include <string>

#include "../KeocamRun.h"
#include "../TemporaryFolder.h"
#include "../core/CameraWithCore.h"
#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/calibration/LensData.h"
#include "simulator/calibration/TemperatureCorrection.h"
#include "simulator/scene/SceneText.h"

namespace keocam::cli {

/// What a core computes.
enum class CoreKind { Radiometric, Plain };

/// Serial number KEOD2001, 160x128 pixels; its core holds the tables of the lens L25mm, which has the high range, and
/// starts in the low range. The serial line takes no time. What surrounds the scene is what a host measures by that is
/// told nothing: what a radiometric core holds, emissivity 1 and 22 degrees, else 0.95 and 20 degrees.
class CameraWithScene {
 public:
  explicit CameraWithScene(const std::string& scene, CoreKind kind = CoreKind::Radiometric,
                           simulator::CalibrationRange low_gain_range = simulator::CalibrationRange::Middle)
      : calibration_(calibrationOptions()),
        camera_(coreWith(calibration_, kind), seeing(scene, calibration_, kind, low_gain_range)) {
    simulator::writeCalibrationEntry(folder_.path().string(), "KEOD2001", calibration_);
  }

  simulator::ThermalCore& core() { return camera_.core(); }
  CameraWithCore& whole() { return camera_; }
  std::string calibrations() const { return folder_.path().string(); }

  /// `arguments` and the folder of calibrations.
  Arguments with(Arguments arguments) const {
    arguments.insert(arguments.end(), {"--calibrations", calibrations()});
    return arguments;
  }

 private:
  static simulator::CalibrationOptions calibrationOptions() {
    simulator::CalibrationOptions options;
    options.sensor = {160, 128};
    options.lenses = simulator::usualLenses(2, 1);
    return options;
  }

  static simulator::CoreOptions coreWith(const simulator::CalibrationOptions& calibration, CoreKind kind) {
    const simulator::LensData lens = simulator::lensDataOf(calibration, 0);
    simulator::CoreOptions options;
    options.log_entries = 10'000;
    options.processing_us = 0;
    options.flash.geometry = simulator::flashGeometryFor(static_cast<uint32_t>(lens.tables[0].size()));
    options.flash.tables = {lens.tables[0], lens.tables[1]};
    if (kind == CoreKind::Plain) options.identity.part_number = "46160001X-FNNLX";
    return options;
  }

  static simulator::CameraOptions seeing(const std::string& scene, const simulator::CalibrationOptions& calibration,
                                         CoreKind kind, simulator::CalibrationRange low_gain_range) {
    simulator::CameraOptions options;
    options.sensor = {160, 128};
    options.uart_pacing = false;
    const bool radiometric = kind == CoreKind::Radiometric;
    options.temperatures =
        simulator::parseScene(scene + (radiometric ? ",emissivity=1,reflected=22,atmosphere=22" : ""));
    options.temperatures->low_gain_range = low_gain_range;
    options.temperatures->correction = std::make_shared<simulator::TemperatureCorrection>(
        simulator::lensDataOf(calibration, 0).points, calibration.version);
    return options;
  }

  TemporaryFolder folder_;
  simulator::CalibrationOptions calibration_;
  CameraWithCore camera_;
};

}  // namespace keocam::cli
