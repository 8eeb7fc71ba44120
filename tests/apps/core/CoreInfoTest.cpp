// What a core tells of itself, as text and JSON.
#include "apps/keocam/core/CoreInfo.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

DeviceDetails camera() {
  DeviceDetails details;
  details.serial_number = "KEOD2001";
  details.address = "192.0.2.7";
  return details;
}

CoreInfo complete() {
  CoreInfo info;
  info.part_number = {CAM_OK, "46640001X-FRNLX^^^^^^^^^^^^^^^^^"};
  info.serial_numbers = {CAM_OK, {4000000000U, 12}};
  info.versions = {CAM_OK, {{4, 1}, {2, 65535}}};
  info.high_gain = {CAM_OK, false};
  info.sensor_temperature_celsius = {CAM_OK, 30.1};
  info.housing_temperature_celsius = {CAM_OK, 29.25};
  info.shutter_temperature_celsius = {CAM_OK, 0.0};
  return info;
}

TEST(CoreInfo, Text_HasALineForEach) {
  EXPECT_EQ(coreInfoText(camera(), complete()),
            "Camera                KEOD2001 at 192.0.2.7\n"
            "Part number           46640001X-FRNLX^^^^^^^^^^^^^^^^^\n"
            "Core serial number    4000000000\n"
            "Sensor serial number  12\n"
            "Software version      4.1\n"
            "Firmware version      2.65535\n"
            "Gain                  low (middle or high range)\n"
            "Sensor temperature    30.1 °C\n"
            "Housing temperature   29.25 °C\n"
            "Shutter temperature   0.00 °C\n");
  EXPECT_TRUE(failuresAmong(complete()).empty());
}

TEST(CoreInfo, Json_HasEveryKey) {
  const nlohmann::json expected = {{"camera", "KEOD2001"},
                                   {"part_number", "46640001X-FRNLX^^^^^^^^^^^^^^^^^"},
                                   {"core_serial_number", 4000000000U},
                                   {"sensor_serial_number", 12},
                                   {"software_version", "4.1"},
                                   {"firmware_version", "2.65535"},
                                   {"gain", "low"},
                                   {"sensor_temperature_celsius", 30.1},
                                   {"housing_temperature_celsius", 29.25},
                                   {"shutter_temperature_celsius", 0.0}};
  EXPECT_EQ(nlohmann::json::parse(coreInfoJson(camera(), complete())), expected);
}

TEST(CoreInfo, Unread_SaysSoWithItsStatus) {
  CoreInfo info = complete();
  info.serial_numbers.status = CAM_CHECKSUM_ERROR;
  info.shutter_temperature_celsius.status = CAM_UNDEFINED_FUNCTION_ERROR;
  const std::string text = coreInfoText(camera(), info);
  EXPECT_NE(text.find("Core serial number    not read (CAM_CHECKSUM_ERROR)\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Sensor serial number  not read (CAM_CHECKSUM_ERROR)\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Shutter temperature   not read (CAM_UNDEFINED_FUNCTION_ERROR)\n"), std::string::npos) << text;

  const auto object = nlohmann::json::parse(coreInfoJson(camera(), info));
  EXPECT_TRUE(object["sensor_serial_number"].is_null());
  EXPECT_EQ(object["errors"], (nlohmann::json{{"core_serial_number", "CAM_CHECKSUM_ERROR"},
                                              {"sensor_serial_number", "CAM_CHECKSUM_ERROR"},
                                              {"shutter_temperature_celsius", "CAM_UNDEFINED_FUNCTION_ERROR"}}));
  EXPECT_EQ(failuresAmong(info).size(), 3U);
}

TEST(CoreInfo, NothingRead_FitsIn80Columns) {
  CoreInfo info;
  for (CoreValue<double>* const value : {&info.sensor_temperature_celsius, &info.housing_temperature_celsius}) {
    value->status = CAM_UNDEFINED_FUNCTION_ERROR;
  }
  EXPECT_EQ(failuresAmong(info).size(), 9U);
  std::istringstream lines(coreInfoText(camera(), info));
  for (std::string line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), 80U) << line;
}

TEST(CoreInfo, PartNumberOfAnyBytes_CannotSteerTheTerminal) {
  CoreInfo info = complete();
  info.part_number.value = "\x1b[2J\xff";
  EXPECT_NE(coreInfoText(camera(), info).find("\\x1b[2J\\xff"), std::string::npos);
  const std::string text = coreInfoJson(camera(), info);
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_FALSE(nlohmann::json::parse(text)["part_number"].get<std::string>().empty());
}

}  // namespace
}  // namespace keocam::cli
