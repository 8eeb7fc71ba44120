// sendMessage: the order of one exchange, and every way it can fail.
#include "tests/unit/serial/CoreTest.h"

namespace {

class SendMessageTest : public CoreTest {
 protected:
  /// Sends function 0xFC without payload.
  std::unique_ptr<unsigned char[]> send(int wait_us) {
    const std::unique_ptr<unsigned char[]> frame(core_.prepareMessage(0xFC, 0, nullptr));
    return std::unique_ptr<unsigned char[]>(core_.sendMessage(frame.get(), 0, wait_us));
  }

  const std::string kWrite = "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(0xFC, {}));
};

TEST_F(SendMessageTest, Answered_OrderOfTheExchange) {
  replyTo(0xFC, {0x12, 0x34});
  const auto answer = send(250'000);
  ASSERT_NE(answer, nullptr);
  const Log expected = {
      "PvDeviceAdapter::PvDeviceAdapter Cam A",
      "PvDeviceSerialPort::Open 2 of Cam A",
      kWrite,
      "usleep 250000 us",
      "PvDeviceSerialPort::GetRxBytesReady",
      "PvDeviceSerialPort::Read 1024 500",
      "PvDeviceSerialPort::Close",
      "PvDeviceSerialPort::~PvDeviceSerialPort",
      "PvDeviceAdapter::~PvDeviceAdapter",
  };
  EXPECT_EQ(takeAll(), expected);
}

// A checksum over bytes that end in their own checksum is zero.
TEST_F(SendMessageTest, EmptyRequest_IsTheseTenBytes) {
  send(0);
  EXPECT_EQ(takeRequests(), Log{"6e 00 00 fc 00 00 49 88 00 00"});
}

TEST_F(SendMessageTest, Answered_BufferHoldsTheReplyAndThenZeros) {
  const Bytes bytes = core_frames::frame(0xFC, {0x12, 0x34});
  reply(bytes);
  const auto answer = send(0);
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(Bytes(answer.get(), answer.get() + bytes.size()), bytes);
  EXPECT_EQ(Bytes(answer.get() + bytes.size(), answer.get() + 1024), Bytes(1024 - bytes.size()));
}

TEST_F(SendMessageTest, WriteFails_SaysSoAfterClosing) {
  scripted::network().serial.takes_writes = false;
  EXPECT_EQ(send(1000), nullptr);
  const Log expected = {
      "PvDeviceAdapter::PvDeviceAdapter Cam A",
      "PvDeviceSerialPort::Open 2 of Cam A",
      kWrite,
      "PvDeviceSerialPort::Close",
      "PvDeviceSerialPort::~PvDeviceSerialPort",
      "PvDeviceAdapter::~PvDeviceAdapter",
      "err: CameraSerialSettings::sendMessage: Error writing message to camera.\\n",
  };
  EXPECT_EQ(takeAll(), expected);
}

TEST_F(SendMessageTest, OpenFails_IsOnlyNoticedByTheWrite) {
  scripted::network().serial.opens = false;
  scripted::network().serial.takes_writes = false;
  EXPECT_EQ(send(1000), nullptr);
  const Log expected = {
      "PvDeviceAdapter::PvDeviceAdapter Cam A",
      "PvDeviceSerialPort::Open 2 of Cam A",
      kWrite,
      "PvDeviceSerialPort::Close",
      "PvDeviceSerialPort::~PvDeviceSerialPort",
      "PvDeviceAdapter::~PvDeviceAdapter",
      "err: CameraSerialSettings::sendMessage: Error writing message to camera.\\n",
  };
  EXPECT_EQ(takeAll(), expected);
}

TEST_F(SendMessageTest, OpenFails_ByItself_IsNotLookedAt) {
  scripted::network().serial.opens = false;
  replyTo(0xFC, {});
  EXPECT_NE(send(0), nullptr);
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(SendMessageTest, NoAnswer_SaysSoAfterClosing) {
  EXPECT_EQ(send(1000), nullptr);
  const Log expected = {
      "PvDeviceAdapter::PvDeviceAdapter Cam A",
      "PvDeviceSerialPort::Open 2 of Cam A",
      kWrite,
      "usleep 1000 us",
      "PvDeviceSerialPort::GetRxBytesReady",
      "PvDeviceSerialPort::Read 1024 500",
      "PvDeviceSerialPort::Close",
      "PvDeviceSerialPort::~PvDeviceSerialPort",
      "PvDeviceAdapter::~PvDeviceAdapter",
      "err: CameraSerialSettings::sendMessage: Error reading message from camera.\\n",
  };
  EXPECT_EQ(takeAll(), expected);
}

TEST_F(SendMessageTest, CoreRefuses_NamesTheStatus) {
  replyTo(0xFC, {}, 0x09);
  EXPECT_EQ(send(0), nullptr);
  EXPECT_EQ(takePrinted(),
            Log{"err: CameraSerialSettings::sendMessage: Camera response error: CAM_BYTE_COUNT_ERROR\\n"});
}

TEST_F(SendMessageTest, StatusWithoutName_IsUnknown) {
  for (const uint8_t status : Bytes{0x01, 0x02, 0x08, 0x0B, 0xFF}) {
    replyTo(0xFC, {}, status);
    EXPECT_EQ(send(0), nullptr) << int{status};
    EXPECT_EQ(takePrinted(), Log{"err: CameraSerialSettings::sendMessage: Camera response error: UNKNOWN_ERROR\\n"});
  }
}

TEST_F(SendMessageTest, WrongChecksumsCodeAndLength_AreNotLookedAt) {
  for (const std::size_t spoiled : {0U, 3U, 5U, 6U, 9U}) {
    Bytes bytes = core_frames::frame(0xFC, {});
    bytes[spoiled] = static_cast<uint8_t>(~bytes[spoiled]);
    reply(bytes);
    EXPECT_NE(send(0), nullptr) << spoiled;
  }
  reply({0x6E, 0x00});
  EXPECT_NE(send(0), nullptr);
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(SendMessageTest, ReplyWithoutStatusByte_IsNoSuccess) {
  for (const Bytes& bytes : {Bytes{}, Bytes{0x6E}}) {
    reply(bytes);
    EXPECT_EQ(send(0), nullptr);
    EXPECT_EQ(takePrinted(), Log{"err: CameraSerialSettings::sendMessage: Camera response error: UNKNOWN_ERROR\\n"});
  }
}

TEST_F(SendMessageTest, ReplyAsLongAsTheBuffer_IsKeptWhole) {
  Bytes bytes(1500, 0xEE);
  bytes[1] = 0x00;
  reply(bytes);
  const auto answer = send(0);
  ASSERT_NE(answer, nullptr);
  bytes.resize(1024);
  EXPECT_EQ(Bytes(answer.get(), answer.get() + 1024), bytes);
}

TEST_F(SendMessageTest, NegativeWait_IsNone) {
  send(-1);
  EXPECT_EQ(take({"usleep"}), Log{"usleep 0 us"});
}

}  // namespace
