// The keocam program: streams that go well, or well enough.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "KeocamRun.h"

namespace keocam::cli {
namespace {

TEST(KeocamStream, HundredFrames_ArriveWithoutLoss) {
  const Simulator simulator({"--cameras", "2", "--fps", "50"});
  const Ended stream = keocam({"stream", "-c", "KEOD2002", "--frames", "100", "--json"});
  ASSERT_EQ(stream.status, 0) << stream.error;
  const auto totals = nlohmann::json::parse(stream.output);
  EXPECT_EQ(totals["serial_number"], "KEOD2002");
  EXPECT_EQ(totals["ended_by"], "frames");
  EXPECT_EQ(totals["frames"], 100);
  EXPECT_EQ(totals["frames_lost"], 0);
  EXPECT_EQ(totals["width"], 640);
  EXPECT_EQ(totals["height"], 512);
  EXPECT_EQ(totals["pixel_format"], "Mono14");
  EXPECT_GT(totals["frames_per_second"], 20.0);
  EXPECT_GE(totals["packet_size_bytes"], 576);
  EXPECT_LT(totals["raw_min"], totals["raw_mean"]);
  EXPECT_LT(totals["raw_mean"], totals["raw_max"]);
  EXPECT_LE(totals["raw_max"], 16383);
  EXPECT_TRUE(contains(stream.error, "frames/s, lost 0 (0 in all)")) << stream.error;
}

TEST(KeocamStream, Duration_EndsTheStream) {
  const Simulator simulator({"--size", "160x128"});
  const auto totals = nlohmann::json::parse(keocam({"stream", "--duration", "1.5", "--json", "-q"}).output);
  EXPECT_EQ(totals["ended_by"], "duration");
  EXPECT_GE(totals["duration_s"], 1.5);
  EXPECT_GT(totals["frames"], 1);
}

TEST(KeocamStream, Verbose_KeepsTheLibrarysLinesOffStandardOutput) {
  const Simulator simulator({"--size", "160x128"});
  const Ended plain = keocam({"stream", "-n", "3", "--json", "-q"});
  EXPECT_EQ(plain.error, "");
  const Ended verbose = keocam({"stream", "-n", "3", "--json", "-v"});
  EXPECT_EQ(nlohmann::json::parse(verbose.output)["frames"], 3);
  EXPECT_TRUE(contains(verbose.error, "Camera: Starting Acquisition")) << verbose.error;
}

TEST(KeocamStream, LostFrames_AreCounted) {
  const Simulator simulator({"--size", "160x128", "--fps", "50", "--short-packet", "20"});
  const auto totals = nlohmann::json::parse(keocam({"stream", "--frames", "100", "--json", "-q"}).output);
  EXPECT_EQ(totals["frames"], 100);
  EXPECT_GT(totals["frames_lost"], 0);
  EXPECT_GE(totals["frames_lost"], totals["frames_incomplete"]);
  // The camera's own rate is a second witness: what came and what was lost together must amount to it.
  const double time_s = 99.0 / totals["frames_per_second"].get<double>();
  const double sent = totals["frames"].get<double>() + totals["frames_lost"].get<double>();
  EXPECT_NEAR((sent - 1.0) / time_s, 50.0, 2.5);
}

TEST(KeocamStream, CalibrationThatIsMissing_IsSaidAndTheStreamGoesOn) {
  const Simulator simulator({"--size", "160x128"});
  const Ended stream = keocam({"stream", "-n", "1", "--json", "--calibrations", "/nowhere"});
  EXPECT_EQ(stream.status, 0);
  EXPECT_TRUE(contains(stream.error, "/nowhere/KEOD2001")) << stream.error;
}

TEST(KeocamStream, ReaderOfMessagesThatGoesAway_EndsTheStream) {
  const Simulator simulator({"--size", "160x128"});
  ChildProcess stream(keocamWith({"stream", "--json"}));
  ASSERT_TRUE(stream.waitFor(ChildProcess::Error, "frames/s", kPatience));
  stream.stopReading(ChildProcess::Error);
  const Ended end = ended(stream);
  EXPECT_EQ(end.status, 0);
  EXPECT_EQ(nlohmann::json::parse(end.output)["ended_by"], "signal");
}

}  // namespace
}  // namespace keocam::cli
