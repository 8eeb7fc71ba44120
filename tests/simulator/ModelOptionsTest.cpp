// The program's options for models: what the cameras get, how several combine, and what contradicts them.
#include <gtest/gtest.h>
#include <stdio.h>

#include <array>

#include "TerminalJob.h"
#include "TestHost.h"
#include "simulator/CommandLine.h"
#include "simulator/RegisterAddresses.h"
#include "simulator/core/ModelCatalogue.h"
#include "simulator/core/ThermalCore.h"

namespace {

using namespace simulator;
using ::testing::internal::CaptureStderr;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStderr;
using ::testing::internal::GetCapturedStdout;

std::variant<ProgramOptions, int> parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "keocam-simulator");
  return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

std::vector<CameraOptions> camerasOf(const std::vector<const char*>& arguments) {
  return std::get<ProgramOptions>(parse(arguments)).cameras;
}

TEST(ModelOptions, Model_SaysPartNumberSizeRateAndSerial) {
  const CameraOptions slow = camerasOf({"--model", "324-slow"}).at(0);
  EXPECT_EQ(slow.core->identity().part_number, "46324001H-SPNLX");
  EXPECT_EQ(slow.core->flashGeometry().slots[0].table_bytes, 320U * 256 * 4);
  EXPECT_FALSE(slow.core->radiometric());
  EXPECT_TRUE(slow.sensor == (ImageSize{320, 256}));
  EXPECT_EQ(slow.frame_rate_hz, 9.0);
  EXPECT_EQ(slow.serial, "KEOC2001");
  const CameraOptions fast = camerasOf({"--model", "168r-fast", "--fps", "60", "--serial", "KEOE2001"}).at(0);
  EXPECT_TRUE(fast.core->radiometric());
  EXPECT_TRUE(fast.sensor == (ImageSize{160, 128}));
  EXPECT_EQ(fast.frame_rate_hz, 60.0);
  EXPECT_EQ(fast.serial, "KEOE2001");
}

TEST(ModelOptions, OneModelForSeveralCameras_IsThatOfAll) {
  const auto cameras = camerasOf({"--cameras", "3", "--model", "160-slow"});
  ASSERT_EQ(cameras.size(), 3U);
  for (const CameraOptions& camera : cameras) EXPECT_EQ(camera.core->identity().part_number, "46160025H-SPNLX");
  EXPECT_EQ(cameras[2].serial, "KEOC2003");
}

TEST(ModelOptions, SeveralModels_AreOneForEachCameraInOrder) {
  for (const std::vector<const char*>& count : {std::vector<const char*>{}, {"--cameras", "2"}}) {
    std::vector<const char*> arguments{"--model", "336-slow", "--model", "160r-fast"};
    arguments.insert(arguments.end(), count.begin(), count.end());
    const auto cameras = camerasOf(arguments);
    ASSERT_EQ(cameras.size(), 2U);
    EXPECT_TRUE(cameras[0].sensor == (ImageSize{336, 256}));
    EXPECT_TRUE(cameras[1].sensor == (ImageSize{160, 128}));
    EXPECT_EQ(cameras[0].serial, "KEOC2001");
    EXPECT_EQ(cameras[1].serial, "KEOD2002") << "numbers count upwards, letters are the models'";
    EXPECT_EQ(cameras[0].frame_rate_hz, 9.0);
    EXPECT_EQ(cameras[1].frame_rate_hz, 30.0);
  }
}

TEST(ModelOptions, SlowPartNumberByItself_LimitsTheRateToo) {
  const CameraOptions camera = camerasOf({"--core-part-number", "46640019H-SPNLX"}).at(0);
  EXPECT_EQ(camera.frame_rate_hz, 9.0);
  EXPECT_EQ(camera.serial, "KEOD2001");
}

struct Mistake {
  std::vector<const char*> arguments;
  std::string named;  ///< in the error's text
};

TEST(ModelOptions, Mistakes_AreUsageErrorsThatNameThem) {
  const Mistake mistakes[] = {
      {{"--model", "nonsense"}, "there is no model 'nonsense'; --list-models"},
      {{"--model"}, "--model"},
      {{"--cameras", "3", "--model", "640-slow", "--model", "640-fast"}, "2 models are too few for 3 cameras"},
      {{"--cameras", "1", "--model", "640-slow", "--model", "640-fast"}, "2 models are too many for 1 camera"},
      {{"--model", "640-slow", "--size", "640x512"}, "--size excludes --model"},
      {{"--model", "640-slow", "--no-core"}, "--model excludes --no-core"},
      {{"--model", "640-slow", "--core-part-number", "46640019H-SPNLX"}, "--model excludes --core-part-number"},
      {{"--model", "640-slow", "--fps", "9.5"}, "46640019H-SPNLX makes at most 9 frames"},
      {{"--model", "640-fast", "--model", "alt-81-slow", "--fps", "30"}, "46000081H-XPNLS makes at most 9 frames"},
      {{"--core-part-number", "46640019H-SPNLX", "--fps", "30"}, "makes at most 9 frames"},
      {{"--json"}, "--list-models"},
      {{"--serial", ""}, "--serial: '' does not serve as a serial number: it needs 1 to 15 characters"},
      {{"--serial", "KEOD200120012001"}, "--serial: 'KEOD200120012001' does not serve"},
      {{"--serial", "KEODABC99999999", "--cameras", "2"}, "--serial: 'KEODABC100000000'"},
  };
  for (const Mistake& mistake : mistakes) {
    CaptureStderr();
    const auto parsed = parse(mistake.arguments);
    const std::string errors = GetCapturedStderr();
    ASSERT_TRUE(std::holds_alternative<int>(parsed)) << mistake.named;
    EXPECT_EQ(std::get<int>(parsed), 2) << mistake.named;
    EXPECT_NE(errors.find(mistake.named), std::string::npos) << errors;
  }
}

TEST(ModelOptions, MoreModelsThanCamerasArePossible_IsAUsageError) {
  std::vector<const char*> arguments;
  for (int i = 0; i < 65; ++i) arguments.insert(arguments.end(), {"--model", "160-fast"});
  EXPECT_EQ(std::get<int>(parse(arguments)), 2);
}

TEST(ModelOptions, List_IsPrintedInPlaceOfCameras) {
  for (const bool json : {false, true}) {
    CaptureStdout();
    const auto parsed = json ? parse({"--list-models", "--json"}) : parse({"--list-models", "--model", "640-slow"});
    EXPECT_EQ(GetCapturedStdout(), json ? modelJson() : modelTable());
    EXPECT_EQ(std::get<int>(parsed), 0);
  }
}

TEST(ModelProgram, List_EndsTheProgramWithZero) {
  FILE* program = ::popen((std::string(KEOCAM_SIMULATOR_PROGRAM) + " --list-models").c_str(), "r");
  ASSERT_NE(program, nullptr);
  std::array<char, 8192> text{};
  const std::size_t size = ::fread(text.data(), 1, text.size() - 1, program);
  EXPECT_EQ(::pclose(program), 0);
  EXPECT_EQ(std::string(text.data(), size), modelTable());
}

TEST(ModelProgram, CamerasOfTwoModels_HaveTheirCoresSizes) {
  TerminalJob job({KEOCAM_SIMULATOR_PROGRAM, "--address", "127.0.0.9", "--model", "324-slow", "--model", "168-fast"});
  ASSERT_TRUE(job.prints("ready"));
  TestHost first("127.0.0.9");
  EXPECT_EQ(first.read(address::kSensorWidth), 320U);
  EXPECT_EQ(first.read(address::kSensorHeight), 256U);
  TestHost second("127.0.0.10");
  EXPECT_EQ(second.read(address::kSensorWidth), 160U);
  EXPECT_EQ(second.read(address::kSensorHeight), 128U);
}

}  // namespace
