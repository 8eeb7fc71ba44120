// Frames, checksum, status bytes, and the object's own state.
#include "serial/Frame.h"

#include <cstring>
#include <type_traits>

#include "serial/Crc16.h"
#include "tests/unit/serial/CoreTest.h"

namespace {

using FrameTest = CoreTest;

std::vector<uint8_t> owned(unsigned char* array, std::size_t size) {
  const std::unique_ptr<unsigned char[]> owner(array);
  return {array, array + size};
}

TEST_F(FrameTest, CrcTable_FirstEntries) {
  EXPECT_EQ(crc16tab.size(), 256u);
  EXPECT_EQ(crc16tab[0], 0x0000);
  EXPECT_EQ(crc16tab[1], 0x1021);
  EXPECT_EQ(crc16tab[2], 0x2042);
  EXPECT_EQ(crc16tab[255], 0x1EF0);
}

TEST_F(FrameTest, Crc_OfCheckString_IsTheParameterSetsCheckValue) {
  char digits[] = "123456789";
  EXPECT_EQ(keocam::crc16(reinterpret_cast<uint8_t*>(digits), 9), 0x31C3);
  EXPECT_EQ(core_.CalculateCRC(digits, 9), 0xC331);
}

TEST_F(FrameTest, CalculateCRC_LengthZeroOrLess_IsZero) {
  char byte[] = "x";
  EXPECT_EQ(core_.CalculateCRC(byte, 0), 0);
  EXPECT_EQ(core_.CalculateCRC(byte, -1), 0);
  EXPECT_EQ(core_.CalculateCRC(nullptr, 0), 0);
}

TEST_F(FrameTest, PrepareMessage_NoPayload_IsTenBytes) {
  const std::vector<uint8_t> frame = owned(core_.prepareMessage(0xFC, 0, nullptr), 10);
  EXPECT_EQ(scripted::hex(core_frames::frame(0xFC, {})), scripted::hex(frame));
}

TEST_F(FrameTest, PrepareMessage_Payload_LiesBetweenTheChecksums) {
  unsigned char payload[] = {0x75, 0x30};
  const std::vector<uint8_t> frame = owned(core_.prepareMessage(13, 2, payload), 12);
  EXPECT_EQ(scripted::hex(frame), scripted::hex(core_frames::frame(13, {0x75, 0x30})));
}

TEST_F(FrameTest, PrepareMessage_LongPayload_HasItsLengthInTwoBytes) {
  std::vector<unsigned char> payload(0x1234, 0xA5);
  const std::vector<uint8_t> frame = owned(core_.prepareMessage(200, 0x1234, payload.data()), 0x1234 + 10);
  EXPECT_EQ(frame, core_frames::frame(200, payload));
  EXPECT_EQ(frame[4], 0x12);
  EXPECT_EQ(frame[5], 0x34);
}

TEST_F(FrameTest, PrepareMessage_NullPayload_IsZeros) {
  const std::vector<uint8_t> frame = owned(core_.prepareMessage(7, 3, nullptr), 13);
  EXPECT_EQ(frame, core_frames::frame(7, {0, 0, 0}));
}

TEST_F(FrameTest, GetResponse_EveryStatusByte) {
  const std::vector<unsigned int> named = {0, 10, 10, 1, 2, 3, 4, 5, 10, 6, 7};
  for (unsigned int byte = 0; byte < 256; ++byte) {
    unsigned char reply[2] = {0x6E, static_cast<unsigned char>(byte)};
    EXPECT_EQ(core_.GetResponse(reply), byte < named.size() ? named[byte] : 10u) << byte;
  }
}

TEST_F(FrameTest, GetResponse_Null_IsUnknown) { EXPECT_EQ(core_.GetResponse(nullptr), UNKNOWN_ERROR); }

TEST_F(FrameTest, ResponseToString_NamesAndRest) {
  const std::vector<std::string> names = {"CAM_OK",
                                          "CAM_RANGE_ERROR",
                                          "CAM_CHECKSUM_ERROR",
                                          "CAM_UNDEFINED_PROCESS_ERROR",
                                          "CAM_UNDEFINED_FUNCTION_ERROR",
                                          "CAM_TIMEOUT_ERROR",
                                          "CAM_BYTE_COUNT_ERROR",
                                          "CAM_FEATURE_NOT_ENABLED"};
  for (unsigned int status = 0; status < 300; ++status) {
    EXPECT_EQ(core_.ResponseToString(static_cast<ResponseStatuses>(status)),
              status < names.size() ? names[status] : "UNKNOWN_ERROR")
        << status;
  }
}

TEST_F(FrameTest, VerifyReply_WholeReply_IsOk) {
  keocam::ReplyBuffer reply;
  const Bytes bytes = core_frames::frame(20, {0x00, 0x10});
  std::memcpy(reply.bytes.data(), bytes.data(), bytes.size());
  reply.size = static_cast<uint32_t>(bytes.size());
  EXPECT_EQ(keocam::verifyReply(reply, 20, 2), CAM_OK);
  EXPECT_EQ(keocam::verifyReply(reply, 20, 0), CAM_OK);
  EXPECT_EQ(keocam::verifyReply(reply, 20, 3), CAM_BYTE_COUNT_ERROR);
  EXPECT_EQ(keocam::verifyReply(reply, 21, 2), UNKNOWN_ERROR);
}

TEST_F(FrameTest, VerifyReply_AnyBitFlippedOrByteMissing_IsNoticed) {
  const Bytes bytes = core_frames::frame(20, {0x00, 0x10});
  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    keocam::ReplyBuffer reply;
    std::memcpy(reply.bytes.data(), bytes.data(), bytes.size());
    reply.bytes[bit / 8] = static_cast<uint8_t>(reply.bytes[bit / 8] ^ 1U << bit % 8);
    reply.size = static_cast<uint32_t>(bytes.size());
    EXPECT_NE(keocam::verifyReply(reply, 20, 2), CAM_OK) << "bit " << bit;
  }
  for (uint32_t size = 0; size < bytes.size(); ++size) {
    keocam::ReplyBuffer reply;
    std::memcpy(reply.bytes.data(), bytes.data(), size);
    reply.size = size;
    EXPECT_EQ(keocam::verifyReply(reply, 20, 2), CAM_BYTE_COUNT_ERROR) << size << " bytes";
  }
}

TEST_F(FrameTest, VerifyReply_LengthsBeyondTheBuffer_AreRefused) {
  keocam::ReplyBuffer reply;
  const Bytes longest = core_frames::frame(20, Bytes(1014));
  ASSERT_EQ(longest.size(), reply.bytes.size());
  std::memcpy(reply.bytes.data(), longest.data(), longest.size());
  reply.size = 1024;
  EXPECT_EQ(keocam::verifyReply(reply, 20, 2), CAM_OK);
  reply.size = 1025;
  EXPECT_EQ(keocam::verifyReply(reply, 20, 2), CAM_BYTE_COUNT_ERROR);

  const Bytes too_long = core_frames::frame(20, Bytes(0xFFFF));  // its header is sound
  std::memcpy(reply.bytes.data(), too_long.data(), reply.bytes.size());
  reply.size = 1024;
  EXPECT_EQ(keocam::verifyReply(reply, 20, 2), CAM_BYTE_COUNT_ERROR);
}

TEST_F(FrameTest, NewObject_HasTheDefaults_AndSendsNothing) {
  EXPECT_EQ(core_.device, device_.get());
  EXPECT_EQ(core_.serialPort, kPort);
  EXPECT_FALSE(core_.isRadiometric);
  EXPECT_FALSE(core_.radiometryMode);
  EXPECT_FALSE(core_.radiometryHighResolutionMode);
  EXPECT_EQ(core_.cameraPartNumber, "");
  EXPECT_EQ(core_.partNumber, "");
  EXPECT_FALSE(core_.isSupported);
  EXPECT_EQ(core_.temperatureSensor, 0u);
  EXPECT_EQ(core_.radiometrySelector, 1u);
  EXPECT_FALSE(core_.debugMessages);
  EXPECT_TRUE(core_.setLensReady);
  EXPECT_EQ(core_.rangeMode, CameraSerialSettings::LowRange);
  EXPECT_TRUE(std::has_virtual_destructor_v<CameraSerialSettings>);
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(FrameTest, SetPvDevice_LeavesTheDevice) {
  core_.SetPvDevice(nullptr);
  EXPECT_EQ(core_.GetPvDevice(), device_.get());
}

TEST_F(FrameTest, SetPvDeviceSerial_NextExchangeUsesIt) {
  core_.SetPvDeviceSerial(PvDeviceSerial1);
  EXPECT_EQ(core_.GetPvDeviceSerial(), PvDeviceSerial1);
  core_.DoNothing();
  EXPECT_EQ(take({"PvDeviceSerialPort::Open"}), Log{"PvDeviceSerialPort::Open 1 of Cam A"});
}

TEST_F(FrameTest, SetDebugMessages_IsKept) {
  core_.SetDebugMessages(true);
  EXPECT_TRUE(core_.GetDebugMessages());
  core_.SetDebugMessages(false);
  EXPECT_FALSE(core_.GetDebugMessages());
}

}  // namespace
