// A camera in software whose core has a flash for lens tables, and a folder with its calibration.
#pragma once

#include <filesystem>

#include "../KeocamRun.h"
#include "../TemporaryFolder.h"
#include "../core/CameraWithCore.h"
#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/calibration/LensData.h"

namespace keocam::cli {

/// Serial number KEOD2001, lenses L25mm (up to 1500 degrees), L13mm and L07mm. Its serial line takes no time, and small
/// tables keep tests short.
class CameraWithLenses {
 public:
  static constexpr uint32_t kSmallTable_bytes = 5000;  // neither whole pieces nor whole blocks
  static constexpr uint32_t kSmallBlock_bytes = 4096;

  /// Tables of another size are for a camera that is to be caught while they are written.
  explicit CameraWithLenses(uint32_t table_bytes = kSmallTable_bytes)
      : calibration_(calibrationWith(table_bytes)), camera_(coreWith(table_bytes), unpaced()) {
    simulator::writeCalibrationEntry(folder_.path().string(), "KEOD2001", calibration_);
  }

  simulator::ThermalCore& core() { return camera_.core(); }
  simulator::SimulatedCamera& camera() { return camera_.camera(); }
  CameraWithCore& whole() { return camera_; }

  /// "lens", `arguments`, and the folder of calibrations.
  Arguments lens(const Arguments& arguments) const {
    Arguments all{"lens"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    all.insert(all.end(), {"--calibrations", folder_.path().string()});
    return all;
  }
  std::filesystem::path text() const { return folder_.path() / "KEOD2001" / "calibration.txt"; }

  simulator::Bytes tableOf(std::size_t lens, std::size_t range) const {
    return simulator::lensDataOf(calibration_, lens).tables[range];
  }
  bool holds(std::size_t lens) {
    return core().lensTable(0) == tableOf(lens, 0) && core().lensTable(1) == tableOf(lens, 1);
  }
  void putIn(std::size_t low_lens, std::size_t middle_lens) {
    core().setLensTable(0, tableOf(low_lens, 0));
    core().setLensTable(1, tableOf(middle_lens, 1));
  }

 private:
  static simulator::CalibrationOptions calibrationWith(uint32_t table_bytes) {
    simulator::CalibrationOptions options;
    options.table_bytes = table_bytes;
    options.lenses = simulator::usualLenses(3, 1);
    return options;
  }
  static simulator::CoreOptions coreWith(uint32_t table_bytes) {
    simulator::CoreOptions options;
    options.log_entries = 10'000;
    // An erasure takes the host a second whatever the block's size: large tables get large blocks.
    const bool small = table_bytes <= 2 * kSmallBlock_bytes;
    options.flash.geometry =
        simulator::flashGeometryFor(table_bytes, small ? kSmallBlock_bytes : simulator::kUsualBlockBytes);
    options.flash.erase_ms = 1;
    options.processing_us = 0;
    return options;
  }
  static simulator::CameraOptions unpaced() {
    simulator::CameraOptions options;
    options.uart_pacing = false;
    return options;
  }

  TemporaryFolder folder_;
  simulator::CalibrationOptions calibration_;
  CameraWithCore camera_;
};

}  // namespace keocam::cli
