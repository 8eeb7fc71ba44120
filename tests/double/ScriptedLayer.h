// What the double's parts share: the states of the seam's classes that more than one of them reaches.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "PvBuffer.h"
#include "PvDevice.h"
#include "PvDeviceAdapter.h"
#include "PvDeviceInfo.h"
#include "PvGenCommand.h"
#include "PvGenParameterArray.h"
#include "PvInterface.h"
#include "PvStream.h"
#include "tests/double/ScriptedNetwork.h"

namespace scripted {

/// Logs a call of a device, its features, its stream or its pipeline, lets happen what the script has for it, and tells
/// its result if it is one that returns a result.
PvResult called(const std::string& call);

/// Counts the objects of one kind; see liveObjects().
class LiveObject {
 public:
  explicit LiveObject(const char* kind);
  ~LiveObject();
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;

 private:
  std::string kind_;
};

/// A feature that is not a command.
class ValueFeature : public PvGenParameter {};

}  // namespace scripted

struct PvDeviceInfo::State {
  std::shared_ptr<scripted::Device> device;
};

struct PvLayer {
  /// Where the last CreateAndConnect was to store its outcome; the stream's is to go to the same place. Only compared.
  static const PvResult* result_of_connecting;

  static PvInterface* makeInterface(std::size_t index);
  static PvDeviceInfo* makeInfo(const std::shared_ptr<scripted::Device>& device);
  static const scripted::Device& deviceOf(const PvDeviceInfo& info);
  static PvGenCommand* makeCommand(const std::string& name);
  static std::unique_ptr<PvGenParameterArray> makeParameters(const scripted::Device& device);
  static PvDevice* makeDevice(const scripted::Device& device);
  static std::string nameOf(const PvDevice& device);
  static const PvDevice* deviceOf(const PvDeviceAdapter& adapter);
  static PvStream* makeStream(const scripted::Device& device);
  static std::unique_ptr<PvBuffer> makeBuffer(uint8_t first_byte);
};
