// What a person says of the object and its surroundings for one run, in place of what the core holds.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/temperature/DisplayUnit.h"
#include "radiometry/Radiance.h"

namespace keocam::cli {

/// The options as given.
struct ObjectArguments {
  std::optional<std::string> emissivity;
  std::optional<std::string> reflected;   ///< in the unit of the run
  std::optional<std::string> atmosphere;  ///< in the unit of the run
  std::optional<std::string> distance;    ///< metres
  std::optional<std::string> humidity;    ///< "50%" or 0.5
};

/// What they mean.
struct ObjectOverrides {
  std::optional<double> emissivity;
  std::optional<double> reflected_celsius;
  std::optional<double> atmosphere_celsius;
  std::optional<double> distance_m;
  std::optional<double> humidity;  ///< as a fraction
};

/// Throws CommandFailure (Usage) that tells of every option that is no number or beyond its bounds.
ObjectOverrides overridesIn(const ObjectArguments& arguments, const DisplayUnit& unit);

/// `object` with what is given in place of its own.
ObjectParameters overridden(const ObjectParameters& object, const ObjectOverrides& overrides);

/// For a core that computes temperatures itself, by `held`: throws CommandFailure (Failure) if an override says
/// otherwise, with what to do.
void requireAgreement(const ObjectOverrides& overrides, const ObjectParameters& held, const DisplayUnit& unit);

}  // namespace keocam::cli
