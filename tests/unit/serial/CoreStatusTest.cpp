// Temperatures, identity and commands.
#include "serial/CoreTemperature.h"
#include "tests/unit/serial/CoreTest.h"

namespace {

// The library was loaded, and this read, before any test ran.
const double kTemperatureAtLoad = coreTemperature;

using CoreStatusTest = CoreTest;

TEST_F(CoreStatusTest, CoreTemperature_StartsAtTwentyDegrees) { EXPECT_EQ(kTemperatureAtLoad, 20.0); }

TEST_F(CoreStatusTest, SensorTemperature_InTenths_IsKeptWithItsTime) {
  core_.temperatureSensor = 1;
  coreTemperature = 0.0;
  coreTemperatureTimer = 0;
  replyTo(32, {0x01, 0x2C});
  EXPECT_EQ(core_.GetSensorTemperature(), 30.0);
  EXPECT_EQ(coreTemperature, 30.0);
  EXPECT_EQ(coreTemperatureTimer, time_.now_ns() / 1'000'000'000);
  EXPECT_EQ(core_.temperatureSensor, 0u);
  EXPECT_EQ(takeRequests(), requests({{32, {0x00, 0x00}}}));
}

TEST_F(CoreStatusTest, SensorTemperature_NoAnswer_IsKeptAsZero) {
  coreTemperature = 30.0;
  coreTemperatureTimer = 0;
  EXPECT_EQ(core_.GetSensorTemperature(), 0.0);
  EXPECT_EQ(coreTemperature, 0.0);
  EXPECT_EQ(coreTemperatureTimer, time_.now_ns() / 1'000'000'000);
}

TEST_F(CoreStatusTest, HousingTemperature_InHundredths_Unsigned) {
  coreTemperature = 12.5;
  coreTemperatureTimer = 7;
  replyTo(32, {0xFF, 0x38});
  EXPECT_EQ(core_.GetHousingTemperature(), 653.36);
  EXPECT_EQ(coreTemperature, 12.5);
  EXPECT_EQ(coreTemperatureTimer, 7);
  EXPECT_EQ(core_.temperatureSensor, 1u);
  EXPECT_EQ(takeRequests(), requests({{32, {0x00, 0x0A}}}));
  EXPECT_EQ(core_.GetHousingTemperature(), 0.0) << "no answer";
}

TEST_F(CoreStatusTest, ShutterTemperature_InHundredths_Unsigned) {
  replyTo(77, {0xFF, 0x38});
  EXPECT_EQ(core_.GetShutterTemperature(), 653.36);
  EXPECT_EQ(takeRequests(), requests({{77, {}}}));
  EXPECT_EQ(core_.GetShutterTemperature(), 0.0) << "no answer";
}

TEST_F(CoreStatusTest, CameraSerialNumber_IsTheFirstFourBytes) {
  replyTo(4, {0xDE, 0xAD, 0xBE, 0xEF, 0x01, 0x02, 0x03, 0x04});
  EXPECT_EQ(core_.GetCameraSerialNumber(), 0xDEADBEEFu);
  EXPECT_EQ(takeRequests(), requests({{4, {}}}));
  EXPECT_EQ(core_.GetCameraSerialNumber(), 0u) << "no answer";
}

TEST_F(CoreStatusTest, Versions_HaveTheirBytesExchanged) {
  for (int i = 0; i < 4; ++i) replyTo(5, {0x00, 0x01, 0x00, 0x02, 0x00, 0x03, 0x00, 0x04});
  EXPECT_EQ(core_.GetSWMajorVersion(), 256);
  EXPECT_EQ(core_.GetSWMinorVersion(), 512);
  EXPECT_EQ(core_.GetFWMajorVersion(), 768);
  EXPECT_EQ(core_.GetFWMinorVersion(), 1024);
  EXPECT_EQ(takeRequests(), requests({{5, {}}, {5, {}}, {5, {}}, {5, {}}}));
  EXPECT_EQ(core_.GetSWMajorVersion(), 0) << "no answer";
}

TEST_F(CoreStatusTest, Commands_SendTheirCodeAndReturnTheStatus) {
  struct Command {
    uint8_t code;
    ResponseStatuses (CameraSerialSettings::*member)();
  };
  const std::vector<Command> commands = {{12, &CameraSerialSettings::DoFFC},
                                         {1, &CameraSerialSettings::DoSetDefaults},
                                         {2, &CameraSerialSettings::DoCameraReset},
                                         {3, &CameraSerialSettings::DoRestoreFactoryDefaults}};
  for (const Command& command : commands) {
    replyTo(command.code, {});
    EXPECT_EQ((core_.*command.member)(), CAM_OK);
    replyTo(command.code, {}, 0x05);
    EXPECT_EQ((core_.*command.member)(), CAM_UNDEFINED_PROCESS_ERROR);
    EXPECT_EQ((core_.*command.member)(), UNKNOWN_ERROR) << "no answer";
    EXPECT_EQ(take({"PvDeviceSerialPort::Read"}), Log(3, "PvDeviceSerialPort::Read 1024 500")) << int{command.code};
  }
}

TEST_F(CoreStatusTest, DoNothing_ZeroOrMinusOne) {
  replyTo(0, {});
  EXPECT_EQ(core_.DoNothing(), 0);
  EXPECT_EQ(takeRequests(), requests({{0, {}}}));
  replyTo(0, {}, 0x03);
  EXPECT_EQ(core_.DoNothing(), -1);
  EXPECT_EQ(takePrinted(), Log{"err: CameraSerialSettings::SetParameter: Camera response error: CAM_RANGE_ERROR\\n"});
  EXPECT_EQ(core_.DoNothing(), -1);
  EXPECT_EQ(takePrinted(), Log{"err: CameraSerialSettings::SetParameter: Error reading message from camera.\\n"});
  scripted::network().serial.takes_writes = false;
  EXPECT_EQ(core_.DoNothing(), -1);
  EXPECT_EQ(takePrinted(), Log{"err: CameraSerialSettings::SetParameter: Error writing message to camera.\\n"});
}

}  // namespace
