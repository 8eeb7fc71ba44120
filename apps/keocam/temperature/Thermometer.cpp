#include "apps/keocam/temperature/Thermometer.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/StreamReport.h"
#include "apps/keocam/core/StatusText.h"
#include "apps/keocam/lens/CameraCalibration.h"
#include "apps/keocam/temperature/LensChoice.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "radiometry/CoreRadiometry.h"
#include "serial/CoreReadings.h"

namespace keocam::cli {
namespace {

constexpr std::chrono::seconds kCoreTemperatureAge{60};
constexpr std::chrono::seconds kFrameTimeout{5};

constexpr const char* kNoLens =
    "Temperatures are not corrected for the lens; --calibrations, or the variable KEOCAM_DATA_DIR, names the folder of "
    "calibrations.";

void requireOk(ResponseStatuses status, const std::string& subject, const DeviceDetails& camera) {
  if (status == CAM_OK) return;
  throw CommandFailure(exitStatusOf(status), subject + " of the core of " + nameOf(camera) +
                                                 " could not be read: " + wordsFor(status) + ". " + adviceOn(status));
}

}  // namespace

Thermometer::Thermometer(const ThermometerOptions& options, const ObjectOverrides& overrides, const Console& console)
    : console_(console), session_(options.serial_number, console) {
  conditions_.camera = session_.camera();
  const std::optional<CameraCalibration> calibration = calibrationIn(options.calibrations, session_.camera());
  session_.connect();
  if (calibration) {
    conditions_.lens = putLensInForce(*calibration, options.lens, session_);
  } else {
    console.note(kNoLens);
  }
  adopt(options, overrides);
  frames_.emplace(session_.device(), session_.info());
}

void Thermometer::adopt(const ThermometerOptions& options, const ObjectOverrides& overrides) {
  CameraSerialSettings& core = session_.core();
  const std::optional<RangeModes> said = options.range ? findRange(*options.range) : std::nullopt;
  requireOk(session_.attempt([&] { return adoptCoreState(core, lowGainRange(said)); }), "The state", session_.camera());
  const RangeQuestion question{said, core.rangeMode == CameraSerialSettings::LowRange,
                               core.GetHighRangeLensAvailable()};
  conditions_.range = rangeIn(question);
  if (isGuessed(question)) {
    console_.note(
        "The core's gain is that of the middle and of the high range; taken as the middle one. If it is "
        "in the high range, say so with --range high.");
  }
  conditions_.by_core = core.radiometryMode;
  const PinnedConverter adopted = TemperatureConverter(core).pin();
  conditions_.object = adopted.object();
  if (core.radiometryMode) {
    requireAgreement(overrides, conditions_.object, unitIn(options));
  } else {
    conditions_.object = overridden(conditions_.object, overrides);
  }
  const CoreValue<double> temperature = session_.attempt([&] { return readSensorTemperatureC(core); });
  requireOk(temperature.status, "The temperature", session_.camera());
  converter_ = adopted.withObject(conditions_.object);
  noteCoreTemperature(temperature.value);
}

void Thermometer::noteCoreTemperature(double celsius) {
  conditions_.core_temperature_celsius = celsius;
  core_temperature_time_ = SteadyClock::now();
  converter_ = converter_->atCoreTemperature(celsius);
}

void Thermometer::followCoreTemperature() {
  if (SteadyClock::now() - core_temperature_time_ < kCoreTemperatureAge) return;
  const CoreValue<double> temperature = session_.attempt([&] { return readSensorTemperatureC(session_.core()); });
  // It drifts slowly: an old one is better than none.
  if (!temperature.ok()) console_.warning("The core's temperature was not read: " + wordsFor(temperature.status) + ".");
  noteCoreTemperature(temperature.ok() ? temperature.value : conditions_.core_temperature_celsius);
}

std::optional<ReceivedFrame> Thermometer::next(const StopSignal& stop) {
  const auto begin = SteadyClock::now();
  while (!stop.requested()) {
    if (std::optional<ReceivedFrame> frame = frames_->next()) return frame;
    session_.requireLink();
    if (SteadyClock::now() - begin < kFrameTimeout) continue;
    StreamResult silence;
    silence.end = StreamEnd::NoFrames;
    silence.network = frames_->statistics();
    silence.packet_size_bytes = frames_->packetSize_bytes();
    throw CommandFailure(ExitStatus::LinkLost,
                         failureText(session_.camera(), silence, std::chrono::duration<double>(kFrameTimeout).count()));
  }
  return std::nullopt;
}

TemperatureFrame Thermometer::measured(const ReceivedFrame& frame) {
  followCoreTemperature();
  TemperatureFrame result;
  result.raw = rawValuesOf(
      {frame.bytes.data(), frame.bytes.size(), frame.details.width, frame.details.height, frame.details.pixel_format});
  result.time_ns = frame.details.host_timestamp_ns;
  result.celsius.resize(result.raw.counts.size());
  converter_->convert(result.raw.counts.data(), result.raw.counts.size(), result.celsius.data());
  return result;
}

}  // namespace keocam::cli
