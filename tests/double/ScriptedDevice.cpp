// PvDevice, PvDeviceGEV and the features after the script.
#include "PvDeviceGEV.h"
#include "tests/double/ScriptedLayer.h"

using scripted::called;
using scripted::eventLog;

namespace {

std::string nullable(const PvString& text) { return text.GetAscii() != nullptr ? text.GetAscii() : "(null)"; }

}  // namespace

PvGenParameter::PvGenParameter() = default;
PvGenParameter::~PvGenParameter() = default;

struct PvGenCommand::State {
  std::string name;
};

PvGenCommand::PvGenCommand(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvGenCommand::~PvGenCommand() = default;

PvResult PvGenCommand::Execute() { return called("PvGenCommand::Execute " + state_->name); }

struct PvGenParameterArray::State {
  std::map<std::string, std::unique_ptr<PvGenParameter>> features;
};

PvGenParameterArray::PvGenParameterArray(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvGenParameterArray::~PvGenParameterArray() = default;

PvGenParameter* PvGenParameterArray::Get(const PvString& name) {
  eventLog().add("PvGenParameterArray::Get " + nullable(name));
  const auto found = state_->features.find(nullable(name));
  return found != state_->features.end() ? found->second.get() : nullptr;
}

PvResult PvGenParameterArray::SetEnumValue(const PvString& name, const PvString& value) {
  return called("PvGenParameterArray::SetEnumValue " + nullable(name) + " " + nullable(value));
}

PvResult PvGenParameterArray::SetBooleanValue(const PvString& name, bool value) {
  return called("PvGenParameterArray::SetBooleanValue " + nullable(name) + (value ? " true" : " false"));
}

PvResult PvGenParameterArray::SetIntegerValue(const PvString& name, long value) {
  return called("PvGenParameterArray::SetIntegerValue " + nullable(name) + " " + std::to_string(value));
}

PvGenCommand* PvLayer::makeCommand(const std::string& name) {
  return new PvGenCommand(std::make_unique<PvGenCommand::State>(PvGenCommand::State{name}));
}

std::unique_ptr<PvGenParameterArray> PvLayer::makeParameters(const scripted::Device& device) {
  auto state = std::make_unique<PvGenParameterArray::State>();
  for (const std::string& name : device.commands) state->features[name].reset(makeCommand(name));
  for (const std::string& name : device.other_features) {
    state->features[name] = std::make_unique<scripted::ValueFeature>();
  }
  return std::unique_ptr<PvGenParameterArray>(new PvGenParameterArray(std::move(state)));
}

struct PvDevice::State {
  scripted::LiveObject live{"PvDevice"};
  const scripted::Device* device;
  bool connected = true;
  std::unique_ptr<PvGenParameterArray> parameters;
};

PvDevice::PvDevice(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvDevice::~PvDevice() { eventLog().add("PvDevice::~PvDevice"); }
PvDeviceGEV::PvDeviceGEV(std::unique_ptr<State> state) : PvDevice(std::move(state)) {}
PvDeviceGEV::~PvDeviceGEV() = default;

const PvResult* PvLayer::result_of_connecting = nullptr;

PvDevice* PvDevice::CreateAndConnect(const PvDeviceInfo* info, PvResult* result) {
  const scripted::Device& device = PvLayer::deviceOf(*info);
  called("PvDevice::CreateAndConnect " + nullable(device.display_id));
  PvLayer::result_of_connecting = result;
  if (!device.accepts_connection) return nullptr;
  return PvLayer::makeDevice(device);
}

PvDevice* PvLayer::makeDevice(const scripted::Device& device) {
  auto state = std::make_unique<PvDevice::State>();
  state->device = &device;
  state->parameters = makeParameters(device);
  if (device.is_gige_vision) return new PvDeviceGEV(std::move(state));
  return new PvDevice(std::move(state));
}

std::string PvLayer::nameOf(const PvDevice& device) { return nullable(device.state_->device->display_id); }

void PvDevice::Free(PvDevice* device) {
  eventLog().add("PvDevice::Free");
  delete device;
}

bool PvDevice::IsConnected() const {
  const bool answer = state_->connected && state_->device->stays_connected;
  called("PvDevice::IsConnected");
  return answer;
}

PvResult PvDevice::Disconnect() {
  state_->connected = false;
  return called("PvDevice::Disconnect");
}

int64_t PvDevice::GetPayloadSize() {
  called("PvDevice::GetPayloadSize");
  return state_->device->payload_size;
}

PvGenParameterArray* PvDevice::GetParameters() {
  called("PvDevice::GetParameters");
  return state_->parameters.get();
}

PvResult PvDevice::StreamEnable(unsigned int channel) {
  return called("PvDevice::StreamEnable " + std::to_string(channel));
}

PvResult PvDevice::StreamDisable(unsigned int channel) {
  return called("PvDevice::StreamDisable " + std::to_string(channel));
}

PvResult PvDeviceGEV::NegotiatePacketSize(unsigned int channel, unsigned int fallbackSize) {
  return called("PvDeviceGEV::NegotiatePacketSize " + std::to_string(channel) + " " + std::to_string(fallbackSize));
}

PvResult PvDeviceGEV::SetStreamDestination(const PvString& address, unsigned short port, unsigned int channel) {
  return called("PvDeviceGEV::SetStreamDestination " + nullable(address) + " " + std::to_string(port) + " " +
                std::to_string(channel));
}
