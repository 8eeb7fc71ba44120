// Connection: device, stream, pipeline and core.
#include "camera/Camera.h"

#include <unistd.h>

#include <iostream>
#include <utility>

#include "PvDeviceGEV.h"
#include "PvStreamGEV.h"
#include "base/Log.h"
#include "camera/FrameLimit.h"
#include "camera/SystemClock.h"
#include "serial/CameraSerialSettings.h"

namespace {

constexpr unsigned int kChannel = 0;
constexpr unsigned int kPipelineBuffers = 2;

// The device's first bulk port, by its number: its name is not part of the seam.
constexpr auto kCorePort = static_cast<PvDeviceSerial>(2);

// One log line: `before`, the camera's display identifier, `after`. An absent identifier puts the stream into its
// failed state, in which nothing more is printed: applications that watch standard output rely on it.
void printWithDisplayID(const char* before, const PvDeviceInfo* deviceInfo, const char* after) {
  const PvString displayID = deviceInfo->GetDisplayID();
  if (displayID.GetAscii() == nullptr) {
    std::cout << before;
    std::cout.setstate(std::ios::failbit);
    return;
  }
  keocam::printLine(std::string(before) + displayID.GetAscii() + after);
}

}  // namespace

Camera::Camera(PvDeviceInfo const* info) : deviceInfo(info) {}

Camera::Camera(PvDeviceInfo const* info, std::string text) : deviceInfo(info), calibrationText(std::move(text)) {}

Camera::Camera(PvDeviceInfo const* info, std::string text, std::string version)
    : deviceInfo(info), calibrationText(std::move(text)), calibrationVersion(std::move(version)) {}

Camera::Camera(PvDeviceInfo const* info, std::string text, std::string version, std::string serial)
    : deviceInfo(info),
      calibrationText(std::move(text)),
      calibrationVersion(std::move(version)),
      serialNumber(std::move(serial)) {}

Camera::~Camera() = default;

int Camera::Connect() {
  if (IsConnected()) {
    // The missing blank is part of the text.
    printWithDisplayID("Camera: Camera ", deviceInfo, "is connected.");
    return -1;
  }

  if (keocam::isFrameRateLimited(serialNumber)) {
    limitFrameRate = true;
    lastFrameTime = keocam::systemClock_ms();
  }

  printWithDisplayID("Camera: Connecting to ", deviceInfo, ".");
  PvResult result;
  device = PvDevice::CreateAndConnect(deviceInfo, &result);
  if (device == nullptr) {
    printWithDisplayID("Camera: Unable to connect to ", deviceInfo, ".");
    return -1;
  }

  stream = PvStream::CreateAndOpen(deviceInfo->GetConnectionID(), &result);
  if (stream == nullptr) {
    printWithDisplayID("Camera: Unable to stream from ", deviceInfo, ".");
    return -1;
  }

  ConfigureStream();
  pipeline = CreatePipeline(device, stream);
  pipelineDeleted_ = false;
  if (!IsConnected()) return -1;
  HandOverToCore();
  return stream->IsOpen() ? 0 : -1;
}

// What the core's start-up comes to is told by its own lines: frames arrive without a core too.
void Camera::HandOverToCore() {
  serialSettings = new CameraSerialSettings(device, kCorePort);
  serialSettings->setCalibrationData(calibrationText, calibrationVersion, serialNumber);
  serialSettings->SetDefault();
}

void Camera::ConfigureStream() {
  auto* const gevDevice = dynamic_cast<PvDeviceGEV*>(device);
  if (gevDevice == nullptr) return;
  auto* const gevStream = static_cast<PvStreamGEV*>(stream);
  gevDevice->NegotiatePacketSize(kChannel, 0);
  gevDevice->SetStreamDestination(gevStream->GetLocalIPAddress(), gevStream->GetLocalPort(), kChannel);
}

PvPipeline* Camera::CreatePipeline(PvDevice* pipelineDevice, PvStream* pipelineStream) {
  auto* const newPipeline = new PvPipeline(pipelineStream);
  const int64_t payloadSize = pipelineDevice->GetPayloadSize();
  newPipeline->SetBufferCount(kPipelineBuffers);
  newPipeline->SetBufferSize(static_cast<uint32_t>(payloadSize));
  return newPipeline;
}

void Camera::Disconnect() {
  if (IsAcquiring()) StopAcquisition();
  sleep(1);
  if (PipelineExists()) delete pipeline;
  pipelineDeleted_ = true;  // The pointer itself keeps its value on purpose.
  buffer = nullptr;
  if (stream != nullptr && stream->IsOpen()) {
    keocam::printLine("Camera: Closing stream");
    stream->Close();
    PvStream::Free(stream);
    stream = nullptr;
  }
  if (device != nullptr && device->IsConnected()) {
    keocam::printLine("Camera: Disconnecting device");
    device->Disconnect();
    PvDevice::Free(device);
    device = nullptr;
    parameters = nullptr;
    acquisitionStartCommand = nullptr;
    acquisitionStopCommand = nullptr;
  }
}

bool Camera::PipelineExists() const { return pipeline != nullptr && !pipelineDeleted_; }

bool Camera::IsConnected() { return device != nullptr && device->IsConnected(); }

bool Camera::IsAcquiring() { return acquiring; }

std::string Camera::GetStatus() {
  if (IsAcquiring()) return "Acquiring";
  return IsConnected() ? "Connected" : "Disconnected";
}
