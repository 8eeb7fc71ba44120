#include "radiometry/Radiance.h"

#include <cmath>

namespace keocam {

double waterVapour(double temperature_C, double relative_humidity) {
  const double t = temperature_C;
  return relative_humidity * std::exp(1.5587 + 0.06939 * t + (-0.00027816 * t) * t + (6.8455e-07 * (t * t)) * t);
}

double transmission(const ObjectParameters& object, const Absorption& absorption) {
  const double vapour = waterVapour(object.atmosphericTemperature - kZeroCelsius_K, object.humidity);
  const double s = std::sqrt(vapour);
  const double d = std::sqrt(object.distance);
  return absorption.X * std::exp(-d * (absorption.Alpha1 + absorption.Beta1 * s)) +
         (1.0 - absorption.X) * std::exp(-d * (absorption.Alpha2 + absorption.Beta2 * s));
}

double blackBodySignal(const SensorResponse& response, double kelvin) {
  return response.RThg / (std::exp(response.B / kelvin) - response.F);
}

double measuredSignal(const SensorResponse& response, double raw) { return (raw - response.O) / response.J1; }

double objectSignal(const Sight& sight, double measured) {
  // Reflected is what the object and the optics together do not emit: not 1 - emissivity alone.
  const double reflected = sight.TauAtm * (1.0 - sight.emissivity * sight.optics_transmission) * sight.Mbgr;
  const double atmosphere = (1.0 - sight.TauAtm) * sight.Matm;
  return (measured - reflected - atmosphere) / (sight.emissivity * sight.TauAtm * sight.optics_transmission);
}

double objectTemperatureC(const SensorResponse& response, double signal) {
  return response.B / std::log(response.RThg / signal + response.F) - kZeroCelsius_K;
}

double measuredFromObjectSignal(const Sight& sight, double signal) {
  const double reflected = sight.TauAtm * (1.0 - sight.emissivity * sight.optics_transmission) * sight.Mbgr;
  const double atmosphere = (1.0 - sight.TauAtm) * sight.Matm;
  return signal * (sight.emissivity * sight.TauAtm * sight.optics_transmission) + reflected + atmosphere;
}

double rawOfSignal(const SensorResponse& response, double measured) { return measured * response.J1 + response.O; }

Sight sightOf(const ObjectParameters& object, const Absorption& absorption, const SensorResponse& response,
              double optics_transmission) {
  return {object.emissivity, optics_transmission, transmission(object, absorption),
          blackBodySignal(response, object.atmosphericTemperature),
          blackBodySignal(response, object.reflectedTemperature)};
}

}  // namespace keocam
