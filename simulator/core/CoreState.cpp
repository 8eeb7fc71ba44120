#include "simulator/core/CoreState.h"

namespace simulator {
namespace {

constexpr uint16_t kLowGainMode = 1;
constexpr double kUnitEmissivity = 8192;
constexpr uint16_t kAutomaticFfc = 1;

Bytes wordAnswer(uint16_t word) {
  Bytes bytes;
  appendU16(bytes, word);
  return bytes;
}

}  // namespace

CoreState::CoreState(const CoreStateOptions& options, uint64_t power_on_ns)
    : options_(options),
      power_on_ns_(power_on_ns),
      started_ns_(power_on_ns),
      flat_field_(
          options.shutter_ns, [this](uint64_t now_ns) { return temperatures(now_ns).sensor_celsius; }, power_on_ns),
      flash_(options.flash) {
  checkPartNumber(options.identity.part_number);
}

CoreTemperatures CoreState::temperatures(uint64_t now_ns) const {
  return temperaturesAt(options_.thermal, options_.seed, now_ns - power_on_ns_);
}

CoreAnswer CoreState::perform(const CoreRequest& request, const Bytes& request_payload, uint64_t now_ns) {
  const FunctionRow& row = *request.row;
  switch (request.operation) {
    case Operation::Command:
      return {CoreStatus::Ok, command(static_cast<FunctionCode>(row.code), row.answer_bytes, now_ns), 0};
    case Operation::Memory:
      return performOnFlash(flash_, row.memory, request_payload, options_.erase_ns);
    case Operation::Get:
      return {CoreStatus::Ok, row.kind == RowKind::Reading ? reading(row.reading, now_ns) : present_.answer(row), 0};
    case Operation::Set:
      break;
  }
  present_.set(row, request.words);
  return {CoreStatus::Ok, request_payload, 0};
}

Bytes CoreState::command(FunctionCode code, std::size_t answer_bytes, uint64_t now_ns) {
  switch (code) {
    case FunctionCode::SetDefaults:
      power_on_ = present_;
      break;
    case FunctionCode::Reset:
      present_ = power_on_;
      started_ns_ = now_ns + options_.reset_ns;
      // Until it is back the shutter stays closed.
      flat_field_.restart(started_ns_);
      break;
    case FunctionCode::FactoryDefaults:
      present_ = power_on_ = CoreSettings();
      break;
    case FunctionCode::DoFfc:
      flat_field_.correct(now_ns);
      break;
    default:
      break;
  }
  return Bytes(answer_bytes);
}

Bytes CoreState::reading(Reading reading, uint64_t now_ns) const {
  switch (reading) {
    case Reading::SerialNumbers:
      return serialNumberAnswer(options_.identity);
    case Reading::Versions:
      return versionAnswer(options_.identity);
    case Reading::PartNumber:
      return partNumberAnswer(options_.identity);
    case Reading::SensorTemperature:
      return wordAnswer(tenths(temperatures(now_ns).sensor_celsius));
    case Reading::HousingTemperature:
      return wordAnswer(hundredths(temperatures(now_ns).housing_celsius));
    case Reading::ShutterTemperature:
      return wordAnswer(hundredths(temperatures(now_ns).shutter_celsius));
    case Reading::FlashGeometry:
      return geometryAnswer(flash_.geometry());
    case Reading::LensSlot0Region:
      return regionAnswer(flash_.geometry().slots[0]);
    case Reading::LensSlot1Region:
      return regionAnswer(flash_.geometry().slots[1]);
    case Reading::None:
      break;
  }
  return {};
}

CoreResponse CoreState::response(uint64_t now_ns) const {
  const auto parameter = [this](uint8_t selector) {
    return static_cast<double>(present_.word(FunctionCode::RadiometricParameter, selector));
  };
  CoreResponse response;
  response.low_gain = present_.word(FunctionCode::GainMode) == kLowGainMode;
  if (present_.word(FunctionCode::Radiometry, kRadiometryMode) != 0) {
    const bool high = present_.word(FunctionCode::Radiometry, kRadiometryResolution) != 0;
    response.scale = high ? PixelScale::KelvinTimes25 : PixelScale::KelvinTimes2p5;
  }
  response.object.emissivity = parameter(kEmissivity) / kUnitEmissivity;
  response.object.reflected_celsius = parameter(kReflectedTemperature) / 100;
  response.object.atmospheric_celsius = parameter(kAtmosphericTemperature) / 100;
  response.core_degrees = wholeDegrees(temperatures(now_ns).sensor_celsius);
  return response;
}

FlatFieldRules CoreState::flatFieldRules() const {
  FlatFieldRules rules;
  if (present_.word(FunctionCode::FfcMode) != kAutomaticFfc) return rules;
  const std::size_t gain = present_.word(FunctionCode::GainMode) == kLowGainMode ? 1 : 0;
  const auto of = [&](FunctionCode code) { return present_.words(*findRow(static_cast<uint8_t>(code)))[gain]; };
  const uint16_t frames = of(FunctionCode::FfcPeriod);
  if (frames != 0) {
    rules.period_ns = static_cast<uint64_t>(frames * 1e9 / coreFrameRateHz(options_.identity));
  }
  rules.delta_celsius = of(FunctionCode::FfcTemperatureDelta);
  return rules;
}

void CoreState::advance(uint64_t now_ns) {
  if (!starting(now_ns)) flat_field_.advance(flatFieldRules(), now_ns);
}

}  // namespace simulator
