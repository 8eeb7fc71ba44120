// The value of a pixel is the one of which a host makes the true temperature again.
#include "simulator/scene/PixelResponse.h"

#include <gtest/gtest.h>

#include "HostModel.h"
#include "simulator/calibration/TemperatureCorrection.h"

namespace {

using namespace simulator;
using scene_test::HostModel;

class PixelResponses : public ::testing::Test {
 protected:
  double counts(double celsius) const { return PixelResponse(settings, core).countsFor(celsius); }
  void sameAsTruth() {
    const Surroundings& truth = settings.surroundings;
    core.object = {truth.emissivity, truth.reflected_celsius, truth.atmospheric_celsius};
  }
  TemperatureSceneSettings settings;
  CoreResponse core;
};

TEST_F(PixelResponses, HighGain_IsAsWorkedOutByHand) {
  EXPECT_NEAR(counts(16.08463103), 3000, 1e-4);
  EXPECT_NEAR(counts(54.52166098), 5000, 1e-4);
  EXPECT_NEAR(counts(-40), 1246.9021061, 1e-6);
  EXPECT_NEAR(counts(100), 8236.1102098, 1e-6);
}

TEST_F(PixelResponses, LowGain_IsAsWorkedOutByHand) {
  core.low_gain = true;
  EXPECT_NEAR(counts(67.05060916), 1500, 1e-4);
  EXPECT_NEAR(counts(287.34060097), 5000, 1e-4);
  EXPECT_NEAR(counts(562.35322928), 12000, 1e-4);
}

TEST_F(PixelResponses, OtherSurroundings_AreAsWorkedOutByHand) {
  settings.surroundings = {0.6, 60, 15, 30, 0.9, 0.9};
  EXPECT_NEAR(counts(80), 6246.2516997, 1e-6);
  core.low_gain = true;
  EXPECT_NEAR(counts(80), 1562.9700446764, 1e-6);
}

TEST_F(PixelResponses, HostThatKnowsTheSurroundings_GetsTheTruth) {
  for (const bool low_gain : {false, true}) {
    core.low_gain = low_gain;
    for (const double emissivity : {0.6, 0.95, 1.0}) {
      for (const double reflected : {-10.0, 60.0}) {
        for (const double distance : {1.0, 30.0}) {
          for (const double humidity : {0.2, 0.9}) {
            settings.surroundings = {emissivity, reflected, 5, distance, humidity, 0.9};
            const HostModel host{low_gain, emissivity, reflected, 5, distance, humidity, 0.9};
            for (int celsius = -40; celsius <= 550; celsius += 10) {
              ASSERT_NEAR(host.celsiusOf(counts(celsius)), celsius, 1e-7) << emissivity << " " << reflected;
            }
          }
        }
      }
    }
  }
}

TEST_F(PixelResponses, LinearModes_CountKelvins) {
  sameAsTruth();
  for (const bool low_gain : {false, true}) {
    core.low_gain = low_gain;
    core.scale = PixelScale::KelvinTimes25;
    EXPECT_NEAR(counts(19.45), 7315, 1e-6);
    core.scale = PixelScale::KelvinTimes2p5;
    EXPECT_NEAR(counts(19.45), 731.5, 1e-7);
    EXPECT_NEAR(counts(1000), 3182.875, 1e-6);
  }
}

TEST_F(PixelResponses, CoreToldOtherThanTheTruth_ErrsAsAHostWould) {
  core.scale = PixelScale::KelvinTimes25;
  core.object = {1.0, 22, 22};
  // The core goes by the same radiance, with its own parameters.
  HostModel belief{false, 1.0, 22, 22, 1, 0.5, 1};
  CoreResponse raw;
  const double expected_celsius = belief.celsiusOf(PixelResponse(settings, raw).countsFor(80));
  EXPECT_NEAR(counts(80) / 25 - 273.15, expected_celsius, 1e-7);
  EXPECT_NEAR(expected_celsius, 77.53, 0.01);
}

TEST_F(PixelResponses, CoreThatTakesAllForReflection_SeesNothing) {
  core.scale = PixelScale::KelvinTimes25;
  core.object = {0.5, 600, 20};
  EXPECT_EQ(counts(-40), 0);
}

TEST_F(PixelResponses, LensWithACalibration_GivesWhatItsCorrectionTurnsIntoTheTruth) {
  CalibrationOptions options;
  options.sensor = {8, 8};
  options.lenses = usualLenses(1, 1);
  const LensData lens = lensDataOf(options, 0);
  const auto correction = std::make_shared<TemperatureCorrection>(lens.points, options.version);
  settings.correction = correction;
  const HostModel high;
  const HostModel low{true};
  for (const int32_t core_degrees : {0, 25, 41, 59}) {
    core.core_degrees = core_degrees;
    for (const auto range : {CalibrationRange::Low, CalibrationRange::Middle, CalibrationRange::High}) {
      core.low_gain = range != CalibrationRange::Low;
      settings.low_gain_range = core.low_gain ? range : CalibrationRange::Middle;
      for (int celsius = -35; celsius <= 540; celsius += 12) {
        const double seen = (core.low_gain ? low : high).celsiusOf(counts(celsius));
        ASSERT_NEAR(correction->corrected(range, core_degrees, seen), celsius, 1e-3) << core_degrees;
      }
    }
  }
}

TEST_F(PixelResponses, SensorOffByACount_MovesTheValueAsMuchAsItsGainAndScaleSay) {
  sameAsTruth();
  const auto moved = [this] { return PixelResponse(settings, core).countsPerSensorCount(50); };
  EXPECT_EQ(moved(), 1);
  const double counts_per_kelvin = counts(50.5) - counts(49.5);
  core.scale = PixelScale::KelvinTimes25;
  EXPECT_NEAR(moved(), 25.0 / counts_per_kelvin, 1e-4);
  core.low_gain = true;
  core.scale = PixelScale::Radiance;
  EXPECT_NEAR(moved(), 0.1386, 0.0001);
}

}  // namespace
