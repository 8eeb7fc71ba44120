// All that is known of a camera, as a table and as JSON.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/info/CoreModel.h"
#include "apps/keocam/info/InfoReport.h"
#include "apps/keocam/info/InfoSections.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

constexpr std::size_t kTerminal = 80;

CameraReadings complete() {
  CameraReadings readings;
  readings.camera = {"KEOD2001", "KEO", "KEOsim-336", "192.0.2.7", "02:00:00:00:00:01", "eth0", "192.0.2.1", true};
  readings.use = DeviceUse::Free;
  readings.link = LinkDetails{1500, 1000, 9000};
  CoreInfo& core = readings.core.emplace();
  core.part_number = {CAM_OK, "46336001H-FRNLX^^^^^^^^^^^^^^^^^"};
  core.serial_numbers = {CAM_OK, {701001, 301001}};
  core.versions = {CAM_OK, {{4, 1}, {2, 7}}};
  core.high_gain = {CAM_OK, true};
  core.sensor_temperature_celsius = {CAM_OK, 30.1};
  core.housing_temperature_celsius = {CAM_OK, 29.25};
  core.shutter_temperature_celsius = {CAM_OK, 0.0};
  for (const SettingRow* const setting : listedSettings()) {
    if (isRadiometric(*setting)) readings.radiometry.push_back({setting, {CAM_OK, 1}});
  }
  LensReadings& lens = readings.lens.emplace();
  lens.lenses.resize(2);
  lens.lenses[0].name = "L25mm";
  lens.lenses[0].has_1500_range = true;
  lens.lenses[1].name = "L7mm ";
  lens.held = 1;
  return readings;
}

json jsonOf(const CameraReadings& readings) { return json::parse(infoJson(infoSections(readings))); }
std::string textOf(const CameraReadings& readings) { return infoText(infoSections(readings), kTerminal); }

void expectToFit(const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), kTerminal) << line;
}

TEST(CameraInfo, Json_HasEverything) {
  const json object = jsonOf(complete());
  EXPECT_EQ(object["camera"]["manufacturer"], "KEO");
  EXPECT_EQ(object["camera"]["mac_address"], "02:00:00:00:00:01");
  EXPECT_EQ(object["link"], (json{{"access", "free"},
                                  {"packet_size_before_negotiation_bytes", 1500},
                                  {"link_speed_mbit_s", 1000},
                                  {"interface_mtu_bytes", 9000}}));
  EXPECT_EQ(object["core"]["part_number"], "46336001H-FRNLX");
  EXPECT_EQ(object["core"]["model"], "KEO_336");
  EXPECT_EQ(object["core"]["resolution"], (json{336, 256}));
  EXPECT_EQ(object["core"]["speed_class"], "fast");
  EXPECT_EQ(object["core"]["radiometric"], true);
  EXPECT_EQ(object["core"]["core_serial_number"], 701001);
  EXPECT_EQ(object["core"]["gain"], "high");
  EXPECT_EQ(object["core"]["shutter_temperature_celsius"], 0.0);
  EXPECT_EQ(object["radiometry"]["emissivity"], 0.001);
  EXPECT_EQ(object["radiometry"]["radiometry"], true);
  EXPECT_EQ(object["lenses"]["calibrated"][0], (json{{"name", "L25mm"}, {"ranges", {"low", "middle", "high"}}}));
  EXPECT_EQ(object["lenses"]["held"], "L7mm");
  EXPECT_EQ(object.count("errors"), 0U);
}

TEST(CameraInfo, Table_StandsUnderTitlesAndFitsATerminal) {
  const std::string text = textOf(complete());
  EXPECT_EQ(text.rfind("CAMERA\n  Serial number ", 0), 0U) << text;
  for (const char* const title : {"\n\nLINK\n", "\n\nTHERMAL CORE\n", "\n\nRADIOMETRY\n", "\n\nLENSES\n"}) {
    EXPECT_NE(text.find(title), std::string::npos) << text;
  }
  EXPECT_NE(text.find("  Resolution               336 x 256\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("not read"), std::string::npos) << text;
  expectToFit(text);
}

TEST(CameraInfo, SpeedClass_GoesByTheSerialNumberWhereThatTells) {
  CameraReadings readings = complete();
  EXPECT_NE(textOf(readings).find("fast, by the part number"), std::string::npos);
  readings.lens->speed = 2;
  EXPECT_NE(textOf(readings).find("fastest, by the serial number"), std::string::npos);
  EXPECT_EQ(jsonOf(readings)["core"]["speed_class"], "fastest");
}

TEST(CameraInfo, SerialNumberOfTheSlowClass_LimitsApplicationsWhateverTheClass) {
  CameraReadings readings = complete();
  EXPECT_EQ(textOf(readings).find("frames a second"), std::string::npos);
  readings.camera.serial_number = "KEOC2001";
  EXPECT_NE(textOf(readings).find("fast, by the part number; applications get at most 10"), std::string::npos)
      << textOf(readings);
  EXPECT_EQ(jsonOf(readings)["core"]["speed_class"], "fast");
  expectToFit(textOf(readings));
  for (const char* const other : {"KEOC1702", "KEOE2001", "AB1", "KEOCxyz", ""}) {
    readings.camera.serial_number = other;
    EXPECT_EQ(textOf(readings).find("frames a second"), std::string::npos) << other;
  }
}

// All letters of the values, without blanks and line breaks.
std::string lettersOfValues(const std::string& text) {
  constexpr std::size_t kValues = 27;
  std::string letters;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    for (std::size_t i = std::min(kValues, line.size()); i < line.size(); ++i) {
      if (line[i] != ' ') letters += line[i];
    }
  }
  return letters;
}

TEST(CameraInfo, NarrowTerminal_LosesNoLetter) {
  CameraReadings readings = complete();
  readings.lens.reset();
  readings.no_lens = "no folder of calibrations is named";
  constexpr std::size_t kNarrow = 40;
  const std::string narrow = infoText(infoSections(readings), kNarrow);
  EXPECT_EQ(lettersOfValues(narrow), lettersOfValues(infoText(infoSections(readings), kUnlimitedWidth))) << narrow;
  std::istringstream lines(narrow);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), kNarrow) << line;
}

TEST(CameraInfo, UnreadCore_IsNamedWithTheReasonAndTheRestIsTold) {
  CameraReadings readings = complete();
  readings.core.reset();
  readings.radiometry.clear();
  readings.no_core = "the core is silent";
  readings.lens->held.reset();
  readings.lens->not_held = readings.no_core;
  readings.lens->held_not_read = true;
  const json object = jsonOf(readings);
  EXPECT_EQ(object["camera"]["serial_number"], "KEOD2001");
  EXPECT_EQ(object["link"]["packet_size_before_negotiation_bytes"], 1500);
  EXPECT_EQ(object["lenses"]["calibrated"].size(), 2U);
  for (const char* const key : {"core.part_number", "core.model", "core.resolution", "core.speed_class",
                                "core.radiometric", "core.gain", "radiometry.emissivity", "lenses.held"}) {
    EXPECT_EQ(object["errors"][key], "the core is silent") << key;
  }
  EXPECT_NE(textOf(readings).find("  Model                    not read: the core is silent\n"), std::string::npos)
      << textOf(readings);
  EXPECT_TRUE(object["core"]["gain"].is_null());
  EXPECT_NE(textOf(readings).find("not read: the core is silent"), std::string::npos);
  expectToFit(textOf(readings));
}

std::set<std::string> keysOf(const CameraReadings& readings) {
  std::set<std::string> keys;
  const json object = jsonOf(readings);
  for (const auto& [section, part] : object.items()) {
    if (section == "errors") continue;
    for (const auto& [key, value] : part.items()) keys.insert(section + '.' + key);
  }
  return keys;
}

TEST(CameraInfo, Json_HasTheSameKeysWhateverTheState) {
  const std::set<std::string> all = keysOf(complete());
  for (const char* const key :
       {"core.model", "core.resolution", "core.speed_class", "core.radiometric", "lenses.calibrated", "lenses.held"}) {
    EXPECT_EQ(all.count(key), 1U) << key;
  }
  CameraReadings unconnected = complete();
  unconnected.core.reset();
  unconnected.radiometry.clear();
  unconnected.link.reset();
  unconnected.no_core = unconnected.no_link = "another host controls the camera";
  EXPECT_EQ(keysOf(unconnected), all);

  CameraReadings refused = complete();
  refused.core->part_number.status = CAM_BYTE_COUNT_ERROR;
  EXPECT_EQ(keysOf(refused), all);
  CameraReadings unknown = complete();
  unknown.core->part_number.value = "?";
  EXPECT_EQ(keysOf(unknown), all);

  CameraReadings without_folder = complete();
  without_folder.lens.reset();
  without_folder.no_lens = "no folder is named";
  EXPECT_EQ(keysOf(without_folder), all);
  EXPECT_EQ(jsonOf(without_folder).count("errors"), 0U);
  without_folder.lens_not_read = true;
  EXPECT_EQ(keysOf(without_folder), all);
  EXPECT_EQ(jsonOf(without_folder)["errors"]["lenses.held"], "no folder is named");
}

TEST(CameraInfo, UnconnectedCamera_HasNoLinkFigures) {
  CameraReadings readings = complete();
  readings.use = DeviceUse::OtherHost;
  readings.link.reset();
  readings.no_link = "it is another's";
  const json object = jsonOf(readings);
  EXPECT_EQ(object["link"]["access"], "in_use");
  EXPECT_EQ(object["errors"]["link.packet_size_before_negotiation_bytes"], "it is another's");
}

TEST(CameraInfo, SilentCamera_HasUnknownAccess) {
  CameraReadings readings = complete();
  readings.use = DeviceUse::NoAnswer;
  EXPECT_TRUE(jsonOf(readings)["link"]["access"].is_null());
  EXPECT_EQ(jsonOf(readings)["errors"].count("link.access"), 1U);
}

TEST(CameraInfo, OneRefusal_LeavesTheOthers) {
  CameraReadings readings = complete();
  readings.core->versions.status = CAM_CHECKSUM_ERROR;
  readings.core->part_number.status = UNKNOWN_ERROR;
  const json object = jsonOf(readings);
  EXPECT_EQ(object["errors"].size(), 7U) << object["errors"];
  EXPECT_EQ(object["errors"].count("core.firmware_version"), 1U);
  EXPECT_EQ(object["errors"].count("core.resolution"), 1U);
  EXPECT_EQ(object["core"]["core_serial_number"], 701001);
}

TEST(CameraInfo, WhatACameraLacks_IsNoError) {
  CameraReadings readings = complete();
  readings.link->link_speed_mbit_s = 0;
  readings.core->part_number.value = "99999999X-FRNLX";
  for (SettingReading& reading : readings.radiometry) reading.value.status = CAM_FEATURE_NOT_ENABLED;
  readings.lens.reset();
  readings.no_lens = "no folder is named";
  const json object = jsonOf(readings);
  EXPECT_TRUE(object["link"]["link_speed_mbit_s"].is_null());
  EXPECT_TRUE(object["core"]["model"].is_null());
  EXPECT_TRUE(object["radiometry"]["emissivity"].is_null());
  EXPECT_TRUE(object["lenses"]["calibrated"].is_null());
  EXPECT_EQ(object.count("errors"), 0U);
  EXPECT_NE(textOf(readings).find("- (the core is not radiometric)"), std::string::npos);

  readings.lens_not_read = true;
  EXPECT_EQ(jsonOf(readings)["errors"]["lenses.calibrated"], "no folder is named");
}

TEST(CameraInfo, TextsFromTheNetwork_CannotSteerTheTerminal) {
  CameraReadings readings = complete();
  readings.camera.model = "\x1b[2J";
  readings.core->part_number.value = "\x1b[2J";
  EXPECT_EQ(textOf(readings).find('\x1b'), std::string::npos);
  EXPECT_EQ(infoJson(infoSections(readings)).find('\x1b'), std::string::npos);
}

TEST(CoreModel, PartNumber_TellsModelSpeedAndRadiometry) {
  const auto slow = coreModelOf("46324001H-SINLX^^^^^^^^^^^^^^^^^");
  ASSERT_TRUE(slow);
  EXPECT_EQ(slow->name, "KEO_320");
  EXPECT_EQ(slow->height, 256);
  EXPECT_FALSE(slow->fast);
  EXPECT_TRUE(slow->radiometric);
  const auto alternative = coreModelOf("46000081H-XPNLF");
  ASSERT_TRUE(alternative);
  EXPECT_EQ(alternative->name, "KEO_640");
  EXPECT_TRUE(alternative->fast);
  EXPECT_FALSE(alternative->radiometric);
}

TEST(CoreModel, UnknownOrShortPartNumber_TellsNothing) {
  for (const char* const text : {"", "46", "46640", "46640001X-F", "46999001H-FPNLX", "^^^^^^^^^^^^^^^^"}) {
    EXPECT_FALSE(coreModelOf(text)) << text;
  }
}

}  // namespace
}  // namespace keocam::cli
