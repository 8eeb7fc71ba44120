// The two members that end the process, and what applications call instead.
#include <csignal>

#include "serial/CoreReadings.h"
#include "serial/CoreSettings.h"
#include "tests/unit/serial/CoreTest.h"

namespace {

using EndingMembersTest = CoreTest;
using testing::AllOf;
using testing::HasSubstr;
using testing::KilledBySignal;
using testing::Not;

/// In the process that is to die: what it does goes to standard error, and the sanitizers' handlers are out of the way,
/// so that the signal itself is seen.
void prepareToDie() {
  scripted::eventLog().echo();
  std::signal(SIGSEGV, SIG_DFL);
  std::signal(SIGABRT, SIG_DFL);
}

TEST_F(EndingMembersTest, SetAGCType_EveryType_EndsTheProcessWithNothingSent) {
  for (unsigned int type = 0; type <= 5; ++type) {
    EXPECT_EXIT(
        {
          prepareToDie();
          core_.SetAGCType(static_cast<AGCTypes>(type));
        },
        KilledBySignal(SIGSEGV), Not(HasSubstr("Pv")))
        << type;
  }
}

TEST_F(EndingMembersTest, SetParameterOfAgcType_ZeroToTen_EndsTheProcessWithNothingSent) {
  for (uint8_t value = 0; value <= 10; ++value) {
    EXPECT_EXIT(
        {
          prepareToDie();
          core_.SetParameter(AGC_TYPE, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
        },
        KilledBySignal(SIGSEGV), Not(HasSubstr("Pv")))
        << int{value};
  }
}

TEST_F(EndingMembersTest, SetParameterOfAgcType_Eleven_DoesNot) {
  EXPECT_EXIT(
      {
        prepareToDie();
        uint8_t value = 11;
        core_.SetParameter(AGC_TYPE, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
        std::_Exit(0);
      },
      testing::ExitedWithCode(0), HasSubstr("PvDeviceSerialPort::Write"));
}

TEST_F(EndingMembersTest, GetSensorSerialNumber_EndsTheProcessAfterItHasRead) {
  replyTo(4, {1, 2, 3, 4, 5, 6, 7, 8});
  EXPECT_EXIT(
      {
        prepareToDie();
        core_.GetSensorSerialNumber();
      },
      KilledBySignal(SIGABRT),
      AllOf(HasSubstr("Write " + scripted::hex(core_frames::frame(4, {}))), HasSubstr("PvDeviceSerialPort::Close"),
            HasSubstr("buffer overflow detected")));
}

TEST_F(EndingMembersTest, GetSensorSerialNumber_NoAnswer_EndsTheProcessToo) {
  EXPECT_EXIT(
      {
        prepareToDie();
        core_.GetSensorSerialNumber();
      },
      KilledBySignal(SIGABRT), HasSubstr("buffer overflow detected"));
}

TEST_F(EndingMembersTest, Instead_WriteSettingWritesTheAgcType) {
  for (uint8_t type = 0; type <= 5; ++type) {
    replyTo(19, {0x00, type});
    EXPECT_EQ(keocam::writeSetting(core_, keocam::settings::agcType, AGCTypes{type}), CAM_OK);
    EXPECT_EQ(takeRequests(), requests({{19, {0x00, type}}}));
  }
}

TEST_F(EndingMembersTest, Instead_ReadSerialNumbersReadsBoth) {
  replyTo(4, {0xDE, 0xAD, 0xBE, 0xEF, 0x01, 0x02, 0x03, 0x04});
  const auto numbers = keocam::readSerialNumbers(core_);
  EXPECT_EQ(numbers.status, CAM_OK);
  EXPECT_EQ(numbers.value.core, 0xDEADBEEFu);
  EXPECT_EQ(numbers.value.sensor, 0x01020304u);
}

}  // namespace
