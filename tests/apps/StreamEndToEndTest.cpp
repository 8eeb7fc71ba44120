// The keocam program: streams that go well, or well enough.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "KeocamRun.h"
#include "core/CameraWithCore.h"

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

TEST(KeocamStream, Looking_ChangesNothingOnTheCore) {
  CameraWithCore simulated;
  const Ended set = keocam({"set", "emissivity=0.9", "ffc-mode=manual", "-q"});
  ASSERT_EQ(set.status, 0) << set.error;
  const simulator::CoreSettings before = simulated.core().settings();
  const uint64_t corrections = simulated.core().ffcCount();
  const std::size_t asked = simulated.asked().size();

  const Ended stream = keocam({"stream", "--frames", "2", "--json"});
  EXPECT_EQ(stream.status, 0) << stream.error;
  EXPECT_EQ(nlohmann::json::parse(stream.output)["frames"], 2);
  EXPECT_TRUE(simulated.core().settings() == before);
  EXPECT_EQ(simulated.core().ffcCount(), corrections);
  EXPECT_EQ(simulated.asked().size(), asked) << "the core is not even asked";
  const auto settings = nlohmann::json::parse(keocam({"get", "emissivity", "ffc-mode", "--json"}).output);
  EXPECT_EQ(settings["emissivity"], 0.9);
  EXPECT_EQ(settings["ffc-mode"], "manual");
}

// Frames come of every camera: what its core or its serial number is, matters to other verbs.
TEST(KeocamStream, FramesOfAnyCamera_Come) {
  const Arguments cameras[] = {
      {"--no-core"}, {"--core-part-number", "99999999X-FRNLX"}, {"--core-part-number", "4616"}, {"--serial", "AB1"}};
  for (Arguments camera : cameras) {
    camera.insert(camera.end(), {"--size", "160x128"});
    const Simulator simulator(camera);
    const Ended stream = keocam({"stream", "--frames", "3", "--json", "-q"});
    EXPECT_EQ(stream.status, 0) << camera.front() << stream.error;
    EXPECT_EQ(stream.error, "") << camera.front();
    EXPECT_EQ(nlohmann::json::parse(stream.output)["frames"], 3) << camera.front();
  }
}

TEST(KeocamStream, CameraOfTheSlowClass_LosesNothingAndItsLimitIsTold) {
  const Simulator simulator({"--serial", "KEOC2001", "--size", "160x128"});
  const Ended stream = keocam({"stream", "--frames", "30", "--json"});
  ASSERT_EQ(stream.status, 0) << stream.error;
  const auto totals = nlohmann::json::parse(stream.output);
  EXPECT_EQ(totals["frames_lost"], 0);
  EXPECT_GT(totals["frames_per_second"], 20.0);
  EXPECT_TRUE(contains(stream.error, "applications get at most 10 frames a second")) << stream.error;
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
