// Addresses that the camera's own code uses; the whole map is in RegisterTable.h.
#pragma once

#include <cstdint>

namespace simulator::address {

// Bootstrap registers, fixed by the control protocol.
constexpr uint32_t kDeviceMacHigh = 0x0008;
constexpr uint32_t kDeviceMacLow = 0x000C;
constexpr uint32_t kCurrentIp = 0x0024;
constexpr uint32_t kCurrentSubnetMask = 0x0034;
constexpr uint32_t kModelName = 0x0068;
constexpr uint32_t kSerialNumber = 0x00D8;
constexpr uint32_t kUserName = 0x00E8;
constexpr uint32_t kDiscoveryBytes = 0x00F8;
constexpr uint32_t kFirstUrl = 0x0200;
constexpr uint32_t kHeartbeatTimeout = 0x0938;
constexpr uint32_t kTimestampControl = 0x0944;
constexpr uint32_t kTimestampValue = 0x0948;
constexpr uint32_t kControlPrivilege = 0x0A00;
constexpr uint32_t kControllerPort = 0x0A04;
constexpr uint32_t kControllerIp = 0x0A14;
constexpr uint32_t kStreamPort = 0x0D00;
constexpr uint32_t kStreamPacketSize = 0x0D04;
constexpr uint32_t kStreamPacketDelay = 0x0D08;
constexpr uint32_t kStreamDestination = 0x0D18;
constexpr uint32_t kStreamSourcePort = 0x0D1C;

// The camera's own registers.
constexpr uint32_t kWidth = 0x10000;
constexpr uint32_t kHeight = 0x10004;
constexpr uint32_t kPixelFormat = 0x10008;
constexpr uint32_t kPayloadSize = 0x1000C;
constexpr uint32_t kWidthMax = 0x10010;
constexpr uint32_t kHeightMax = 0x10014;
constexpr uint32_t kSensorWidth = 0x10018;
constexpr uint32_t kSensorHeight = 0x1001C;
constexpr uint32_t kAcquisitionMode = 0x10020;
constexpr uint32_t kAcquisitionStart = 0x10024;
constexpr uint32_t kAcquisitionStop = 0x10028;
constexpr uint32_t kAcquisitionFrameCount = 0x1002C;
constexpr uint32_t kAcquisitionFrameRate = 0x10030;
constexpr uint32_t kTestPattern = 0x10034;
constexpr uint32_t kTransportLocked = 0x10038;
constexpr uint32_t kAcquisitionFrameRateMax = 0x1003C;
constexpr uint32_t kBulkSelector = 0x10100;
constexpr uint32_t kBulkMode = 0x10104;
constexpr uint32_t kBulkBaudRate = 0x10108;
constexpr uint32_t kBulkStopBits = 0x1010C;
constexpr uint32_t kBulkParity = 0x10110;
constexpr uint32_t kBulkLoopback = 0x10114;
constexpr uint32_t kFileSelector = 0x10200;
constexpr uint32_t kFileOpenMode = 0x10204;

// The file access block: one write sets an operation off, one read fetches all of its outcome.
constexpr uint32_t kFileBlock = 0x20000;
constexpr uint32_t kFileSize = kFileBlock + 0x00;
constexpr uint32_t kFileStatus = kFileBlock + 0x04;
constexpr uint32_t kFileResult = kFileBlock + 0x08;
constexpr uint32_t kFileOperation = kFileBlock + 0x0C;
constexpr uint32_t kFileOffset = kFileBlock + 0x10;
constexpr uint32_t kFileLength = kFileBlock + 0x14;
constexpr uint32_t kFileExecute = kFileBlock + 0x18;
constexpr uint32_t kFileBuffer = kFileBlock + 0x1C;
constexpr uint32_t kFileBlockBytes = 512;
constexpr uint32_t kFileBufferBytes = kFileBlock + kFileBlockBytes - kFileBuffer;

constexpr uint32_t kXml = 0x100000;

}  // namespace simulator::address
