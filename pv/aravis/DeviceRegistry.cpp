#include "pv/aravis/DeviceRegistry.h"

#include <map>
#include <mutex>

namespace keocam {

namespace {

struct Registry {
  std::mutex mutex;
  std::map<std::string, std::weak_ptr<DeviceLink>> links;
};

// Never destroyed: threads that still close a dead device may outlive the program's static objects.
Registry& registry() {
  static auto* const instance = new Registry;
  return *instance;
}

}  // namespace

std::shared_ptr<DeviceLink> connectedDevice(const std::string& address) {
  Registry& known = registry();
  const std::lock_guard<std::mutex> lock(known.mutex);
  const auto found = known.links.find(address);
  if (found == known.links.end()) return nullptr;
  std::shared_ptr<DeviceLink> link = found->second.lock();
  if (link && link->connected()) return link;
  return nullptr;
}

void registerDevice(const std::shared_ptr<DeviceLink>& link) {
  Registry& known = registry();
  const std::lock_guard<std::mutex> lock(known.mutex);
  known.links[link->details().address] = link;
}

}  // namespace keocam
