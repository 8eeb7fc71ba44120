// The members that read and change the object parameters in force, and tell the core of them.
#include "radiometry/Radiance.h"
#include "radiometry/RadiometricModel.h"
#include "serial/CameraSerialSettings.h"

namespace {

constexpr double kLeastEmissivity = 0.5;
constexpr double kMostEmissivity = 1.0;

// NaN passes both bounds.
double limitedEmissivity(double value) {
  if (value < kLeastEmissivity) return kLeastEmissivity;
  if (value > kMostEmissivity) return kMostEmissivity;
  return value;
}

}  // namespace

double CameraSerialSettings::GetEmissivity() { return emissivity; }
double CameraSerialSettings::GetReflectedTemperatureK() { return reflectedTemperature; }
double CameraSerialSettings::GetReflectedTemperatureC() { return GetReflectedTemperatureK() - keocam::kZeroCelsius_K; }
double CameraSerialSettings::GetAtmosphericTemperatureK() { return atmosphericTemperature; }
double CameraSerialSettings::GetAtmospericTemperatureC() {
  return GetAtmosphericTemperatureK() - keocam::kZeroCelsius_K;
}
double CameraSerialSettings::GetDistance() { return distance; }
double CameraSerialSettings::GetHumidity() { return humidity; }

void CameraSerialSettings::SetEmissivity(double emissivityValue) {
  // The value as given is compared, before it is limited.
  if (emissivityValue == emissivity) return;
  const double limited = limitedEmissivity(emissivityValue);
  // Emissivity goes to any radiometric core, the temperatures below only in radiometry mode.
  if (isRadiometric) SetRadEmissivityTemp(limited);
  emissivity = limited;
  RecalculateConstants();
}

void CameraSerialSettings::SetReflectedTemperatureK(double kelvin) {
  if (kelvin == reflectedTemperature) return;
  reflectedTemperature = kelvin;
  RecalculateConstants();
  if (GetRadiometryMode()) SetRadReflectedTemp(kelvin);
}

void CameraSerialSettings::SetReflectedTemperatureC(double celsius) {
  SetReflectedTemperatureK(celsius + keocam::kZeroCelsius_K);
}

void CameraSerialSettings::SetAtmosphericTemperatureK(double kelvin) {
  if (kelvin == atmosphericTemperature) return;
  atmosphericTemperature = kelvin;
  RecalculateConstants();
  if (GetRadiometryMode()) SetRadAtmosphericTemp(kelvin);
}

void CameraSerialSettings::SetAtmospericTemperatureC(double celsius) {
  SetAtmosphericTemperatureK(celsius + keocam::kZeroCelsius_K);
}

void CameraSerialSettings::SetDistance(double metres) {
  if (metres == distance) return;
  distance = metres;
  RecalculateConstants();
}

void CameraSerialSettings::SetHumidity(double fraction) {
  if (fraction == humidity) return;
  humidity = fraction;
  RecalculateConstants();
}
