// keocam measure, against scenes whose temperatures are known.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <nlohmann/json.hpp>
#include <sstream>

#include "CameraWithScene.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

// The columns' and rows' offsets, and the rounding to counts, of the low range.
constexpr double kTolerance_K = 0.3;

// A disc of 90 degrees in the middle of 25 degrees.
constexpr const char* kHotSpot = "hot-spot:low=25,high=90,size=0.5";

json measured(const Arguments& arguments) {
  const Ended measure = keocam(arguments);
  EXPECT_EQ(measure.status, 0) << measure.error;
  const json object = json::parse(measure.output, nullptr, false);
  EXPECT_TRUE(object.is_object()) << measure.output;
  return object;
}

TEST(KeocamMeasure, HotSpot_IsAsHotAsItIs) {
  CameraWithScene simulated(kHotSpot);
  const json object = measured(simulated.with({"measure", "--json", "hot=spot:80,64", "cold=box:2,2,10,10"}));
  EXPECT_EQ(object["camera"], "KEOD2001");
  EXPECT_EQ(object["lens"], "L25mm");
  EXPECT_EQ(object["range"], "low");
  EXPECT_EQ(object["emissivity"], 1.0);
  EXPECT_EQ(object["reflected"], 22.0);
  EXPECT_NEAR(object["regions"][0]["mean"], 90.0, kTolerance_K);
  EXPECT_NEAR(object["regions"][1]["mean"], 25.0, kTolerance_K);
  EXPECT_EQ(object["regions"][1]["pixels"], 100);
}

TEST(KeocamMeasure, Measuring_ChangesNothingOnTheCore) {
  CameraWithScene simulated(kHotSpot);
  const simulator::CoreSettings before = simulated.core().settings();
  const uint64_t corrections = simulated.core().ffcCount();
  EXPECT_EQ(keocam(simulated.with({"measure", "--emissivity", "0.7", "--reflected", "30"})).status, 0);
  EXPECT_TRUE(simulated.core().settings() == before);
  EXPECT_EQ(simulated.core().ffcCount(), corrections);
}

TEST(KeocamMeasure, WithoutRegions_ThePictureAndItsCentreAreATable) {
  CameraWithScene simulated(kHotSpot);
  const Ended measure = keocam(simulated.with({"measure"}));
  EXPECT_EQ(measure.status, 0) << measure.error;
  EXPECT_EQ(measure.output.rfind("REGION   MIN °C  MEAN °C  MAX °C  SD ", 0), 0U) << measure.output;
  EXPECT_TRUE(contains(measure.output, "\npicture  2")) << measure.output;
  EXPECT_TRUE(contains(measure.output, "\ncentre   ")) << measure.output;
  EXPECT_TRUE(contains(measure.error, "Lens L25mm, range low, emissivity 1, reflected 22 °C")) << measure.error;
}

TEST(KeocamMeasure, PlainCore_IsMeasuredByTheUsualParameters) {
  CameraWithScene simulated(kHotSpot, CoreKind::Plain);
  const json object = measured(simulated.with({"measure", "--json", "spot:80,64"}));
  EXPECT_EQ(object["emissivity"], 0.95);
  EXPECT_EQ(object["reflected"], 20.0);
  EXPECT_NEAR(object["regions"][0]["mean"], 90.0, kTolerance_K);
}

TEST(KeocamMeasure, ObjectParameters_HoldForTheRun) {
  CameraWithScene simulated(kHotSpot + std::string(",distance=30,humidity=0.9"), CoreKind::Plain);
  const json wrong = measured(simulated.with({"measure", "--json", "spot:80,64", "--emissivity", "0.5"}));
  EXPECT_GT(wrong["regions"][0]["mean"], 110.0);
  const json right = measured(simulated.with({"measure", "--json", "spot:80,64", "--unit", "F", "--reflected", "68",
                                              "--atmosphere", "68", "--distance", "30", "--humidity", "90%"}));
  EXPECT_EQ(right["unit"], "F");
  EXPECT_EQ(right["distance_m"], 30.0);
  EXPECT_NEAR(right["regions"][0]["mean"], 194.0, kTolerance_K * 1.8);
}

TEST(KeocamMeasure, WithoutCalibration_SaysThatNothingIsCorrected) {
  CameraWithScene simulated(kHotSpot);
  const Ended measure = keocam({"measure", "--json"});
  EXPECT_EQ(measure.status, 0) << measure.error;
  EXPECT_TRUE(json::parse(measure.output)["lens"].is_null());
  EXPECT_TRUE(contains(measure.error, "not corrected for the lens")) << measure.error;
  EXPECT_TRUE(contains(measure.error, "--calibrations")) << measure.error;
}

TEST(KeocamMeasure, AnotherLens_CorrectsOtherwise) {
  CameraWithScene simulated(kHotSpot);
  const json held = measured(simulated.with({"measure", "--json", "spot:80,64"}));
  const json other = measured(simulated.with({"measure", "--json", "spot:80,64", "--lens", "L13mm"}));
  EXPECT_EQ(other["lens"], "L13mm");
  EXPECT_NE(held["regions"][0]["mean"], other["regions"][0]["mean"]);
  const Ended unknown = keocam(simulated.with({"measure", "--lens", "L13"}));
  EXPECT_EQ(unknown.status, 1);
  EXPECT_TRUE(contains(unknown.error, "did you mean \"L13mm\"")) << unknown.error;
}

TEST(KeocamMeasure, UnknownHeldLens_IsStatus1WithTheWayOut) {
  CameraWithScene simulated(kHotSpot);
  simulated.core().setLensTable(1, simulator::Bytes(simulated.core().lensTable(1).size(), 7));
  const Ended measure = keocam(simulated.with({"measure"}));
  EXPECT_EQ(measure.status, 1);
  EXPECT_TRUE(contains(measure.error, "--lens NAME")) << measure.error;
}

TEST(KeocamMeasure, CoreThatComputes_IsTakenAtItsWord) {
  CameraWithScene simulated(kHotSpot);
  ASSERT_EQ(keocam({"set", "-q", "radiometry-resolution=high", "radiometry=on"}).status, 0);
  const json object = measured(simulated.with({"measure", "--json", "spot:80,64", "--emissivity", "1"}));
  EXPECT_EQ(object["computed_by"], "core");
  EXPECT_TRUE(object["distance_m"].is_null());
  EXPECT_NEAR(object["regions"][0]["mean"], 90.0, kTolerance_K);

  const Ended refused = keocam(simulated.with({"measure", "--emissivity", "0.9"}));
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(contains(refused.error, "\"keocam set emissivity=0.9\"")) << refused.error;
}

TEST(KeocamMeasure, Watching_GivesALineForEachMeasurement) {
  CameraWithScene simulated(kHotSpot);
  const Ended watch = keocam(simulated.with(
      {"measure", "--watch", "--interval", "0.1", "--count", "3", "--csv", "a=spot:80,64", "b=spot:5,5"}));
  EXPECT_EQ(watch.status, 0) << watch.error;
  EXPECT_EQ(std::count(watch.output.begin(), watch.output.end(), '\n'), 1 + 3 * 2) << watch.output;
  std::istringstream lines(watch.output);
  std::string line;
  std::getline(lines, line);
  std::vector<std::string> times;
  while (std::getline(lines, line)) times.push_back(line.substr(0, line.find(',')));
  EXPECT_TRUE(std::is_sorted(times.begin(), times.end()));
  EXPECT_NE(times.front(), times.back());
}

TEST(KeocamMeasure, CtrlC_EndsWatchingProperly) {
  CameraWithScene simulated(kHotSpot);
  ChildProcess process(keocamWith(simulated.with({"measure", "--watch", "-i", "0.05", "hot=spot:80,64"})));
  ASSERT_TRUE(process.waitFor(ChildProcess::Output, " hot: min ", kPatience));
  process.signal(SIGINT);
  const Ended interrupted = ended(process);
  EXPECT_EQ(interrupted.status, 0) << interrupted.error;
  EXPECT_EQ(interrupted.output.back(), '\n');
  EXPECT_EQ(keocam({"range", "show"}).status, 0) << "the camera is free again";
}

TEST(KeocamMeasure, OnATerminal_TheTableIsRewritten) {
  CameraWithScene simulated(kHotSpot);
  const std::string command = "stty cols 80; exec " KEOCAM_PROGRAM " measure -q -w -i 0.1 -n 2 hot=spot:80,64";
  ChildProcess process({"env", "TERM=xterm", "script", "-qec", command, "/dev/null"});
  const Ended watch = ended(process);
  EXPECT_EQ(watch.status, 0) << watch.output;
  EXPECT_TRUE(contains(watch.output, "\x1b[5AFRAMES/S  CORE °C  LENS  RANGE")) << watch.output;
}

TEST(KeocamMeasure, RegionPartlyOutside_IsWarnedOf) {
  CameraWithScene simulated(kHotSpot);
  const Ended cut = keocam(simulated.with({"measure", "edge=box:150,0,20,10"}));
  EXPECT_EQ(cut.status, 0);
  EXPECT_TRUE(contains(cut.error, "\"edge\" lies partly outside the picture of 160 x 128 pixels")) << cut.error;
  const Ended outside = keocam(simulated.with({"measure", "spot:160,0"}));
  EXPECT_EQ(outside.status, 1);
  EXPECT_EQ(outside.output, "");
  EXPECT_TRUE(contains(outside.error, "columns 0 to 159 and rows 0 to 127")) << outside.error;
}

TEST(KeocamMeasure, WhatMakesNoSense_IsStatus2BeforeAnyCameraIsLookedFor) {
  for (const Arguments& arguments :
       {Arguments{"measure", "box:1,2"}, Arguments{"measure", "--emissivity", "nan"},
        Arguments{"measure", "--unit", "R"}, Arguments{"measure", "--histogram", "5", "--csv"},
        Arguments{"measure", "--humidity", "50"}, Arguments{"measure", "--lens", "L25mm"}}) {
    const Ended measure = keocam(arguments);
    EXPECT_EQ(measure.status, 2) << measure.error;
    EXPECT_EQ(measure.output, "");
  }
}

TEST(KeocamMeasure, NoFrames_AreStatus5) {
  const Simulator simulator({"--size", "160x128", "--loss", "1000", "--uart-pacing", "off"});
  const Ended measure = keocam({"measure"});
  EXPECT_EQ(measure.status, 5);
  EXPECT_EQ(measure.output, "");
  EXPECT_TRUE(contains(measure.error, "no complete frame has arrived")) << measure.error;
}

}  // namespace
}  // namespace keocam::cli
