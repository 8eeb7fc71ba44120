// The program's options for the cameras' thermal cores.
#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "simulator/SimulatedCamera.h"
#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/core/CoreFaults.h"
#include "simulator/core/ModelCatalogue.h"

namespace simulator {

class CoreArguments {
 public:
  /// Declares the options; this object must outlive the parsing. A model is one of a core and says its part number, so
  /// `--model` must have been declared.
  explicit CoreArguments(CLI::App& app);
  CoreArguments(const CoreArguments&) = delete;
  CoreArguments& operator=(const CoreArguments&) = delete;

  /// To be called after parsing: throws CLI::ValidationError for a value that does not serve.
  void check() const;

  /// The core of camera `index`, whose serial number counts upwards with it; null without cores.
  /// A model, where there is one, says its part number.
  /// Where there are more cameras than one, each has a flash file of its own. Throws std::runtime_error for a flash
  /// file or a calibration that does not serve.
  std::shared_ptr<ThermalCore> make(const CameraOptions& camera, const CoreModel* model, uint32_t index,
                                    uint32_t cameras) const;

  /// Who that core is, but for its serial numbers; empty without cores.
  std::optional<CoreIdentity> identity(const CameraOptions& camera, const CoreModel* model) const;

  /// The points of the lens that the camera with this serial number has, if one was chosen. Throws as make().
  std::optional<LensPoints> lensPoints(const std::string& serial) const;

 private:
  bool none_ = false;
  std::string part_number_;
  uint32_t serial_ = 701001;
  std::string flash_file_;
  std::string lens_;
  std::string calibrations_;
  std::array<std::vector<uint32_t>, kCoreFaultCount> faults_;
};

}  // namespace simulator
