// A thermal core that answers late, wrong or not at all: what applications are told, and that the next question is
// answered again.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "serial/CoreSettings.h"
#include "tests/e2e/CoreCamera.h"

namespace {

using Fault = simulator::CoreFault;
namespace settings = keocam::settings;

constexpr uint16_t kUntouched = 0xA55A;
constexpr uint16_t kContrast = 77;
constexpr uint32_t kAlways = 1000;  // per thousand

class CoreFaults : public testing::Test {
 protected:
  CoreFaults() {
    core_.SetContrast(kContrast);
    camera_.simulatedCore().clearLog();
  }

  /// The next request meets the fault.
  void strikeOnce(Fault fault, uint32_t value) { camera_.simulatedCore().setFault(fault, value, 1); }

  ResponseStatuses getContrast(uint16_t& value) {
    value = kUntouched;
    return core_.GetParameter(CONTRAST, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
  }

  void expectAnsweredAgain() {
    uint16_t value = 0;
    EXPECT_EQ(getContrast(value), CAM_OK) << "GetParameter after the fault";
    EXPECT_EQ(value, kContrast);
    const auto read = readSetting(core_, settings::contrast);
    EXPECT_EQ(read.status, CAM_OK) << "readSetting after the fault";
    EXPECT_EQ(read.value, kContrast);
  }

  e2e::CoreCamera camera_;
  CameraSerialSettings& core_ = camera_.core();
};

struct FaultCase {
  const char* name;
  Fault fault;
  uint32_t value;
  ResponseStatuses lenient;  ///< what GetParameter says
  uint16_t lenient_value;    ///< what it stores
  ResponseStatuses checked;  ///< what readSetting says
};

class CoreFault : public CoreFaults, public testing::WithParamInterface<FaultCase> {};

TEST_P(CoreFault, OneAnswer_IsToldAndTheNextIsRight) {
  const FaultCase& fault = GetParam();
  strikeOnce(fault.fault, fault.value);
  uint16_t value = 0;
  EXPECT_EQ(getContrast(value), fault.lenient);
  EXPECT_EQ(value, fault.lenient_value);
  expectAnsweredAgain();

  strikeOnce(fault.fault, fault.value);
  EXPECT_EQ(readSetting(core_, settings::contrast).status, fault.checked);
  expectAnsweredAgain();
}

// The lenient member takes a status byte of 0 for an answer, whatever follows it.
INSTANTIATE_TEST_SUITE_P(
    Faults, CoreFault,
    testing::Values(
        FaultCase{"NoAnswer", Fault::NoAnswer, kAlways, UNKNOWN_ERROR, kUntouched, UNKNOWN_ERROR},
        FaultCase{"AllBytesLostToTheCore", Fault::LossIn, kAlways, UNKNOWN_ERROR, kUntouched, UNKNOWN_ERROR},
        FaultCase{"AllBytesLostFromTheCore", Fault::LossOut, kAlways, UNKNOWN_ERROR, kUntouched, UNKNOWN_ERROR},
        FaultCase{"CutInTheCrc", Fault::CutAnswer, 1, CAM_OK, kContrast, CAM_BYTE_COUNT_ERROR},
        FaultCase{"CutInThePayload", Fault::CutAnswer, 3, CAM_OK, 0, CAM_BYTE_COUNT_ERROR},
        FaultCase{"CutBeforeTheStatus", Fault::CutAnswer, 11, UNKNOWN_ERROR, kUntouched, CAM_BYTE_COUNT_ERROR},
        FaultCase{"WrongCrc", Fault::WrongCrc, kAlways, CAM_OK, kContrast, CAM_CHECKSUM_ERROR},
        FaultCase{"StatusOfARangeError", Fault::WrongStatus, 3, CAM_RANGE_ERROR, kUntouched, CAM_RANGE_ERROR},
        FaultCase{"StatusWithoutAName", Fault::WrongStatus, 99, UNKNOWN_ERROR, kUntouched, UNKNOWN_ERROR}),
    [](const auto& fault) { return std::string(fault.param.name); });

TEST_F(CoreFaults, NoiseBeforeAnAnswer_IsNotTakenForOne) {
  strikeOnce(Fault::Noise, 7);
  EXPECT_NE(readSetting(core_, settings::contrast).status, CAM_OK);
  expectAnsweredAgain();
}

TEST_F(CoreFaults, SomeBytesLost_NoWrongValueIsRead) {
  int refused = 0;
  camera_.simulatedCore().setFault(Fault::LossOut, 60);
  for (int i = 0; i < 40; ++i) {
    const auto read = readSetting(core_, settings::contrast);
    if (read.ok()) {
      EXPECT_EQ(read.value, kContrast);
    } else {
      ++refused;
    }
  }
  EXPECT_GT(refused, 0) << "the fault did not strike";
  EXPECT_LT(refused, 40) << "nothing came through";
  camera_.simulatedCore().clearFaults();
  expectAnsweredAgain();
}

TEST_F(CoreFaults, SomeBytesLostToTheCore_NoWrongValueIsReadOrSet) {
  camera_.simulatedCore().setFault(Fault::LossIn, 40);
  for (int i = 0; i < 30; ++i) {
    const auto read = readSetting(core_, settings::contrast);
    EXPECT_TRUE(!read.ok() || read.value == kContrast) << read.value;
  }
  camera_.simulatedCore().clearFaults();
  EXPECT_EQ(camera_.simulatedCore().word(CONTRAST), kContrast);
  // What is left of a cut request at the core is given up after a pause.
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  expectAnsweredAgain();
}

// An answer that comes when its question has been given up is found by the next one.
TEST_F(CoreFaults, LateAnswer_IsNotTakenForTheNextOnes) {
  strikeOnce(Fault::LateAnswer, 300);
  EXPECT_EQ(readSetting(core_, settings::contrast).status, UNKNOWN_ERROR);
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  const auto brightness = readSetting(core_, settings::brightness);
  EXPECT_TRUE(!brightness.ok() || brightness.value == camera_.simulatedCore().word(BRIGHTNESS)) << brightness.value;
  // Whatever became of that one, the late answer has been swept away.
  const auto again = readSetting(core_, settings::brightness);
  EXPECT_EQ(again.status, CAM_OK);
  EXPECT_EQ(again.value, camera_.simulatedCore().word(BRIGHTNESS));
  expectAnsweredAgain();
}

// At the line's own pace the late answer lies there alone for a while after the next request has gone out.
TEST(PacedCoreFaults, LateAnswer_IsNotTakenForThatToAWrite) {
  e2e::CoreCameraOptions options;
  options.pacing = true;
  e2e::CoreCamera camera(options);
  CameraSerialSettings& core = camera.core();
  for (const keocam::Setting<unsigned short>* const asked : {&settings::contrast, &settings::ddeGain}) {
    camera.simulatedCore().setFault(Fault::LateAnswer, 300, 1);
    EXPECT_EQ(readSetting(core, *asked).status, UNKNOWN_ERROR);
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    EXPECT_EQ(writeSetting(core, settings::ddeGain, static_cast<unsigned short>(256)), CAM_RANGE_ERROR)
        << "the core refuses it, after " << asked->name;
  }
}

}  // namespace
