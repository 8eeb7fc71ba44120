// keocam info, against cameras in software.
#include <gtest/gtest.h>

#include <csignal>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

#include "../lens/CameraWithLenses.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

json parsed(const Ended& info) {
  const json object = json::parse(info.output, nullptr, false);
  EXPECT_TRUE(object.is_object()) << info.output << info.error;
  return object;
}

// "section.key" of all that is told, but for what went wrong.
std::set<std::string> keysOf(const Ended& info) {
  std::set<std::string> keys;
  const json object = parsed(info);
  for (const auto& [section, part] : object.items()) {
    if (section == "errors") continue;
    for (const auto& [key, value] : part.items()) keys.insert(section + '.' + key);
  }
  return keys;
}

std::set<std::string> keysOfACamera() {
  const CameraWithCore simulated;
  return keysOf(keocam({"info", "--json"}));
}

TEST(KeocamInfo, OfACamera_TellsWhatItIs) {
  CameraWithLenses simulated;
  simulated.putIn(1, 1);
  Arguments arguments = simulated.lens({});
  arguments[0] = "info";
  arguments.push_back("--json");
  const Ended info = keocam(arguments);
  EXPECT_EQ(info.status, 0) << info.error;
  EXPECT_EQ(info.error, "");
  json object = parsed(info);
  const simulator::CoreIdentity identity;
  EXPECT_EQ(object["camera"]["serial_number"], "KEOD2001");
  EXPECT_EQ(object["camera"]["address"], "127.0.0.2");
  EXPECT_EQ(object["link"]["access"], "free");
  EXPECT_EQ(object["link"]["packet_size_before_negotiation_bytes"], 1500);
  EXPECT_EQ(object["link"]["link_speed_mbit_s"], 1000);
  EXPECT_EQ(object["core"]["core_serial_number"], identity.core_serial);
  EXPECT_EQ(object["lenses"]["calibrated"].size(), 3U);
  EXPECT_EQ(object["lenses"]["held"], "L13mm");
  EXPECT_EQ(object.count("errors"), 0U);
}

TEST(KeocamInfo, Asking_ChangesNothingOnTheCore) {
  CameraWithCore simulated;
  const simulator::CoreSettings before = simulated.core().settings();
  const uint64_t corrections = simulated.core().ffcCount();
  const Ended info = keocam({"info"});
  EXPECT_EQ(info.status, 0) << info.error;
  EXPECT_FALSE(contains(info.output, "not read")) << info.output;
  EXPECT_TRUE(simulated.core().settings() == before);
  EXPECT_EQ(simulated.core().ffcCount(), corrections);
}

TEST(KeocamInfo, SilentCore_LeavesTheCameraToBeTold) {
  const std::set<std::string> all = keysOfACamera();
  EXPECT_EQ(all.count("core.radiometric"), 1U);
  EXPECT_EQ(all.count("lenses.held"), 1U);
  const Simulator simulator({"--no-core", "--uart-pacing", "off"});
  const Ended info = keocam({"info", "--json"});
  EXPECT_EQ(info.status, 5);
  EXPECT_TRUE(contains(info.error, "The thermal core of KEOD2001")) << info.error;
  json object = parsed(info);
  EXPECT_EQ(object["camera"]["model"], "KEOsim-640");
  EXPECT_EQ(object["link"]["packet_size_before_negotiation_bytes"], 1500);
  EXPECT_TRUE(object["core"]["part_number"].is_null());
  EXPECT_EQ(object["errors"]["core.part_number"], "the core does not answer, or is not ready");
  EXPECT_EQ(object["errors"]["core.model"], "the core does not answer, or is not ready");
  EXPECT_EQ(object["errors"]["radiometry.emissivity"], "the core does not answer, or is not ready");
  EXPECT_EQ(keysOf(info), all);
}

TEST(KeocamInfo, CameraOfAnother_IsToldAsFarAsItGoes) {
  const std::set<std::string> all = keysOfACamera();
  const Simulator simulator({"--size", "160x128"});
  ChildProcess stream(keocamWith({"stream"}));
  ASSERT_TRUE(stream.waitFor(ChildProcess::Error, "frames/s", kPatience)) << stream.text(ChildProcess::Error);
  const Ended info = keocam({"info"});
  EXPECT_EQ(info.status, 4) << info.error;
  EXPECT_TRUE(contains(info.output, "in use by another program or host")) << info.output;
  EXPECT_TRUE(contains(info.output, "KEOD2001")) << info.output;
  EXPECT_TRUE(contains(info.output, "not read: another program or host controls the camera")) << info.output;
  EXPECT_EQ(keysOf(keocam({"info", "--json"})), all);
  stream.signal(SIGINT);
  EXPECT_EQ(ended(stream).status, 0);
}

TEST(KeocamInfo, CoreThatRefusesFromSomePointOn_IsToldUpToThere) {
  CameraWithCore simulated;
  constexpr uint32_t kFeatureNotEnabled = 0x0A;
  constexpr uint8_t kSerialNumbers = 4;
  simulated.core().setFault(simulator::CoreFault::WrongStatus,
                            {kFeatureNotEnabled, simulator::CoreFaultSetting::kForGood, 1, kSerialNumbers});
  const Ended info = keocam({"info", "--json"});
  EXPECT_EQ(info.status, 1) << info.error;
  json object = parsed(info);
  EXPECT_EQ(object["core"]["core_serial_number"], simulator::CoreIdentity().core_serial);
  EXPECT_EQ(object["core"]["radiometric"], true);
  EXPECT_EQ(object["core"].count("speed_class"), 1U);
  EXPECT_TRUE(object["core"]["software_version"].is_null());
  EXPECT_TRUE(contains(object["errors"]["core.software_version"], "CAM_FEATURE_NOT_ENABLED")) << info.output;
}

TEST(KeocamInfo, PartNumberTooShort_IsSaidWithWhatWorksNevertheless) {
  const Simulator simulator({"--size", "160x128", "--core-part-number", "4616"});
  const Ended info = keocam({"info"});
  EXPECT_EQ(info.status, 0) << info.error;
  EXPECT_TRUE(contains(info.output, "- (the part number is too short to be known)")) << info.output;
  EXPECT_TRUE(contains(info.error, "The core's part number \"4616\" is too short to be known")) << info.error;
  EXPECT_FALSE(contains(info.error, "basic_string")) << info.error;
  for (const Arguments& works : {Arguments{"measure", "--json"}, {"set", "contrast=40"}, {"stream", "-n", "1"}}) {
    const Ended run = keocam(works);
    EXPECT_EQ(run.status, 0) << works.front() << run.error;
  }
}

TEST(KeocamInfo, UnreadableCalibration_IsNamedAndTheRestIsTold) {
  const CameraWithCore simulated;
  const Ended info = keocam({"info", "--json", "--calibrations", "/nowhere/at/all"});
  EXPECT_EQ(info.status, 1) << info.error;
  json object = parsed(info);
  EXPECT_EQ(object["errors"].count("lenses.calibrated"), 1U) << info.output;
  EXPECT_EQ(object["core"]["radiometric"], true);
}

TEST(KeocamInfo, OnATerminal_FitsItsColumns) {
  const CameraWithCore simulated;
  const std::string command = "stty cols 80; exec " KEOCAM_PROGRAM " info";
  ChildProcess process({"env", "TERM=xterm", "script", "-qec", command, "/dev/null"});
  const Ended info = ended(process);
  EXPECT_EQ(info.status, 0) << info.output;
  std::istringstream lines(info.output);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 83U) << line;  // with "\r" and a "°"
}

}  // namespace
}  // namespace keocam::cli
