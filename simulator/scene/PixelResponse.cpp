#include "simulator/scene/PixelResponse.h"

#include "simulator/calibration/TemperatureCorrection.h"

namespace simulator {
namespace {

/// The core knows of the object what it has been told. Of distance, humidity and optics it is told nothing, and is
/// taken to have them right.
Sight beliefOf(const Surroundings& truth, const CoreObjectParameters& told, const Gain& gain) {
  Surroundings belief = truth;
  belief.emissivity = told.emissivity;
  belief.reflected_celsius = told.reflected_celsius;
  belief.atmospheric_celsius = told.atmospheric_celsius;
  return sightOf(belief, gain);
}

}  // namespace

PixelResponse::PixelResponse(const TemperatureSceneSettings& settings, const CoreResponse& core)
    : correction_(settings.correction),
      range_(core.low_gain ? settings.low_gain_range : CalibrationRange::Low),
      core_degrees_(core.core_degrees),
      scale_(core.scale),
      gain_(core.low_gain ? kLowGain : kHighGain),
      truth_(sightOf(settings.surroundings, gain_)),
      belief_(beliefOf(settings.surroundings, core.object, gain_)) {}

double PixelResponse::countsFor(double celsius) const {
  const double seen = correction_ ? correction_->uncorrected(range_, core_degrees_, celsius) : celsius;
  const double radiance = truth_.object_part * blackBodyRadiance(seen, gain_) + truth_.added_radiance;
  if (scale_ != PixelScale::Radiance) return linearCounts(radiance);
  return radiance * gain_.counts_per_radiance + gain_.offset_counts;
}

double PixelResponse::linearCounts(double radiance) const {
  const double kelvin = blackBodyKelvin((radiance - belief_.added_radiance) / belief_.object_part, gain_);
  return kelvin * (scale_ == PixelScale::KelvinTimes25 ? 25.0 : 2.5);
}

double PixelResponse::countsPerSensorCount(double celsius) const {
  const double gain_ratio = gain_.counts_per_radiance / kHighGain.counts_per_radiance;
  if (scale_ == PixelScale::Radiance) return gain_ratio;
  const double low = truth_.object_part * blackBodyRadiance(celsius - 0.5, gain_) + truth_.added_radiance;
  const double high = truth_.object_part * blackBodyRadiance(celsius + 0.5, gain_) + truth_.added_radiance;
  return (linearCounts(high) - linearCounts(low)) / ((high - low) * kHighGain.counts_per_radiance);
}

}  // namespace simulator
