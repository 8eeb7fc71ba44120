// A camera in software with its thermal core at hand, for the keocam program to talk to.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "simulator/SimulatedCamera.h"
#include "simulator/core/ThermalCore.h"

namespace keocam::cli {

/// Serial number KEOD2001. It is this process that answers, so a program that talks to it must be a child.
class CameraWithCore {
 public:
  CameraWithCore();
  /// Another core, or a bridge without the pace of a line.
  CameraWithCore(const simulator::CoreOptions& core, simulator::CameraOptions camera);

  simulator::SimulatedCamera& camera() { return *camera_; }
  simulator::ThermalCore& core() { return *core_; }

  /// The function codes of the frames that the core received, but for no-operations. Equal ones in a row are told
  /// once, because on a slow machine the program may ask again.
  std::vector<int> asked() const;
  /// Whether the core has received anything at all.
  bool heardAnything() const { return !core_->log().empty(); }
  /// Waits until asked() is not empty. False if that takes too long.
  bool waitUntilAsked(std::chrono::milliseconds limit) const;

 private:
  std::shared_ptr<simulator::ThermalCore> core_;
  std::unique_ptr<simulator::SimulatedCamera> camera_;
};

}  // namespace keocam::cli
