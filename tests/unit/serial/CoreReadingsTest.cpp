// Readings with their status.
#include "serial/CoreReadings.h"

#include "serial/CoreTemperature.h"
#include "tests/unit/serial/CoreTest.h"

namespace {

using CoreReadingsTest = CoreTest;

TEST_F(CoreReadingsTest, Temperatures_ChangeNothingElse) {
  coreTemperature = 12.5;
  coreTemperatureTimer = 7;
  core_.temperatureSensor = 1;
  replyTo(32, {0x01, 0x2C});
  EXPECT_EQ(keocam::readSensorTemperatureC(core_).value, 30.0);
  EXPECT_EQ(core_.temperatureSensor, 1u);
  core_.temperatureSensor = 0;
  replyTo(32, {0x0C, 0x35});
  EXPECT_EQ(keocam::readHousingTemperatureC(core_).value, 31.25);
  replyTo(77, {0x0C, 0x36});
  EXPECT_EQ(keocam::readShutterTemperatureC(core_).value, 31.26);
  EXPECT_EQ(takeRequests(), requests({{32, {0x00, 0x00}}, {32, {0x00, 0x0A}}, {77, {}}}));
  EXPECT_EQ(coreTemperature, 12.5);
  EXPECT_EQ(coreTemperatureTimer, 7);
  EXPECT_EQ(core_.temperatureSensor, 0u);
}

TEST_F(CoreReadingsTest, Versions_AreInTheCoresOrder) {
  replyTo(5, {0x00, 0x01, 0x00, 0x02, 0x01, 0x03, 0x00, 0x04});
  const auto versions = keocam::readVersions(core_);
  EXPECT_TRUE(versions.ok());
  EXPECT_EQ(versions.value.software.major, 1);
  EXPECT_EQ(versions.value.software.minor, 2);
  EXPECT_EQ(versions.value.firmware.major, 0x103);
  EXPECT_EQ(versions.value.firmware.minor, 4);
}

TEST_F(CoreReadingsTest, PartNumber_IsAsTheCoreHasIt) {
  const std::string text = "46336001H-FPNLX^^^^^^^^^^^^^^^^^";
  replyTo(102, Bytes(text.begin(), text.end()));
  EXPECT_EQ(keocam::readPartNumber(core_).value, text);
  Bytes ended(text.begin(), text.end());
  ended[15] = 0;
  replyTo(102, ended);
  EXPECT_EQ(keocam::readPartNumber(core_).value, "46336001H-FPNLX");
}

TEST_F(CoreReadingsTest, NoAnswer_StatusTells_AndNothingIsPrinted) {
  EXPECT_EQ(keocam::readSensorTemperatureC(core_).status, UNKNOWN_ERROR);
  EXPECT_EQ(keocam::readHousingTemperatureC(core_).status, UNKNOWN_ERROR);
  EXPECT_EQ(keocam::readShutterTemperatureC(core_).status, UNKNOWN_ERROR);
  EXPECT_EQ(keocam::readSerialNumbers(core_).status, UNKNOWN_ERROR);
  EXPECT_EQ(keocam::readVersions(core_).status, UNKNOWN_ERROR);
  EXPECT_EQ(keocam::readPartNumber(core_).status, UNKNOWN_ERROR);
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(CoreReadingsTest, CutAnswer_IsNoValue) {
  replyTo(4, {1, 2, 3, 4});
  EXPECT_EQ(keocam::readSerialNumbers(core_).status, CAM_BYTE_COUNT_ERROR);
  replyTo(102, Bytes(31, 'x'));
  EXPECT_EQ(keocam::readPartNumber(core_).status, CAM_BYTE_COUNT_ERROR);
}

}  // namespace
