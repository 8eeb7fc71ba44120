#include "CameraWithCore.h"

#include <thread>
#include <utility>

namespace keocam::cli {
namespace {

simulator::CoreOptions usualCore() {
  simulator::CoreOptions options;
  options.log_entries = 1000;
  return options;
}

std::unique_ptr<simulator::SimulatedCamera> newCamera(simulator::CameraOptions options,
                                                      const std::shared_ptr<simulator::ThermalCore>& core) {
  options.core = core;
  return std::make_unique<simulator::SimulatedCamera>(options);
}

}  // namespace

CameraWithCore::CameraWithCore() : CameraWithCore(usualCore(), {}) {}

CameraWithCore::CameraWithCore(const simulator::CoreOptions& core, simulator::CameraOptions camera)
    : core_(std::make_shared<simulator::ThermalCore>(core)), camera_(newCamera(std::move(camera), core_)) {}

std::vector<int> CameraWithCore::asked() const {
  std::vector<int> functions;
  for (const simulator::CoreLogEntry& entry : core_->log()) {
    const auto function = entry.function();
    if (!function || *function == static_cast<uint8_t>(simulator::FunctionCode::NoOperation)) continue;
    if (functions.empty() || functions.back() != *function) functions.push_back(*function);
  }
  return functions;
}

bool CameraWithCore::waitUntilAsked(std::chrono::milliseconds limit) const {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (asked().empty()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace keocam::cli
