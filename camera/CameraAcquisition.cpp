// Acquisition: starting, stopping, and handing frames out.
#include <time.h>

#include "base/Log.h"
#include "camera/Camera.h"
#include "camera/FrameLimit.h"
#include "camera/SystemClock.h"

namespace {

constexpr unsigned int kChannel = 0;
constexpr unsigned int kRetrieveTimeout_ms = 1000;

void sleep_ms(int64_t milliseconds) {
  timespec wait{};
  wait.tv_sec = milliseconds / 1000;
  wait.tv_nsec = (milliseconds % 1000) * 1'000'000;
  nanosleep(&wait, nullptr);
}

}  // namespace

// A step whose object is missing, because the camera is not connected or the device lacks the feature, is left out.

void Camera::StartAcquisition() {
  keocam::printLine("Camera: Starting Acquisition");
  if (device != nullptr) {
    parameters = device->GetParameters();
    acquisitionStartCommand = dynamic_cast<PvGenCommand*>(parameters->Get("AcquisitionStart"));
    acquisitionStopCommand = dynamic_cast<PvGenCommand*>(parameters->Get("AcquisitionStop"));
  } else {
    acquisitionStartCommand = nullptr;
    acquisitionStopCommand = nullptr;
  }
  if (PipelineExists()) pipeline->Start();
  if (device != nullptr) device->StreamEnable(kChannel);
  if (acquisitionStartCommand != nullptr) acquisitionStartCommand->Execute();
  acquiring = true;
}

void Camera::StopAcquisition() {
  if (!IsConnected() || !IsAcquiring()) return;
  acquiring = false;
  keocam::printLine("Camera: Stopping Acquisition");
  if (acquisitionStopCommand != nullptr) acquisitionStopCommand->Execute();
  device->StreamDisable(kChannel);
  if (PipelineExists() && pipeline->IsStarted()) pipeline->Stop();
}

uint8_t* Camera::RetreiveBuffer() {
  PvResult operationResult;
  if (PipelineExists()) pipeline->RetrieveNextBuffer(&buffer, kRetrieveTimeout_ms, &operationResult);
  if (limitFrameRate) {
    const int64_t now_ms = keocam::systemClock_ms();
    const auto elapsed_ms = static_cast<int32_t>(now_ms - lastFrameTime);
    if (elapsed_ms < keocam::kSlowFramePeriod_ms) sleep_ms(keocam::kSlowFramePeriod_ms - elapsed_ms);
    // The time before the sleep on purpose: hand-outs are spaced from the previous reading of the clock.
    lastFrameTime = now_ms;
  }
  return buffer != nullptr ? buffer->GetDataPointer() : nullptr;
}

void Camera::ReleaseBuffer() {
  if (PipelineExists()) pipeline->ReleaseBuffer(buffer);
}
