// The states behind the seam's classes, and the one place that may look into all of them.
#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "PvBuffer.h"
#include "PvDeviceAdapter.h"
#include "PvDeviceGEV.h"
#include "PvGenCommand.h"
#include "PvInterface.h"
#include "PvStreamGEV.h"
#include "PvSystem.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/DeviceLink.h"
#include "pv/aravis/StreamReceiver.h"

struct PvDeviceInfo::State {
  keocam::DeviceDetails details;
};

struct PvInterface::State {
  keocam::InterfaceDetails details;
  std::vector<const PvDeviceInfo*> devices;
};

/// Nothing is ever removed from `infos` and `interfaces`: pointers to them were promised to stay valid.
struct PvSystem::State {
  std::vector<std::unique_ptr<PvDeviceInfo>> infos;
  std::vector<std::unique_ptr<PvInterface>> interfaces;
  std::vector<PvInterface*> listed;
};

struct PvGenCommand::State {
  std::shared_ptr<keocam::DeviceLink> link;
  std::string name;
};

struct PvGenParameterArray::State {
  std::shared_ptr<keocam::DeviceLink> link;
  std::mutex mutex;
  std::map<std::string, std::unique_ptr<PvGenParameter>> known;  // Guarded by mutex.

  PvGenParameter* find(const std::string& feature);
};

struct PvDevice::State {
  std::shared_ptr<keocam::DeviceLink> link;
  std::unique_ptr<PvGenParameterArray> parameters;
};

struct PvDeviceAdapter::State {
  std::shared_ptr<keocam::DeviceLink> link;  // Null for a device that was null.
};

struct PvStream::State {
  std::shared_ptr<keocam::DeviceLink> link;
  std::shared_ptr<keocam::StreamReceiver> receiver;  // Never null.
  std::atomic<bool> open{true};
};

/// Makes the seam's objects and reaches their states; the friend that each of them names.
struct PvLayer {
  static std::unique_ptr<PvDeviceInfo> makeDeviceInfo(const keocam::DeviceDetails& details);
  static std::unique_ptr<PvInterface> makeInterface(const keocam::InterfaceDetails& details);
  static std::unique_ptr<PvGenParameterArray> makeParameters(const std::shared_ptr<keocam::DeviceLink>& link);
  static std::unique_ptr<PvGenCommand> makeCommand(const std::shared_ptr<keocam::DeviceLink>& link,
                                                   const std::string& name);
  static PvDeviceGEV* makeDevice(const std::shared_ptr<keocam::DeviceLink>& link);
  static PvStreamGEV* makeStream(const std::shared_ptr<keocam::DeviceLink>& link,
                                 const std::shared_ptr<keocam::StreamReceiver>& receiver);
  static std::unique_ptr<PvBuffer> makeBuffer(std::size_t size);

  static PvBuffer::State& state(const PvBuffer& buffer);
  static const keocam::DeviceDetails& details(const PvDeviceInfo& info) { return info.state_->details; }
  static PvInterface::State& state(PvInterface& interface) { return *interface.state_; }
  static const std::shared_ptr<keocam::DeviceLink>& link(const PvDevice& device) { return device.state_->link; }
  static const std::shared_ptr<keocam::DeviceLink>& link(const PvDeviceAdapter& adapter) {
    return adapter.state_->link;
  }
  static const PvStream::State& state(const PvStream& stream) { return *stream.state_; }
};
