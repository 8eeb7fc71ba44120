// keocam range, and measuring in each of the ranges.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "CameraWithScene.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

constexpr uint8_t kGainMode = 10;
// A count of low gain is several of high gain.
constexpr double kUpperRangesTolerance_K = 1.5;

double centreOf(const Arguments& arguments) {
  const Ended measure = keocam(arguments);
  EXPECT_EQ(measure.status, 0) << measure.error;
  const json object = json::parse(measure.output, nullptr, false);
  return object.is_object() ? object["regions"][0]["mean"].get<double>() : 0.0;
}

TEST(KeocamRange, Middle_IsSetShownAndMeasuredIn) {
  CameraWithScene simulated("uniform:celsius=250");
  EXPECT_EQ(keocam({"range", "show"}).output, "low\n");
  const uint64_t corrections = simulated.core().ffcCount();
  const Ended set = keocam({"range", "set", "middle"});
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_EQ(set.output, "");
  EXPECT_TRUE(contains(set.error, "The core is in the middle range.")) << set.error;
  EXPECT_EQ(simulated.core().word(kGainMode), 1);
  EXPECT_EQ(simulated.core().ffcCount(), corrections + 1);
  EXPECT_EQ(keocam({"range", "show"}).output, "middle or high\n");
  EXPECT_EQ(json::parse(keocam({"range", "show", "--json"}).output),
            (json{{"camera", "KEOD2001"}, {"gain", "low"}, {"ranges", {"middle", "high"}}}));

  EXPECT_NEAR(centreOf(simulated.with({"measure", "--json", "spot:80,64"})), 250.0, kUpperRangesTolerance_K);
  EXPECT_NEAR(centreOf(simulated.with({"measure", "--json", "spot:80,64", "--range", "middle"})), 250.0,
              kUpperRangesTolerance_K);
  const Ended wrong = keocam(simulated.with({"measure", "--range", "low"}));
  EXPECT_EQ(wrong.status, 1);
  EXPECT_TRUE(contains(wrong.error, "\"keocam range set low\"")) << wrong.error;

  EXPECT_EQ(keocam({"range", "set", "low", "-q"}).status, 0);
  EXPECT_EQ(keocam({"range", "show"}).output, "low\n");
}

TEST(KeocamRange, High_TakesALensThatIsCalibratedForIt) {
  CameraWithScene simulated("uniform:celsius=450", CoreKind::Radiometric, simulator::CalibrationRange::High);
  EXPECT_EQ(keocam({"range", "set", "high"}).status, 2) << "without a calibration";
  const Ended other = keocam(simulated.with({"range", "set", "high", "--lens", "L13mm"}));
  EXPECT_EQ(other.status, 1);
  EXPECT_TRUE(contains(other.error, "the lens is not calibrated for it; nothing was sent")) << other.error;
  EXPECT_EQ(simulated.core().word(kGainMode), 2);

  const Ended set = keocam(simulated.with({"range", "set", "high"}));
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_TRUE(contains(set.error, "--range high")) << set.error;
  EXPECT_EQ(simulated.core().word(kGainMode), 1);
  EXPECT_NEAR(centreOf(simulated.with({"measure", "--json", "spot:80,64", "--range", "high"})), 450.0,
              kUpperRangesTolerance_K);
  const Ended guessed = keocam(simulated.with({"measure"}));
  EXPECT_TRUE(contains(guessed.error, "taken as the middle one")) << guessed.error;
}

TEST(KeocamRange, CoreThatComputes_GetsTheRangesResolution) {
  CameraWithScene simulated("uniform:celsius=60");
  ASSERT_EQ(keocam({"set", "-q", "radiometry=on", "radiometry-resolution=high"}).status, 0);
  EXPECT_EQ(keocam({"range", "set", "middle", "-q"}).status, 0);
  const Ended get = keocam({"get", "--json", "radiometry", "radiometry-resolution"});
  EXPECT_EQ(json::parse(get.output), (json{{"radiometry", true}, {"radiometry-resolution", "low"}}));
  EXPECT_NEAR(centreOf(simulated.with({"measure", "--json", "spot:80,64"})), 60.0, kUpperRangesTolerance_K);
}

TEST(KeocamRange, UnknownRange_IsStatus2) {
  const Ended set = keocam({"range", "set", "medium"});
  EXPECT_EQ(set.status, 2);
  EXPECT_TRUE(contains(set.error, "low, middle, high")) << set.error;
}

TEST(KeocamRange, SilentCore_IsStatus5AndSaysHowItStands) {
  CameraWithScene simulated("uniform:celsius=60");
  ChildProcess process(keocamWith({"range", "set", "middle"}));
  ASSERT_TRUE(process.waitFor(ChildProcess::Error, "Changing to the middle range", kPatience));
  simulated.core().setFault(simulator::CoreFault::NoAnswer, 1000);
  const Ended set = ended(process);
  EXPECT_EQ(set.status, 5) << set.error;
  EXPECT_TRUE(contains(set.error, "The change to the middle range is not complete: ")) << set.error;
}

TEST(KeocamRange, PlainCore_HasNoSettingsOfRadiometry) {
  const CameraWithScene simulated("uniform:celsius=60", CoreKind::Plain);
  const Ended all = keocam({"get", "--json"});
  EXPECT_EQ(all.status, 0) << all.error;
  EXPECT_FALSE(json::parse(all.output).contains("emissivity"));
  const Ended get = keocam({"get", "emissivity", "contrast"});
  EXPECT_EQ(get.status, 1);
  EXPECT_TRUE(contains(get.output, "contrast ")) << get.output;
  EXPECT_TRUE(contains(get.error, "this one is not radiometric")) << get.error;
  const Ended set = keocam({"set", "emissivity=0.9"});
  EXPECT_EQ(set.status, 1);
  EXPECT_TRUE(contains(set.error, "this one is not radiometric")) << set.error;
}

}  // namespace
}  // namespace keocam::cli
