// What a connection makes of a core: identified, configured, calibrated, and measuring.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "calibration/Calibration.h"
#include "pv/aravis/StreamDetails.h"
#include "serial/CameraSerialSettings.h"
#include "simulator/calibration/CalibrationText.h"
#include "simulator/core/ThermalCore.h"
#include "simulator/core/VideoPicture.h"
#include "simulator/scene/SceneText.h"
#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using simulator::ImageSize;
using simulator::SimulatedCamera;

class StartUp : public testing::Test {
 protected:
  ~StartUp() override {
    if (camera_ != nullptr) e2e::disconnect(*camera_);
    calibrationVect.clear();
    currentLensNumber = 0;
    CamSpeed = {};
  }

  void simulate(const simulator::CameraOptions& options) {
    simulated_ = std::make_unique<SimulatedCamera>(options);
    center_ = std::make_unique<CameraCenter>("");
  }
  static simulator::CameraOptions smallCamera() {
    simulator::CameraOptions options = e2e::cameraOptions(0, 50.0);
    options.sensor = {160, 128};
    return options;
  }

  void connect(const std::string& calibration = "", const std::string& version = "00") {
    camera_ = std::make_unique<Camera>(center_->deviceInfos.at(0), calibration, version, simulated_->options().serial);
    ASSERT_EQ(camera_->Connect(), 0);
    ASSERT_NE(camera_->serialSettings, nullptr);
  }

  CameraSerialSettings& core() { return *camera_->serialSettings; }
  simulator::ThermalCore& simulatedCore() { return *simulated_->options().core; }

  /// The camera's next frame whose picture is not that of before a correction, released again; empty if there is none.
  std::vector<uint16_t> nextLiveFrame(simulator::CoreVideo& video) {
    for (int frame = 0; frame < 100; ++frame) {
      camera_->buffer = nullptr;
      const uint8_t* const data = camera_->RetreiveBuffer();
      if (data == nullptr) return {};
      const keocam::FrameDetails details = keocam::detailsOf(*camera_->buffer);
      const auto found = simulatedCore().videoOf(details.block_id);
      const auto* const first = reinterpret_cast<const uint16_t*>(data);
      std::vector<uint16_t> raw(first, first + details.size / sizeof(uint16_t));
      camera_->ReleaseBuffer();
      if (!found || found->frozen) continue;
      video = *found;
      return raw;
    }
    return {};
  }

  std::unique_ptr<SimulatedCamera> simulated_;
  std::unique_ptr<CameraCenter> center_;
  std::unique_ptr<Camera> camera_;
};

TEST_F(StartUp, CameraLeftInAnotherState_IsBroughtIntoTheOneThatIsAssumed) {
  simulate(e2e::withFastCore(smallCamera()));
  {
    Camera other(center_->deviceInfos.at(0), "", "00", "KEOD2001");
    const e2e::Connection connection(other);
    PvGenParameterArray& features = *other.device->GetParameters();
    ASSERT_TRUE(features.SetEnumValue("BulkMode", "UART").IsOK());
    CameraSerialSettings left(other.device, PvDeviceSerialBulk0);
    left.SetFFCMode(FFCModes::Manual);
    left.SetXPBusMode(XPBusModes::Off);
    left.SetCMOSBitDepth(DigitalOutputDepth::Bits8);
    left.SetGainMode(CameraSerialSettings::MiddleRange);
    ASSERT_EQ(simulatedCore().word(10), 1);
    for (const auto& [name, value] : {std::pair("TestPattern", "GreyHorizontalRamp"), std::pair("BulkMode", "Off"),
                                      std::pair("BulkBaudRate", "Baud9600"), std::pair("BulkNumOfStopBits", "Two"),
                                      std::pair("BulkParity", "Odd")}) {
      ASSERT_TRUE(features.SetEnumValue(name, value).IsOK()) << name;
    }
    ASSERT_TRUE(features.SetBooleanValue("BulkLoopback", true).IsOK());
    ASSERT_TRUE(features.SetIntegerValue("Width", 80).IsOK());
    ASSERT_TRUE(features.SetIntegerValue("Height", 64).IsOK());
    ASSERT_EQ(other.device->GetPayloadSize(), 80 * 64 * 2);
  }
  simulatedCore().clearLog();
  const uint64_t corrections = simulatedCore().ffcCount();
  connect();

  EXPECT_EQ(camera_->device->GetPayloadSize(), 160 * 128 * 2);
  EXPECT_EQ(simulatedCore().word(10), 2) << "gain of the low range";
  EXPECT_EQ(simulatedCore().word(11), 1) << "automatic correction";
  EXPECT_EQ(simulatedCore().word(18, simulator::kXpBusMode), 2);
  EXPECT_EQ(simulatedCore().word(18, simulator::kCmosBitDepth), 0);
  EXPECT_EQ(simulatedCore().word(142, simulator::kRadiometryMode), 1);
  EXPECT_EQ(simulatedCore().word(142, simulator::kRadiometryResolution), 1);
  EXPECT_EQ(simulatedCore().word(229, simulator::kEmissivity), 7782);
  EXPECT_EQ(simulatedCore().word(229, simulator::kAtmosphericTemperature), 2000);
  EXPECT_GE(simulatedCore().ffcCount(), corrections + 2);
  for (const simulator::CoreLogEntry& entry : simulatedCore().log()) {
    EXPECT_EQ(entry.verdict, simulator::Verdict::Frame);
    EXPECT_EQ(entry.status, simulator::CoreStatus::Ok) << describe(entry, 0);
  }

  camera_->StartAcquisition();
  e2e::FrameCheck check(simulated_->sceneSettings(), simulated_->options().core);
  EXPECT_TRUE(e2e::receiveAndCheck(*camera_, check, 20));
}

struct Core {
  const char* name;
  ImageSize sensor;
  const char* part_number;  // empty: a fast radiometric one for the sensor
  const char* model;
  bool radiometric;
  bool fast;
};

class EveryCore : public StartUp, public testing::WithParamInterface<Core> {};

TEST_P(EveryCore, IsIdentified_AndItsFramesAreItsSensors) {
  simulator::CameraOptions options = smallCamera();
  options.sensor = GetParam().sensor;
  simulate(e2e::withFastCore(options, GetParam().part_number));
  connect();
  EXPECT_TRUE(core().GetIsSupported());
  EXPECT_EQ(core().GetModel(), GetParam().model);
  EXPECT_EQ(core().GetManufacturer(), "FLIR Systems Inc.");
  EXPECT_EQ(core().GetResolutionX(), static_cast<int>(GetParam().sensor.width));
  EXPECT_EQ(core().GetResolutionY(), static_cast<int>(GetParam().sensor.height));
  EXPECT_EQ(core().GetIsRadiometric(), GetParam().radiometric);
  EXPECT_EQ(core().GetRadiometryMode(), GetParam().radiometric);
  EXPECT_EQ(core().GetIsFastVideoSpeed(), GetParam().fast);
  EXPECT_EQ(core().GetRangeMode(), CameraSerialSettings::LowRange);

  camera_->StartAcquisition();
  e2e::FrameCheck check(simulated_->sceneSettings(), simulated_->options().core);
  EXPECT_TRUE(e2e::receiveAndCheck(*camera_, check, 5));
}

INSTANTIATE_TEST_SUITE_P(
    Cores, EveryCore,
    testing::Values(Core{"Large", {640, 512}, "", "KEO_640", true, true},
                    Core{"Middle", {336, 256}, "", "KEO_336", true, true},
                    Core{"Narrow", {320, 256}, "", "KEO_320", true, true},
                    Core{"Small", {160, 128}, "", "KEO_160", true, true},
                    Core{"NotRadiometric", {336, 256}, "46336007X-SPNLX", "KEO_336", false, false},
                    Core{"AlternativeForm", {336, 256}, "50000077H-FRNLS", "KEO_336", false, false}),
    [](const auto& core) { return std::string(core.param.name); });

TEST_F(StartUp, UnknownPartNumber_KeepsTheDevicesSizeAndIsNotSupported) {
  simulate(e2e::withFastCore(smallCamera(), "99999999X-FRNLX"));
  connect();
  EXPECT_FALSE(core().GetIsSupported());
  EXPECT_EQ(core().GetCameraPartNumber(), "99999999X-FRNLX");
  EXPECT_EQ(core().GetModel(), "KEO_-1");
  EXPECT_TRUE(core().GetRadiometryMode());
  EXPECT_EQ(camera_->device->GetPayloadSize(), 160 * 128 * 2);
  camera_->StartAcquisition();
  e2e::FrameCheck check(simulated_->sceneSettings(), simulated_->options().core);
  EXPECT_TRUE(e2e::receiveAndCheck(*camera_, check, 5));
}

struct Measuring {
  const char* name;
  const char* part_number;
  double tolerance_celsius;  // half a count of the core's, in either mode
};

class MeasuringCore : public StartUp, public testing::WithParamInterface<Measuring> {};

TEST_P(MeasuringCore, EveryPixelsTemperature_IsTheScenes) {
  simulator::CameraOptions options = smallCamera();
  options.temperatures = simulator::parseScene("gradient:low=-10,high=120");
  simulate(e2e::withFastCore(options, GetParam().part_number));
  connect();
  camera_->StartAcquisition();
  simulator::CoreVideo video;
  const std::vector<uint16_t> raw = nextLiveFrame(video);
  ASSERT_EQ(raw.size(), 160u * 128u);
  const simulator::Scene scene(simulated_->sceneSettings());
  const std::vector<double> truth = trueTemperatures(scene, 160, 128, video);
  double largest_error = 0.0;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    const double celsius = camera_->CalculateTemperatureC(raw[i]);
    largest_error = std::max(largest_error, std::abs(celsius - truth[i]));
    ASSERT_NEAR(camera_->CalculateTemperatureK(raw[i]), celsius + 273.15, 1e-9);
  }
  EXPECT_LE(largest_error, GetParam().tolerance_celsius);
}

INSTANTIATE_TEST_SUITE_P(Modes, MeasuringCore,
                         testing::Values(Measuring{"RadiometryMode", "46160007H-FRNLX", 0.05},
                                         Measuring{"RawCounts", "46160007H-FPNLX", 0.05}),
                         [](const auto& mode) { return std::string(mode.param.name); });

struct SpeedClass {
  const char* serial;
  int speed;
  int video_standard;  // on the wire; the core starts with 0
  bool limited;
};

class SpeedClassOfSerial : public StartUp, public testing::WithParamInterface<SpeedClass> {};

TEST_P(SpeedClassOfSerial, CalibratedCamera_FollowsItsSerialNumber) {
  simulator::CameraOptions options = smallCamera();
  options.serial = GetParam().serial;
  simulate(e2e::withFastCore(options));
  simulator::CalibrationOptions calibration;
  calibration.sensor = options.sensor;
  calibration.lenses = simulator::usualLenses(2);
  connect(simulator::calibrationText(calibration), simulator::versionText(3));
  EXPECT_EQ(core().GetCameraSpeed(), GetParam().speed);
  EXPECT_EQ(simulatedCore().word(114), GetParam().video_standard);
  EXPECT_EQ(camera_->limitFrameRate, GetParam().limited);
  EXPECT_EQ(core().GetAvailibleLenses().size(), 2u);
  EXPECT_FALSE(std::isnan(camera_->CalculateTemperatureC(8000)));
}

INSTANTIATE_TEST_SUITE_P(Serials, SpeedClassOfSerial,
                         testing::Values(SpeedClass{"KEOC2001", 0, 0, true}, SpeedClass{"KEOD2001", 1, 0, false},
                                         SpeedClass{"KEOE2001", 2, 4, false}),
                         [](const auto& speed) { return std::string(speed.param.serial); });

}  // namespace
