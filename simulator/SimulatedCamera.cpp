#include "simulator/SimulatedCamera.h"

#include <algorithm>
#include <mutex>
#include <stdexcept>

#include "simulator/Clock.h"
#include "simulator/ControlChannel.h"
#include "simulator/Device.h"
#include "simulator/FrameRates.h"
#include "simulator/StreamSender.h"
#include "simulator/UdpSocket.h"
#include "simulator/core/ThermalCore.h"

namespace simulator {
namespace {

std::string modelOf(const CameraOptions& options) { return "KEOsim-" + std::to_string(options.sensor.width); }

SceneSettings sceneOf(const CameraOptions& options) {
  SceneSettings scene;
  scene.sensor = options.sensor;
  scene.seed = options.seed;
  scene.temperatures = options.temperatures;
  return scene;
}

/// Locally administered, with the address in its last four bytes: unique wherever the address is.
std::array<uint8_t, 6> macOf(uint32_t ip) {
  return {0x02,
          0x4B,
          static_cast<uint8_t>(ip >> 24),
          static_cast<uint8_t>(ip >> 16),
          static_cast<uint8_t>(ip >> 8),
          static_cast<uint8_t>(ip)};
}

double mostFrameRateOf(const CameraOptions& options) {
  return options.core ? frameRateLimitHz(options.core->identity()).value_or(kMostFrameRateHz) : kMostFrameRateHz;
}

CameraOptions checked(CameraOptions options) {
  if (options.user_id.empty()) options.user_id = options.serial;
  for (const std::string* name : {&options.serial, &options.user_id}) {
    if (name->empty() || name->size() > kLongestName) {
      throw std::runtime_error("'" + *name + "' does not serve as a name: it needs 1 to 15 characters");
    }
  }
  if (!(options.frame_rate_hz >= kLeastFrameRateHz && options.frame_rate_hz <= kMostFrameRateHz)) {
    throw std::runtime_error("a frame rate of " + std::to_string(options.frame_rate_hz) + " is not in 1 to 1000 Hz");
  }
  options.frame_rate_hz = std::min(options.frame_rate_hz, mostFrameRateOf(options));
  if (options.core && options.uart_peer) {
    throw std::runtime_error("a camera's UART has one other end: either a core or another peer");
  }
  if (options.sensor.width < 16 || options.sensor.height < 16 || options.sensor.width > 4096 ||
      options.sensor.height > 4096) {
    throw std::runtime_error("a sensor has 16 to 4096 pixels each way");
  }
  return options;
}

DeviceIdentity identityOf(const CameraOptions& options, const InterfaceAddress& own, uint16_t stream_source_port) {
  DeviceIdentity identity;
  identity.mac = macOf(own.ip);
  identity.ip = own.ip;
  identity.subnet_mask = own.mask;
  identity.stream_source_port = stream_source_port;
  identity.model = modelOf(options);
  identity.serial = options.serial;
  identity.user_id = options.user_id;
  identity.sensor = options.sensor;
  identity.frame_rate_hz = options.frame_rate_hz;
  identity.most_frame_rate_hz = mostFrameRateOf(options);
  return identity;
}

std::shared_ptr<UartPeer> peerOf(const CameraOptions& options) {
  if (options.core) return options.core;
  return options.uart_peer;
}

/// The camera's own address, in the subnet of the interface that it lies on.
InterfaceAddress ownAddress(const CameraOptions& options) {
  const uint32_t ip = parseIp(options.address);
  InterfaceAddress own = interfaceOf(ip);
  own.ip = ip;
  return own;
}

}  // namespace

// In the order of construction: the control channel comes last and goes first, as its thread uses all the others.
struct SimulatedCamera::Parts {
  explicit Parts(const CameraOptions& chosen)
      : options(checked(chosen)),
        own(ownAddress(options)),
        faults(options.faults, options.seed),
        stream(own.ip, std::make_shared<Scene>(sceneOf(options)), options.core, faults, statistics),
        device(identityOf(options, own, stream.sourcePort()), stream, peerOf(options), options.uart_pacing, statistics),
        control(own, device, device_mutex, faults, statistics) {}

  CameraOptions options;
  InterfaceAddress own;
  StatisticsBoard statistics;
  Faults faults;
  StreamSender stream;
  std::mutex device_mutex;
  Device device;
  ControlChannel control;
};

SimulatedCamera::SimulatedCamera(const CameraOptions& options) : parts_(std::make_unique<Parts>(options)) {}

SimulatedCamera::~SimulatedCamera() = default;

const CameraOptions& SimulatedCamera::options() const { return parts_->options; }

std::string SimulatedCamera::model() const { return modelOf(parts_->options); }

std::array<uint8_t, 6> SimulatedCamera::macAddress() const { return macOf(parts_->own.ip); }

SceneSettings SimulatedCamera::sceneSettings() const { return scene()->settings(); }

std::shared_ptr<const Scene> SimulatedCamera::scene() const { return parts_->stream.scene(); }

uint64_t SimulatedCamera::show(const std::optional<TemperatureSceneSettings>& temperatures) {
  SceneSettings settings = sceneOf(parts_->options);
  settings.temperatures = temperatures;
  return parts_->stream.show(std::make_shared<Scene>(settings));
}

Faults& SimulatedCamera::faults() { return parts_->faults; }

Statistics SimulatedCamera::statistics() const { return parts_->statistics.snapshot(); }

void SimulatedCamera::dropControl() {
  const std::lock_guard<std::mutex> lock(parts_->device_mutex);
  parts_->device.loseControl(monotonicNs());
}

void SimulatedCamera::setOccupied(bool occupied) {
  const std::lock_guard<std::mutex> lock(parts_->device_mutex);
  parts_->device.setOccupied(occupied, monotonicNs());
}

bool SimulatedCamera::controlled() const {
  const std::lock_guard<std::mutex> lock(parts_->device_mutex);
  return parts_->device.controlled();
}

bool SimulatedCamera::streaming() const { return parts_->stream.acquiring(); }

}  // namespace simulator
