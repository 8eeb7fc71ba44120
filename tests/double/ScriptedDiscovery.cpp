// PvSystem, PvInterface and PvDeviceInfo after the script.
#include <map>

#include "PvDeviceInfo.h"
#include "PvInterface.h"
#include "PvSystem.h"
#include "tests/double/ScriptedLayer.h"

using scripted::eventLog;
using scripted::network;

PvDeviceInfo::PvDeviceInfo(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvDeviceInfo::~PvDeviceInfo() = default;
PvString PvDeviceInfo::GetSerialNumber() const { return state_->device->serial_number; }
PvString PvDeviceInfo::GetConnectionID() const { return state_->device->connection_id; }
PvString PvDeviceInfo::GetDisplayID() const { return state_->device->display_id; }

struct PvInterface::State {
  std::size_t index;
};

PvInterface::PvInterface(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvInterface::~PvInterface() = default;

unsigned int PvInterface::GetDeviceCount() const {
  eventLog().add("PvInterface::GetDeviceCount " + std::to_string(state_->index));
  return static_cast<unsigned int>(network().interfaces[state_->index]->size());
}

const PvDeviceInfo* PvInterface::GetDeviceInfo(unsigned int index) const {
  eventLog().add("PvInterface::GetDeviceInfo " + std::to_string(state_->index) + " " + std::to_string(index));
  const PvDeviceInfo* const info = scripted::infoOf((*network().interfaces[state_->index])[index]);
  if (network().on_device_visited) network().on_device_visited();
  return info;
}

struct PvSystem::State {
  scripted::LiveObject live{"PvSystem"};
  mutable std::map<unsigned int, std::unique_ptr<PvInterface>> interfaces;
};

PvInterface* PvLayer::makeInterface(std::size_t index) {
  return new PvInterface(std::make_unique<PvInterface::State>(PvInterface::State{index}));
}

PvDeviceInfo* PvLayer::makeInfo(const std::shared_ptr<scripted::Device>& device) {
  return new PvDeviceInfo(std::make_unique<PvDeviceInfo::State>(PvDeviceInfo::State{device}));
}

const scripted::Device& PvLayer::deviceOf(const PvDeviceInfo& info) { return *info.state_->device; }

PvSystem::PvSystem() : state_(std::make_unique<State>()) { eventLog().add("PvSystem::PvSystem"); }
PvSystem::~PvSystem() { eventLog().add("PvSystem::~PvSystem"); }

PvResult PvSystem::Find() {
  eventLog().add("PvSystem::Find");
  if (network().on_find) network().on_find();
  return network().find_result;
}

unsigned int PvSystem::GetInterfaceCount() const {
  eventLog().add("PvSystem::GetInterfaceCount");
  return static_cast<unsigned int>(network().interfaces.size());
}

const PvInterface* PvSystem::GetInterface(unsigned int index) const {
  eventLog().add("PvSystem::GetInterface " + std::to_string(index));
  if (!network().interfaces[index]) return nullptr;
  auto& interface = state_->interfaces[index];
  if (interface == nullptr) interface.reset(PvLayer::makeInterface(index));
  return interface.get();
}

namespace scripted {
namespace {

std::map<const Device*, std::unique_ptr<PvDeviceInfo>>& infos() {
  static std::map<const Device*, std::unique_ptr<PvDeviceInfo>> all;
  return all;
}

std::map<std::string, int>& liveCounts() {
  static std::map<std::string, int> counts;
  return counts;
}

}  // namespace

Network& network() {
  static Network instance;
  return instance;
}

PvResult called(const std::string& call) {
  eventLog().add(call);
  const auto [first, last] = network().during.equal_range(call);
  for (auto happening = first; happening != last; ++happening) happening->second();
  return network().refused.count(call) == 0 ? PvResult() : PvResult(PvResult::Code::GenericError, "the script says so");
}

const PvDeviceInfo* infoOf(const std::shared_ptr<Device>& device) {
  if (device == nullptr) return nullptr;
  auto& info = infos()[device.get()];
  if (info == nullptr) info.reset(PvLayer::makeInfo(device));
  return info.get();
}

void releaseInfos() { infos().clear(); }

int liveObjects(const std::string& kind) { return liveCounts()[kind]; }

LiveObject::LiveObject(const char* kind) : kind_(kind) { ++liveCounts()[kind_]; }
LiveObject::~LiveObject() { --liveCounts()[kind_]; }

}  // namespace scripted
