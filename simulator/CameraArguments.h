// The program's options for the cameras themselves: how many, where, and what hosts see of them.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>

#include "simulator/CoreArguments.h"
#include "simulator/ModelArguments.h"
#include "simulator/SimulatedCamera.h"

namespace simulator {

class CameraArguments {
 public:
  /// Declares the options; this object must outlive the parsing.
  explicit CameraArguments(CLI::App& app);
  CameraArguments(const CameraArguments&) = delete;
  CameraArguments& operator=(const CameraArguments&) = delete;

  /// As many as were asked for; by default as many as there are models.
  uint32_t count(const ModelArguments& models) const;

  /// To be called after parsing: camera `index` without core, scene and faults, as its core has it. Throws
  /// CLI::ValidationError for a value that does not serve, and std::runtime_error for an interface that does not.
  CameraOptions make(uint32_t index, const ModelArguments& models, const CoreArguments& cores) const;

 private:
  std::string serialOf(uint32_t index, const CoreModel* model) const;
  double rateWith(const std::optional<CoreIdentity>& core) const;

  CameraOptions usual_;
  std::optional<uint32_t> count_;
  std::string interface_;
  std::optional<std::string> serial_;
  std::optional<double> frame_rate_hz_;
  std::string size_ = "640x512";
  std::string pacing_ = "on";
};

}  // namespace simulator
