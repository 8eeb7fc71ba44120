// GetParameter: every code's request and reply, the order of the exchange, and every way it can fail.
#include <algorithm>
#include <map>

#include "tests/unit/serial/CoreTest.h"

namespace {

using GetParameterTest = CoreTest;

constexpr std::size_t kWord = 0;  // bytes of a raw reply, or a word

struct Readable {
  int code;
  std::size_t raw_bytes;
};

// Codes that ask without payload.
const std::vector<Readable> kReadable = {
    {4, 8},      {5, 8},       {10, kWord},  {11, kWord},  {12, kWord},  {13, 4},     {14, 4},
    {15, 2},     {16, kWord},  {17, kWord},  {19, kWord},  {20, kWord},  {21, kWord}, {24, kWord},
    {31, kWord}, {33, kWord},  {34, kWord},  {35, 6},      {37, kWord},  {38, kWord}, {42, kWord},
    {43, kWord}, {44, kWord},  {60, kWord},  {62, kWord},  {63, kWord},  {77, 2},     {85, kWord},
    {102, 32},   {106, kWord}, {114, kWord}, {226, kWord}, {227, kWord},
};

using Log = std::vector<std::string>;

Log withMessage(Log calls, const std::string& message) {
  calls.push_back("err: CameraSerialSettings::GetParameter: " + message + "\\n");
  return calls;
}

TEST_F(GetParameterTest, EveryReadableCode_AsksWithoutPayload_AndStoresTheReply) {
  for (const Readable& row : kReadable) {
    SCOPED_TRACE(row.code);
    const auto code = static_cast<uint8_t>(row.code);
    Bytes payload;
    for (std::size_t i = 0; i < std::max<std::size_t>(row.raw_bytes, 2); ++i) {
      payload.push_back(static_cast<uint8_t>(0xA1 + i));
    }
    replyTo(code, payload);
    Bytes value(40, 0x5A);
    EXPECT_EQ(core_.GetParameter(static_cast<FunctionCodes>(code), value.data(), RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE),
              CAM_OK);
    EXPECT_EQ(takeRequests(), requests({{code, {}}}));
    Bytes expected = row.raw_bytes == kWord ? Bytes{0xA2, 0xA1} : payload;
    expected.resize(value.size(), 0x5A);
    EXPECT_EQ(value, expected) << "words in the host's order, raw bytes as they came, and not a byte more";
  }
}

TEST_F(GetParameterTest, EveryOtherCode_IsRefusedWithNothingSent) {
  std::map<int, ResponseStatuses> refused;
  for (int code = 0; code < 256; ++code) refused[code] = UNKNOWN_ERROR;
  for (const int command : {1, 2, 3}) refused[command] = CAM_NOT_READABLE;
  for (const Readable& row : kReadable) refused.erase(row.code);
  for (const int selected : {18, 32, 142}) refused.erase(selected);
  EXPECT_EQ(refused.count(229), 1u);
  EXPECT_EQ(refused.size(), 256u - 33 - 3);
  for (const auto& [code, status] : refused) {
    uint16_t value = 0x5A5A;
    EXPECT_EQ(core_.GetParameter(static_cast<FunctionCodes>(code), &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE),
              status)
        << code;
    EXPECT_EQ(value, 0x5A5A) << code;
    EXPECT_EQ(takeAll(), Log{}) << code;
  }
}

TEST_F(GetParameterTest, DigitalOutput_AsksWithItsSelector) {
  const std::vector<Bytes> payloads = {{0x02, 0x00}, {0x04, 0x00}, {0x08, 0x00},
                                       {0x09, 0x00}, {0x00, 0x00}, {0x00, 0x00}};
  for (unsigned int output = 0; output < payloads.size(); ++output) {
    replyTo(18, {0x01, 0x02});
    uint16_t value = 0;
    EXPECT_EQ(
        core_.GetParameter(DIGITAL_OUTPUT_MODE, &value, RADIOMETRIC_NONE, static_cast<DigitalOutputModes>(output)),
        CAM_OK);
    EXPECT_EQ(value, 0x0102);
    EXPECT_EQ(takeRequests(), requests({{18, payloads[output]}})) << output;
  }
}

TEST_F(GetParameterTest, Temperature_AsksForTheSensorSelected) {
  const std::vector<Bytes> payloads = {{0x00, 0x00}, {0x00, 0x0A}, {0x00, 0x00}};
  for (unsigned int sensor = 0; sensor < payloads.size(); ++sensor) {
    core_.temperatureSensor = sensor;
    replyTo(32, {0xAB, 0xCD});
    Bytes value(3, 0x5A);
    EXPECT_EQ(core_.GetParameter(TEMPERATURE, value.data(), RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), CAM_OK);
    EXPECT_EQ(value, (Bytes{0xAB, 0xCD, 0x5A}));
    EXPECT_EQ(takeRequests(), requests({{32, payloads[sensor]}})) << sensor;
  }
}

TEST_F(GetParameterTest, Radiometry_AsksForTheSwitchSelected) {
  const std::vector<Bytes> payloads = {{0x00, 0x10}, {0x00, 0x40}, {0x00, 0x00}};
  for (unsigned int selector = 0; selector < payloads.size(); ++selector) {
    core_.radiometrySelector = selector;
    replyTo(142, {0x00, 0x01});
    uint16_t value = 0;
    EXPECT_EQ(core_.GetParameter(RADIOMETRY, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), CAM_OK);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(takeRequests(), requests({{142, payloads[selector]}})) << selector;
  }
}

TEST_F(GetParameterTest, RadiometricParameter_AsksWithItsSubCode) {
  const std::vector<Bytes> payloads = {{0x01, 0x00}, {0x01, 0x01}, {0x01, 0x02},
                                       {0x01, 0x07}, {0x01, 0x05}, {0x00, 0x00}};
  for (unsigned int i = 0; i < payloads.size(); ++i) {
    replyTo(229, {0x12, 0x34});
    uint16_t value = 0;
    EXPECT_EQ(core_.GetParameter(RADIOMETRIC_PARAMETER, &value, static_cast<RadiometricParameters>(i + 1),
                                 DIGITAL_OUTPUT_NONE),
              CAM_OK);
    EXPECT_EQ(value, 0x1234);
    EXPECT_EQ(takeRequests(), requests({{229, payloads[i]}})) << i + 1;
  }
}

const Log kOpened = {"PvDeviceAdapter::PvDeviceAdapter Cam A", "PvDeviceSerialPort::Open 2 of Cam A"};
const Log kDestroyed = {"PvDeviceSerialPort::~PvDeviceSerialPort", "PvDeviceAdapter::~PvDeviceAdapter"};

Log operator+(Log left, const Log& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

const Log kAsked =
    kOpened + Log{"PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(20, {})), "usleep 1000 us"};
const Log kRead = kAsked +
                  Log{"usleep 10000 us", "PvDeviceSerialPort::GetRxBytesReady", "PvDeviceSerialPort::Read 1024 100",
                      "PvDeviceSerialPort::Close"} +
                  kDestroyed;

TEST_F(GetParameterTest, Answered_OrderOfTheExchange) {
  replyTo(20, {0x00, 0x80});
  uint16_t value = 0;
  EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), CAM_OK);
  EXPECT_EQ(takeAll(), kRead);
}

TEST_F(GetParameterTest, OpenFails_NothingIsClosed) {
  scripted::network().serial.opens = false;
  uint16_t value = 0x5A5A;
  EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), UNKNOWN_ERROR);
  EXPECT_EQ(value, 0x5A5A);
  EXPECT_EQ(takeAll(), withMessage(kOpened + kDestroyed, "Error opening serial communication"));
}

TEST_F(GetParameterTest, WriteFails_SaysSoBeforeClosing) {
  scripted::network().serial.takes_writes = false;
  uint16_t value = 0x5A5A;
  EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), UNKNOWN_ERROR);
  EXPECT_EQ(value, 0x5A5A);
  EXPECT_EQ(takeAll(),
            withMessage(kAsked, "Error sending message to camera") + Log{"PvDeviceSerialPort::Close"} + kDestroyed);
}

TEST_F(GetParameterTest, NoAnswer_SaysSoAfterClosing) {
  uint16_t value = 0x5A5A;
  EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), UNKNOWN_ERROR);
  EXPECT_EQ(value, 0x5A5A);
  EXPECT_EQ(takeAll(), withMessage(kRead, "Error reading message from camera."));
}

TEST_F(GetParameterTest, CoreRefuses_EveryStatus) {
  for (unsigned int byte = 1; byte < 256; ++byte) {
    replyTo(20, {0x00, 0x80}, static_cast<uint8_t>(byte));
    unsigned char status_bytes[] = {0x6E, static_cast<unsigned char>(byte)};
    const ResponseStatuses status = core_.GetResponse(status_bytes);
    uint16_t value = 0x5A5A;
    EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), status) << byte;
    EXPECT_EQ(value, 0x5A5A) << byte;
    EXPECT_EQ(takeAll(), withMessage(kRead, "Camera response error: " + core_.ResponseToString(status))) << byte;
  }
}

TEST_F(GetParameterTest, ShortReply_IsFilledUpWithZeros) {
  reply({0x6E, 0x00, 0x00, 20, 0x00, 0x02, 0x00, 0x00, 0x77});
  uint16_t value = 0x5A5A;
  EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), CAM_OK);
  EXPECT_EQ(value, 0x7700);
}

TEST_F(GetParameterTest, ReplyWithoutStatusByte_IsUnknown) {
  for (const Bytes& bytes : {Bytes{}, Bytes{0x6E}}) {
    reply(bytes);
    uint16_t value = 0x5A5A;
    EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), UNKNOWN_ERROR);
    EXPECT_EQ(value, 0x5A5A);
  }
}

TEST_F(GetParameterTest, WrongChecksum_IsAccepted) {
  Bytes bytes = core_frames::frame(20, {0x00, 0x80});
  bytes[6] = static_cast<uint8_t>(~bytes[6]);
  bytes.back() = static_cast<uint8_t>(~bytes.back());
  reply(bytes);
  uint16_t value = 0;
  EXPECT_EQ(core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), CAM_OK);
  EXPECT_EQ(value, 0x80);
}

TEST_F(GetParameterTest, NullValue_DropsTheReply) {
  replyTo(20, {0x00, 0x80});
  EXPECT_EQ(core_.GetParameter(CONTRAST, nullptr, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), CAM_OK);
}

}  // namespace
