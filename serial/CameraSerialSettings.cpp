// The object itself, and messages of any kind.
#include "serial/CameraSerialSettings.h"

#include <algorithm>

#include "serial/Crc16.h"
#include "serial/Frame.h"
#include "serial/ParameterAccess.h"

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
  const std::size_t size = byteCount + keocam::kFrameOverhead_bytes;
  const ResponseStatuses status =
      keocam::exchangeMessage({device, serialPort}, frame, size, waitMicroseconds, reply, keocam::Manner::Interface);
  if (status != CAM_OK) return nullptr;
  auto* const answer = new unsigned char[reply.bytes.size()];
  std::copy(reply.bytes.begin(), reply.bytes.end(), answer);
  return answer;
}

ResponseStatuses CameraSerialSettings::GetResponse(unsigned char* reply) {
  return reply != nullptr ? keocam::statusOf(reply[keocam::kStatusOffset]) : UNKNOWN_ERROR;
}

std::string CameraSerialSettings::ResponseToString(ResponseStatuses status) { return keocam::textOf(status); }
