// The physics of the scene, against values worked out by hand.
#include "simulator/scene/Radiance.h"

#include <gtest/gtest.h>

namespace {

using namespace simulator;

struct Air {
  double distance_m;
  double humidity;
  double celsius;
  double transmission;
};

TEST(Radiance, AirTransmission_IsTheApproximation) {
  constexpr Air kAirs[] = {{1, 0.5, 20, 1.0000915546},  {30, 0.2, 20, 0.9871758677},  {30, 0.9, 20, 1.0130493644},
                           {30, 0.9, 15, 1.0061357956}, {100, 0.3, -5, 0.9579864892}, {0, 0.5, 20, 1}};
  for (const Air& air : kAirs) {
    Surroundings surroundings;
    surroundings.distance_m = air.distance_m;
    surroundings.humidity = air.humidity;
    surroundings.atmospheric_celsius = air.celsius;
    EXPECT_NEAR(airTransmission(surroundings), air.transmission, 1e-9) << air.distance_m << " " << air.humidity;
  }
}

TEST(Radiance, BlackBody_ComesBack) {
  for (const Gain& gain : {kHighGain, kLowGain}) {
    for (const double celsius : {-40.0, 0.0, 100.0, 550.0, 1500.0}) {
      EXPECT_NEAR(blackBodyKelvin(blackBodyRadiance(celsius, gain), gain), celsius + 273.15, 1e-9) << celsius;
    }
    EXPECT_EQ(blackBodyKelvin(0, gain), 0);
    EXPECT_EQ(blackBodyKelvin(-1, gain), 0);
  }
}

TEST(Radiance, PerfectEmitterInNoAir_IsSeenAsItIs) {
  Surroundings surroundings;
  surroundings.emissivity = 1;
  surroundings.distance_m = 0;
  const Sight sight = sightOf(surroundings, kHighGain);
  EXPECT_EQ(sight.object_part, 1);
  EXPECT_EQ(sight.added_radiance, 0);
}

TEST(Radiance, ObjectAsWarmAsAllAroundIt_LooksLikeABlackBody) {
  Surroundings surroundings;
  surroundings.emissivity = 0.6;
  surroundings.distance_m = 30;
  surroundings.optics_transmission = 0.9;
  const double radiance = blackBodyRadiance(20, kLowGain);
  const Sight sight = sightOf(surroundings, kLowGain);
  EXPECT_NEAR(sight.object_part * radiance + sight.added_radiance, radiance, 1e-12 * radiance);
}

}  // namespace
