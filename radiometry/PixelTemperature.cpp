// The members that turn a raw value into a temperature, and back.
#include <cmath>

#include "radiometry/ModelInForce.h"
#include "radiometry/SaturatingConversion.h"
#include "radiometry/TemperatureModel.h"
#include "serial/CameraSerialSettings.h"

double CameraSerialSettings::RawToTemp(unsigned short raw) {
  return calibrateTemperatureC(keocam::sensorModelInForce(*this).celsius(raw));
}

unsigned int CameraSerialSettings::TempToRaw(double kelvin) {
  return keocam::saturated<unsigned int>((R / (std::exp(B / kelvin) - F) + (K2 - O)) / K1);
}

void CameraSerialSettings::RecalculateConstants() {
  const keocam::Sight sight = keocam::sightOf(keocam::objectInForce(), keocam::absorptionInForce(),
                                              keocam::responseInForce(), ExternalOpticsTransmission);
  TauAtm = sight.TauAtm;
  Matm = sight.Matm;
  Mbgr = sight.Mbgr;
}

double CameraSerialSettings::calibrateTemperatureC(double celsius) {
  keocam::refreshCoreTemperature(*this);
  return keocam::correctionInForce(*this).corrected(celsius);
}
