// What the thermal core tells of itself, and what commands do to it and to the picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>
#include <vector>

#include "serial/CoreReadings.h"
#include "serial/CoreSettings.h"
#include "serial/CoreTemperature.h"
#include "serial/ParameterTable.h"
#include "tests/e2e/CoreCamera.h"

namespace {

using keocam::ParameterRow;
using Clock = std::chrono::steady_clock;

class CoreCommands : public testing::Test {
 protected:
  // The core of camera_ as the library talks to it, and as it is.
  e2e::CoreCamera camera_;
  CameraSerialSettings& core_ = camera_.core();
  simulator::ThermalCore& simulated_ = camera_.simulatedCore();
};

TEST_F(CoreCommands, Temperatures_AreTheCores) {
  EXPECT_EQ(core_.GetSensorTemperature(), 25.0);
  EXPECT_EQ(coreTemperature, 25.0);
  EXPECT_EQ(core_.GetHousingTemperature(), 24.0);
  EXPECT_EQ(core_.GetShutterTemperature(), 24.5);
  EXPECT_EQ(keocam::readSensorTemperatureC(core_).value, 25.0);
  EXPECT_EQ(keocam::readHousingTemperatureC(core_).value, 24.0);
  EXPECT_EQ(keocam::readShutterTemperatureC(core_).value, 24.5);
}

TEST_F(CoreCommands, Identity_IsTheCores) {
  const simulator::CoreIdentity identity;
  EXPECT_EQ(core_.GetCameraSerialNumber(), identity.core_serial);
  const auto numbers = keocam::readSerialNumbers(core_);
  EXPECT_EQ(numbers.value.core, identity.core_serial);
  EXPECT_EQ(numbers.value.sensor, identity.sensor_serial);

  const auto versions = keocam::readVersions(core_).value;
  EXPECT_EQ(versions.software.major, identity.versions.software_major);
  EXPECT_EQ(versions.software.minor, identity.versions.software_minor);
  EXPECT_EQ(versions.firmware.major, identity.versions.firmware_major);
  EXPECT_EQ(versions.firmware.minor, identity.versions.firmware_minor);
  // The members' bytes are exchanged.
  EXPECT_EQ(core_.GetSWMajorVersion(), identity.versions.software_major * 256);
  EXPECT_EQ(core_.GetSWMinorVersion(), identity.versions.software_minor * 256);
  EXPECT_EQ(core_.GetFWMajorVersion(), identity.versions.firmware_major * 256);
  EXPECT_EQ(core_.GetFWMinorVersion(), identity.versions.firmware_minor * 256);

  const auto part_number = keocam::readPartNumber(core_);
  EXPECT_EQ(part_number.value, "46160007H-FRNLX" + std::string(17, '^'));
}

TEST_F(CoreCommands, EveryReadableCode_IsAnswered) {
  for (const ParameterRow& row : keocam::parameterRows()) {
    if (row.reading.access != keocam::ReadAccess::Readable) continue;
    std::vector<uint8_t> value(row.reading.reply_bytes);
    const auto radiometric = row.code == RADIOMETRIC_PARAMETER ? RADIOMETRIC_EMISSIVITY : RADIOMETRIC_NONE;
    const auto output = row.code == DIGITAL_OUTPUT_MODE ? LVDS_MODE : DIGITAL_OUTPUT_NONE;
    EXPECT_EQ(core_.GetParameter(row.code, value.data(), radiometric, output), CAM_OK) << "code " << int{row.code};
  }
  EXPECT_TRUE(camera_.coreGotSoundFramesOnly(30));
}

TEST_F(CoreCommands, Radiometry_IsWrittenAndRead) {
  uint16_t emissivity = 7782;
  EXPECT_EQ(core_.SetParameter(RADIOMETRIC_PARAMETER, &emissivity, RADIOMETRIC_EMISSIVITY, DIGITAL_OUTPUT_NONE),
            CAM_OK);
  uint16_t read = 0;
  EXPECT_EQ(core_.GetParameter(RADIOMETRIC_PARAMETER, &read, RADIOMETRIC_EMISSIVITY, DIGITAL_OUTPUT_NONE), CAM_OK);
  EXPECT_EQ(read, emissivity);
  EXPECT_FALSE(core_.GetRadiometryHighResolutionMode());
  uint8_t on = 1;
  EXPECT_EQ(core_.SetParameter(RADIOMETRY, &on, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE), CAM_OK);
  EXPECT_TRUE(core_.GetRadiometryHighResolutionMode());
}

TEST_F(CoreCommands, SetDefaultsAndReset_LeavesWhatWasSetBefore) {
  EXPECT_EQ(core_.DoNothing(), 0);
  EXPECT_EQ(core_.SetContrast(77), CAM_OK);
  EXPECT_EQ(core_.DoSetDefaults(), CAM_OK);
  EXPECT_EQ(simulated_.powerOnSettings(), simulated_.settings());
  EXPECT_EQ(core_.SetContrast(78), CAM_OK);

  EXPECT_EQ(core_.DoCameraReset(), CAM_OK);
  EXPECT_EQ(core_.DoNothing(), -1) << "a core that starts is silent";
  const auto deadline = Clock::now() + std::chrono::seconds(5);
  while (core_.DoNothing() != 0 && Clock::now() < deadline) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(core_.GetContrast(), 77);

  EXPECT_EQ(core_.DoRestoreFactoryDefaults(), CAM_OK);
  EXPECT_EQ(simulated_.settings(), simulator::CoreSettings());
  EXPECT_EQ(simulated_.powerOnSettings(), simulator::CoreSettings());
  EXPECT_EQ(core_.GetContrast(), simulated_.word(CONTRAST));
}

// The scene moves and is noisy, so that no two pictures of an open shutter are the same.
TEST_F(CoreCommands, DoFfc_FreezesThePictureForItsTime) {
  core_.SetFFCMode(FFCModes::Manual);
  Camera& camera = camera_.camera();
  e2e::FrameCheck check = camera_.frameCheck();
  camera.StartAcquisition();
  std::vector<uint8_t> previous;
  std::size_t repeated = 0;
  std::size_t longest = 0;
  std::size_t open_again = 0;
  // One second, of which the shutter is closed for 0.3.
  for (int frame = 0; frame < 50; ++frame) {
    if (frame == 10) {
      EXPECT_EQ(longest, 0U) << "a picture stood still before the correction";
      EXPECT_EQ(core_.DoFFC(), CAM_OK);
    }
    camera.buffer = nullptr;
    ASSERT_NE(camera.RetreiveBuffer(), nullptr);
    EXPECT_TRUE(check.check(camera));
    const uint8_t* const data = camera.buffer->GetDataPointer();
    const std::vector<uint8_t> picture(data, data + std::size_t{2} * 160 * 128);
    camera.ReleaseBuffer();
    repeated = picture == previous ? repeated + 1 : 0;
    longest = std::max(longest, repeated);
    if (longest > 0 && repeated == 0) ++open_again;
    previous = picture;
  }
  camera.StopAcquisition();
  EXPECT_EQ(simulated_.ffcCount(), 1U);
  EXPECT_GE(longest, 10U) << "0.3 seconds are 15 frames, and a busy camera sends fewer";
  EXPECT_GE(open_again, 1U) << "the picture moves again afterwards";
}

}  // namespace
