#include "pv/aravis/HeldPorts.h"

#include <utility>

namespace keocam {

HeldPorts::Hold::Hold(std::shared_ptr<HeldPorts> ports, std::string port)
    : ports_(std::move(ports)), port_(std::move(port)) {}

HeldPorts::Hold::~Hold() {
  const std::lock_guard<std::mutex> lock(ports_->mutex_);
  ports_->held_.erase(port_);
}

std::unique_ptr<HeldPorts::Hold> HeldPorts::take(const std::shared_ptr<HeldPorts>& ports, const std::string& port) {
  {
    const std::lock_guard<std::mutex> lock(ports->mutex_);
    if (!ports->held_.insert(port).second) return nullptr;
  }
  return std::make_unique<Hold>(ports, port);
}

}  // namespace keocam
