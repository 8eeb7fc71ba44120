// The formulas of the radiometric model, as functions of values. Each keeps its order of operations: results have the
// same bits on every processor, but for the last place of the mathematics library.
//
// IEEE arithmetic throughout: a division by zero or a logarithm of what has none gives an infinity or NaN, never a
// trap.
#pragma once

namespace keocam {

/// 0 degrees Celsius in kelvin.
constexpr double kZeroCelsius_K = 273.15;

/// The object and its surroundings.
struct ObjectParameters {
  double emissivity = 0.95;                ///< 0 to 1
  double reflectedTemperature = 293.15;    ///< kelvin
  double atmosphericTemperature = 293.15;  ///< kelvin
  double distance = 1.0;                   ///< metres
  double humidity = 0.5;                   ///< relative, 0.5 for 50 %
};

/// How a sensor answers to radiation, in one of its gain modes.
struct SensorResponse {
  double B;     ///< kelvin
  double F;     ///< without unit
  double O;     ///< counts without radiation
  double J1;    ///< counts per unit of signal
  double RThg;  ///< signal
};

/// Absorption by the atmosphere, in two bands.
struct Absorption {
  double X;
  double Alpha1;
  double Alpha2;
  double Beta1;
  double Beta2;
};

/// What stands between the object's own radiation and the sensor.
struct Sight {
  double emissivity;
  double optics_transmission;
  double TauAtm;
  double Matm;
  double Mbgr;
};

/// Water vapour in the air, grams per cubic metre.
double waterVapour(double temperature_C, double relative_humidity);

/// Transmission of the atmosphere between camera and object.
double transmission(const ObjectParameters& object, const Absorption& absorption);

/// Signal of a black body of `kelvin`.
double blackBodySignal(const SensorResponse& response, double kelvin);

/// Signal that a raw value stands for.
double measuredSignal(const SensorResponse& response, double raw);

/// The object's own part of a measured signal.
double objectSignal(const Sight& sight, double measured);

/// Degrees Celsius of a black body that gives this signal.
double objectTemperatureC(const SensorResponse& response, double signal);

/// The measured signal that an object's own part leads to: the inverse of objectSignal.
double measuredFromObjectSignal(const Sight& sight, double signal);

/// The raw value that a measured signal stands for, not rounded: the inverse of measuredSignal.
double rawOfSignal(const SensorResponse& response, double measured);

/// What lies between object and sensor for these parameters.
Sight sightOf(const ObjectParameters& object, const Absorption& absorption, const SensorResponse& response,
              double optics_transmission);

}  // namespace keocam
