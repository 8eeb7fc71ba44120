// SetParameter: every code's payload and bound, the order of the exchange, and every way it can fail.
#include <map>
#include <set>

#include "tests/unit/serial/CoreTest.h"

namespace {

class SetParameterTest : public CoreTest {
 protected:
  ResponseStatuses set(int code, const Bytes& value, RadiometricParameters radiometric = RADIOMETRIC_NONE,
                       DigitalOutputModes output = DIGITAL_OUTPUT_NONE) {
    // On the heap and no longer than it must be, so that a byte too many is seen by the address sanitizer.
    std::vector<uint8_t> caller = value;
    return core_.SetParameter(static_cast<FunctionCodes>(code), caller.data(), radiometric, output);
  }
  ResponseStatuses setWord(int code, unsigned int value, RadiometricParameters radiometric = RADIOMETRIC_NONE) {
    return set(code, {static_cast<uint8_t>(value & 0xFF), static_cast<uint8_t>(value >> 8)}, radiometric);
  }

  void expectRefused(int code, unsigned int value, ResponseStatuses status) {
    EXPECT_EQ(status, CAM_RANGE_ERROR) << "code " << code << " value " << value;
    EXPECT_EQ(takeAll(), Log{}) << "code " << code << " value " << value;
  }
};

struct Bounded {
  int code;
  unsigned int highest;
  std::set<unsigned int> gaps;
};

const std::vector<Bounded> kBytes = {
    {10, 3, {}}, {11, 2, {}}, {16, 29, {}}, {17, 3, {}},     {31, 2, {}},  {33, 2, {}},
    {34, 1, {}}, {38, 1, {}}, {43, 3, {}},  {37, 8, {2, 7}}, {114, 5, {}},
};
const std::vector<Bounded> kWords = {
    {13, 30000, {}}, {14, 10, {}},   {20, 255, {}}, {21, 16383, {}}, {24, 65535, {}}, {44, 65535, {}},  {60, 600, {}},
    {62, 255, {}},   {63, 4095, {}}, {85, 255, {}}, {106, 255, {}},  {226, 255, {}},  {227, 65535, {}},
};
const std::vector<int> kCommands = {0, 1, 2, 3, 12};

TEST_F(SetParameterTest, EveryByteCode_EveryValue) {
  for (const Bounded& row : kBytes) {
    for (unsigned int value = 0; value < 256; ++value) {
      const auto byte = static_cast<uint8_t>(value);
      if (value > row.highest || row.gaps.count(value) > 0) {
        expectRefused(row.code, value, set(row.code, {byte}));
        continue;
      }
      const auto code = static_cast<uint8_t>(row.code);
      replyTo(code, {0x00, byte});
      EXPECT_EQ(set(row.code, {byte}), CAM_OK);
      EXPECT_EQ(takeRequests(), requests({{code, {0x00, byte}}}));
    }
  }
}

TEST_F(SetParameterTest, EveryWordCode_AroundItsBound) {
  for (const Bounded& row : kWords) {
    for (const unsigned int value : {0U, 1U, 0x0102U, row.highest - 1, row.highest, row.highest + 1, 0xFFFFU}) {
      if (value > 0xFFFF) continue;
      if (value > row.highest) {
        expectRefused(row.code, value, setWord(row.code, value));
        continue;
      }
      const auto code = static_cast<uint8_t>(row.code);
      const Bytes payload = {static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value & 0xFF)};
      replyTo(code, payload);
      EXPECT_EQ(setWord(row.code, value), CAM_OK);
      EXPECT_EQ(takeRequests(), requests({{code, payload}}));
    }
  }
}

TEST_F(SetParameterTest, Commands_HaveNoPayload) {
  for (const int command : kCommands) {
    const auto code = static_cast<uint8_t>(command);
    replyTo(code, {});
    EXPECT_EQ(core_.SetParameter(static_cast<FunctionCodes>(code), nullptr, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE),
              CAM_OK);
    EXPECT_EQ(takeRequests(), requests({{code, {}}}));
    replyTo(code, {});
    EXPECT_EQ(set(code, {0xFF}), CAM_OK) << "a value is not looked at";
    EXPECT_EQ(takeRequests(), requests({{code, {}}}));
  }
}

TEST_F(SetParameterTest, AnalogVideo_SendsTheCallersTwoBytes) {
  for (const Bytes& value : {Bytes{0x00, 0x02}, Bytes{0xFF, 0x7F}}) {
    replyTo(15, value);
    EXPECT_EQ(set(15, value), CAM_OK);
    EXPECT_EQ(takeRequests(), requests({{15, value}}));
  }
}

TEST_F(SetParameterTest, Isotherms_SendTheCallersSixBytes) {
  const Bytes value = {0x80, 0x01, 0x02, 0x03, 0xFE, 0xFF};
  replyTo(35, value);
  EXPECT_EQ(set(35, value), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{35, value}}));
}

TEST_F(SetParameterTest, DigitalOutput_SelectorThenTheCallersByte) {
  const Bytes selectors = {0x03, 0x05, 0x06, 0x07};
  for (unsigned int output = 0; output < 4; ++output) {
    for (const uint8_t value : Bytes{0x00, 0x02, 0xFF}) {
      replyTo(18, {0x00, 0x00});
      EXPECT_EQ(set(18, {value}, RADIOMETRIC_NONE, static_cast<DigitalOutputModes>(output)), CAM_OK);
      EXPECT_EQ(takeRequests(), requests({{18, {selectors[output], value}}}));
    }
  }
  for (const unsigned int output : {4U, 5U, 0xFFFFFFFFU}) {
    expectRefused(18, output, set(18, {0}, RADIOMETRIC_NONE, static_cast<DigitalOutputModes>(output)));
  }
}

TEST_F(SetParameterTest, Radiometry_SelectorThenTheCallersByte) {
  const std::vector<Bytes> prefixes = {{0x00, 0x10, 0x00}, {0x00, 0x40, 0x00}};
  for (unsigned int selector = 0; selector < 2; ++selector) {
    core_.radiometrySelector = selector;
    for (const uint8_t value : Bytes{0, 1}) {
      Bytes payload = prefixes[selector];
      payload.push_back(value);
      replyTo(142, payload);
      EXPECT_EQ(set(142, {value}), CAM_OK);
      EXPECT_EQ(takeRequests(), requests({{142, payload}}));
    }
    expectRefused(142, 2, set(142, {2}));
    expectRefused(142, 255, set(142, {255}));
  }
}

TEST_F(SetParameterTest, Radiometry_SelectorOutOfRange_SendsZeros) {
  core_.radiometrySelector = 2;
  replyTo(142, {});
  EXPECT_EQ(set(142, {1}), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{142, {0, 0, 0, 0}}}));
}

TEST_F(SetParameterTest, RadiometricParameter_SubCodeThenTheWord) {
  const Bytes sub_codes = {0x00, 0x01, 0x02, 0x07, 0x05};
  for (unsigned int i = 0; i < sub_codes.size(); ++i) {
    replyTo(229, {});
    EXPECT_EQ(setWord(229, 0x1234, static_cast<RadiometricParameters>(i + 1)), CAM_OK);
    EXPECT_EQ(takeRequests(), requests({{229, {0x01, sub_codes[i], 0x12, 0x34}}}));
  }
  for (const unsigned int parameter : {0U, 6U, 0xFFFFFFFFU}) {
    expectRefused(229, parameter, setWord(229, 1, static_cast<RadiometricParameters>(parameter)));
  }
}

TEST_F(SetParameterTest, AgcType_AboveTen_IsSent) {
  for (const uint8_t value : Bytes{11, 200, 255}) {
    replyTo(19, {0x00, value});
    EXPECT_EQ(set(19, {value}), CAM_OK);
    EXPECT_EQ(takeRequests(), requests({{19, {0x00, value}}}));
  }
}

TEST_F(SetParameterTest, EveryOtherCode_IsRefusedWithNothingSent) {
  std::map<int, ResponseStatuses> refused;
  for (int code = 0; code < 256; ++code) refused[code] = CAM_UNDEFINED_FUNCTION_ERROR;
  for (const int read_only : {4, 5, 102}) refused[read_only] = CAM_NOT_WRITABLE;
  for (const Bounded& row : kBytes) refused.erase(row.code);
  for (const Bounded& row : kWords) refused.erase(row.code);
  for (const int code : kCommands) refused.erase(code);
  for (const int code : {15, 18, 19, 35, 142, 229}) refused.erase(code);
  EXPECT_EQ(refused.size(), 256u - 11 - 13 - 5 - 6);
  for (const auto& [code, status] : refused) {
    EXPECT_EQ(set(code, Bytes(6)), status) << code;
    EXPECT_EQ(takeAll(), Log{}) << code;
  }
}

TEST_F(SetParameterTest, NullValue_WhereThereMustBeOne_IsRefused) {
  for (const FunctionCodes code : {FFC_MODE, FFC_PERIOD, ANALOG_VIDEO, ISOTHERM_THRESHOLDS, AGC_TYPE,
                                   DIGITAL_OUTPUT_MODE, RADIOMETRY, RADIOMETRIC_PARAMETER}) {
    expectRefused(code, 0, core_.SetParameter(code, nullptr, RADIOMETRIC_EMISSIVITY, XP_BUS_MODE));
  }
}

const std::vector<std::string> kConversation = {
    "PvDeviceAdapter::PvDeviceAdapter Cam A",
    "PvDeviceSerialPort::Open 2 of Cam A",
    "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(20, {0x00, 0x07})),
    "PvDeviceSerialPort::GetRxBytesReady",
    "PvDeviceSerialPort::Read 1024 500",
    "PvDeviceSerialPort::Close",
    "PvDeviceSerialPort::~PvDeviceSerialPort",
    "PvDeviceAdapter::~PvDeviceAdapter",
};

TEST_F(SetParameterTest, Answered_OrderOfTheExchange) {
  replyTo(20, {0x00, 0x07});
  EXPECT_EQ(setWord(20, 7), CAM_OK);
  EXPECT_EQ(takeAll(), kConversation);
}

TEST_F(SetParameterTest, NoAnswer_SaysSoAfterClosing) {
  EXPECT_EQ(setWord(20, 7), UNKNOWN_ERROR);
  Log expected = kConversation;
  expected.emplace_back("err: CameraSerialSettings::SetParameter: Error reading message from camera.\\n");
  EXPECT_EQ(takeAll(), expected);
}

TEST_F(SetParameterTest, OpenFails_ByItself_IsNotLookedAt) {
  scripted::network().serial.opens = false;
  replyTo(20, {0x00, 0x07});
  EXPECT_EQ(setWord(20, 7), CAM_OK);
  EXPECT_EQ(takeAll(), kConversation);
}

TEST_F(SetParameterTest, WriteOrOpenFails_SaysSoAfterClosing) {
  for (const bool opens : {true, false}) {
    scripted::network().serial.opens = opens;
    scripted::network().serial.takes_writes = false;
    EXPECT_EQ(setWord(20, 7), UNKNOWN_ERROR);
    Log expected = kConversation;
    expected.erase(expected.begin() + 3, expected.begin() + 5);
    expected.emplace_back("err: CameraSerialSettings::SetParameter: Error writing message to camera.\\n");
    EXPECT_EQ(takeAll(), expected);
  }
}

TEST_F(SetParameterTest, CoreRefuses_EveryStatus) {
  for (unsigned int byte = 1; byte < 256; ++byte) {
    replyTo(20, {}, static_cast<uint8_t>(byte));
    unsigned char status_bytes[] = {0x6E, static_cast<unsigned char>(byte)};
    const ResponseStatuses status = core_.GetResponse(status_bytes);
    EXPECT_EQ(setWord(20, 7), status) << byte;
    Log expected = kConversation;
    expected.push_back(
        "err: CameraSerialSettings::SetParameter: Camera response error: " + core_.ResponseToString(status) + "\\n");
    EXPECT_EQ(takeAll(), expected) << byte;
  }
}

TEST_F(SetParameterTest, ReplyToSomethingElse_IsAccepted) {
  replyTo(21, {});
  EXPECT_EQ(setWord(20, 7), CAM_OK);
}

}  // namespace
