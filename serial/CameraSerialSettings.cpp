// The object itself, and messages of any kind.
#include "serial/CameraSerialSettings.h"

#include <unistd.h>

#include <algorithm>

#include "base/Log.h"
#include "serial/Crc16.h"
#include "serial/Frame.h"
#include "serial/SerialExchange.h"

namespace {

constexpr uint32_t kReadTimeout_ms = 500;

void tell(const std::string& failure) { keocam::printErrorLine("CameraSerialSettings::sendMessage: " + failure); }

}  // namespace

CameraSerialSettings::CameraSerialSettings(PvDevice* connected, PvDeviceSerial port)
    : device(connected), serialPort(port) {}

CameraSerialSettings::~CameraSerialSettings() = default;

PvDevice* CameraSerialSettings::GetPvDevice() { return device; }

void CameraSerialSettings::SetPvDevice(PvDevice* /*device*/) {}

PvDeviceSerial CameraSerialSettings::GetPvDeviceSerial() { return serialPort; }

void CameraSerialSettings::SetPvDeviceSerial(PvDeviceSerial port) { serialPort = port; }

bool CameraSerialSettings::GetDebugMessages() { return debugMessages; }

void CameraSerialSettings::SetDebugMessages(bool on) { debugMessages = on; }

unsigned short CameraSerialSettings::CalculateCRC(void* data, int length) {
  if (length <= 0) return 0;
  const uint16_t crc = keocam::crc16(static_cast<const uint8_t*>(data), static_cast<std::size_t>(length));
  return static_cast<unsigned short>(crc >> 8 | crc << 8);
}

unsigned char* CameraSerialSettings::prepareMessage(unsigned char functionCode, unsigned short byteCount,
                                                    unsigned char* payload) {
  const std::vector<uint8_t> request = keocam::makeRequest(functionCode, payload, byteCount);
  auto* const frame = new unsigned char[request.size()];
  std::copy(request.begin(), request.end(), frame);
  return frame;
}

unsigned char* CameraSerialSettings::sendMessage(unsigned char* frame, unsigned short byteCount, int waitMicroseconds) {
  keocam::ReplyBuffer reply;
  const char* failure = nullptr;
  {
    keocam::SerialExchange exchange(device, serialPort);
    if (!exchange.write(frame, byteCount + keocam::kFrameOverhead_bytes)) {
      failure = "Error writing message to camera.";
    } else {
      usleep(static_cast<useconds_t>(std::max(waitMicroseconds, 0)));
      if (!exchange.read(reply, kReadTimeout_ms)) failure = "Error reading message from camera.";
    }
  }
  if (failure != nullptr) {
    tell(failure);
    return nullptr;
  }
  if (reply.status() != CAM_OK) {
    tell("Camera response error: " + ResponseToString(reply.status()));
    return nullptr;
  }
  auto* const answer = new unsigned char[reply.bytes.size()];
  std::copy(reply.bytes.begin(), reply.bytes.end(), answer);
  return answer;
}

ResponseStatuses CameraSerialSettings::GetResponse(unsigned char* reply) {
  return reply != nullptr ? keocam::statusOf(reply[keocam::kStatusOffset]) : UNKNOWN_ERROR;
}

std::string CameraSerialSettings::ResponseToString(ResponseStatuses status) { return keocam::textOf(status); }
