// The process-wide model as values.
#pragma once

#include "radiometry/Radiance.h"
#include "radiometry/RadiometricModel.h"

namespace keocam {

inline ObjectParameters objectInForce() {
  return {::emissivity, ::reflectedTemperature, ::atmosphericTemperature, ::distance, ::humidity};
}

inline SensorResponse responseInForce() { return {::B, ::F, ::O, ::J1, ::RThg}; }

inline Absorption absorptionInForce() { return {::X, ::Alpha1, ::Alpha2, ::Beta1, ::Beta2}; }

/// With TauAtm, Matm and Mbgr as they are, up to date or not.
inline Sight sightInForce() { return {::emissivity, ::ExternalOpticsTransmission, ::TauAtm, ::Matm, ::Mbgr}; }

}  // namespace keocam
