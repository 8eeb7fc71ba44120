#include "simulator/CameraArguments.h"

#include <cmath>
#include <map>
#include <stdexcept>

#include "simulator/FrameRates.h"
#include "simulator/SensorSizes.h"
#include "simulator/SerialNumbers.h"
#include "simulator/UdpSocket.h"

namespace simulator {
namespace {

const std::map<std::string, bool> kSwitch{{"on", true}, {"off", false}};

}  // namespace

CameraArguments::CameraArguments(CLI::App& app) {
  app.add_option("--cameras", count_, "How many, 1 to 64 [1, or as many as there are models]")
      ->check(CLI::Range(1U, kMostCameras))
      ->option_text("N");
  auto* address =
      app.add_option("--address", usual_.address, "First camera's address; the next count upwards [127.0.0.2]")
          ->check(CLI::ValidIPV4)
          ->option_text("A.B.C.D");
  app.add_option("--interface", interface_, "Take this interface's address for the first camera")
      ->option_text("NAME")
      ->excludes(address);
  app.add_option("--serial", serial_, "First camera's serial number; the next count upwards [KEOD2001; see below]")
      ->option_text("TEXT");
  app.add_option("--size", size_, "Sensor: 640x512, 336x256, 320x256 or 160x128 [640x512]")
      ->check(CLI::IsMember(sensorSizes()))
      ->option_text("WxH");
  app.add_option("--fps", frame_rate_hz_, "Frames per second at the start, 1 to 1000, of slow cores to 9 [30, or 9]")
      ->check(CLI::Range(kLeastFrameRateHz, kMostFrameRateHz))
      ->option_text("HZ");
  app.add_option("--seed", usual_.seed, "Of the noise and of the faults [1]")->option_text("N");
  app.add_option("--uart-pacing", pacing_, "Serial bytes take the time of their baud rate [on]")
      ->check(CLI::IsMember(kSwitch))
      ->option_text("on|off");
}

uint32_t CameraArguments::count(const ModelArguments& models) const { return count_.value_or(models.count()); }

std::string CameraArguments::serialOf(uint32_t index, const CoreModel* model) const {
  std::string serial;
  try {
    serial = nextSerial(serial_.value_or(model == nullptr ? usual_.serial : usualSerial(*model)), index);
  } catch (const std::invalid_argument& error) {
    throw CLI::ValidationError("--serial", error.what());
  }
  if (serial.empty() || serial.size() > kLongestName) {
    throw CLI::ValidationError("--serial", "'" + serial + "' does not serve as a serial number: it needs 1 to " +
                                               std::to_string(kLongestName) + " characters");
  }
  return serial;
}

double CameraArguments::rateWith(const std::optional<CoreIdentity>& core) const {
  const double rate_hz = frame_rate_hz_.value_or(usual_.frame_rate_hz);
  if (!core) return rate_hz;
  const std::optional<double> limit_hz = frameRateLimitHz(*core);
  if (!limit_hz || rate_hz <= *limit_hz) return rate_hz;
  if (!frame_rate_hz_) return *limit_hz;
  throw CLI::ValidationError("--fps", "the slow core " + core->part_number + " makes at most " +
                                          std::to_string(std::lround(*limit_hz)) +
                                          " frames a second; leave --fps out or choose a fast one");
}

CameraOptions CameraArguments::make(uint32_t index, const ModelArguments& models, const CoreArguments& cores) const {
  const CoreModel* model = models.of(index);
  CameraOptions camera = usual_;
  camera.address = formatIp((interface_.empty() ? parseIp(camera.address) : interfaceNamed(interface_).ip) + index);
  camera.serial = serialOf(index, model);
  camera.sensor = model == nullptr ? sensorSizes().at(size_) : model->sensor;
  camera.seed += index;
  camera.uart_pacing = kSwitch.at(pacing_);
  camera.frame_rate_hz = rateWith(cores.identity(camera, model));
  return camera;
}

}  // namespace simulator
