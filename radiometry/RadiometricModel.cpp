#include "radiometry/RadiometricModel.h"

#include "radiometry/ModelInForce.h"
#include "radiometry/Radiance.h"

double emissivity = 0.95;
double reflectedTemperature = 293.15;
double atmosphericTemperature = 293.15;
double distance = 1.0;
double humidity = 0.5;

// Exported as it always was, though no formula reads it.
double ExternalOpticsTemperature = 293.15;
double ExternalOpticsTransmission = 1.0;

double R = 366544.0;
double B = 1428.0;
double F = 1.0;
// Not the offset of any range: temperatures mean nothing before one is set.
double O = 0.0;
double J1 = 22.1396484;
double RThg = 16556.0;
double K1 = 0.0;
double K2 = 0.0;

double X = 1.0;
double Alpha1 = 0.006569;
double Alpha2 = 0.01262;
double Beta1 = -0.002276;
double Beta2 = -0.00667;

double TauAtm = 0.0;
double Matm = 0.0;
double Mbgr = 0.0;

double UpperCameraLimit = 550.0;
double LowerCameraLimit = -40.0;

double CalculateTauAtm() { return keocam::transmission(keocam::objectInForce(), keocam::absorptionInForce()); }

double CalculateM(double kelvin) { return keocam::blackBodySignal(keocam::responseInForce(), kelvin); }

double CalculateMap(unsigned short raw) { return keocam::measuredSignal(keocam::responseInForce(), raw); }

double CalculateMobj(unsigned short raw) {
  return keocam::objectSignal(keocam::sightInForce(), keocam::measuredSignal(keocam::responseInForce(), raw));
}

double CalculateTemperature(unsigned short raw) {
  return keocam::objectTemperatureC(keocam::responseInForce(), CalculateMobj(raw));
}
