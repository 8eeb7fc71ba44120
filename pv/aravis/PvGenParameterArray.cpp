// A device's features by name.
#include "PvGenParameterArray.h"

#include <utility>

#include "pv/aravis/Error.h"
#include "pv/aravis/FeatureWrites.h"
#include "pv/aravis/PvLayer.h"
#include "pv/aravis/Text.h"

namespace {

enum class Kind { Missing, Command, Other };

// Any feature that is not a command; its dynamic type says no more than that.
class OtherParameter : public PvGenParameter {
 public:
  OtherParameter() = default;
};

// `write` is called with the device and the feature's name, on the working thread.
template <typename Write>
PvResult onFeature(const std::shared_ptr<keocam::DeviceLink>& link, const PvString& name, Write write) {
  return link->run([feature = keocam::textOf(name), write](ArvDevice* device) { return write(device, feature); });
}

}  // namespace

PvGenParameter::PvGenParameter() = default;
PvGenParameter::~PvGenParameter() = default;

PvGenCommand::PvGenCommand(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvGenCommand::~PvGenCommand() = default;

PvResult PvGenCommand::Execute() {
  return state_->link->run([name = state_->name](ArvDevice* device) { return keocam::executeCommand(device, name); });
}

std::unique_ptr<PvGenCommand> PvLayer::makeCommand(const std::shared_ptr<keocam::DeviceLink>& link,
                                                   const std::string& name) {
  auto state = std::make_unique<PvGenCommand::State>();
  state->link = link;
  state->name = name;
  return std::unique_ptr<PvGenCommand>(new PvGenCommand(std::move(state)));
}

PvGenParameterArray::PvGenParameterArray(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvGenParameterArray::~PvGenParameterArray() = default;

std::unique_ptr<PvGenParameterArray> PvLayer::makeParameters(const std::shared_ptr<keocam::DeviceLink>& link) {
  auto state = std::make_unique<PvGenParameterArray::State>();
  state->link = link;
  return std::unique_ptr<PvGenParameterArray>(new PvGenParameterArray(std::move(state)));
}

PvGenParameter* PvGenParameterArray::State::find(const std::string& feature) {
  const std::lock_guard<std::mutex> lock(mutex);
  const auto entry = known.find(feature);
  return entry != known.end() ? entry->second.get() : nullptr;
}

// The device is asked without the lock, so that threads do not wait for each other's questions.
PvGenParameter* PvGenParameterArray::Get(const PvString& name) {
  const std::string feature = keocam::textOf(name);
  if (PvGenParameter* const known = state_->find(feature)) return known;
  const auto kind = std::make_shared<Kind>(Kind::Missing);
  const PvResult asked = state_->link->run([feature, kind](ArvDevice* device) {
    ArvGcNode* const node = arv_device_get_feature(device, feature.c_str());
    if (node != nullptr) *kind = ARV_IS_GC_COMMAND(node) == TRUE ? Kind::Command : Kind::Other;
    return PvResult();
  });
  if (!asked.IsOK() || *kind == Kind::Missing) return nullptr;
  const std::lock_guard<std::mutex> lock(state_->mutex);
  std::unique_ptr<PvGenParameter>& parameter = state_->known[feature];
  if (parameter) return parameter.get();  // Another thread asked at the same time.
  if (*kind == Kind::Command) {
    parameter = PvLayer::makeCommand(state_->link, feature);
  } else {
    parameter = std::make_unique<OtherParameter>();
  }
  return parameter.get();
}

PvResult PvGenParameterArray::SetEnumValue(const PvString& name, const PvString& value) {
  return onFeature(state_->link, name, [entry = keocam::textOf(value)](ArvDevice* device, const std::string& feature) {
    return keocam::writeEnumeration(device, feature, entry);
  });
}

PvResult PvGenParameterArray::SetBooleanValue(const PvString& name, bool value) {
  return onFeature(state_->link, name, [value](ArvDevice* device, const std::string& feature) {
    return keocam::writeBoolean(device, feature, value);
  });
}

PvResult PvGenParameterArray::SetIntegerValue(const PvString& name, long value) {
  return onFeature(state_->link, name, [value](ArvDevice* device, const std::string& feature) {
    return keocam::writeInteger(device, feature, value);
  });
}
