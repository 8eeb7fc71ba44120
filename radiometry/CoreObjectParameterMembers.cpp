// The members that exchange object parameters and the mode of radiometry with the core.
#include <sstream>

#include "base/Log.h"
#include "radiometry/ObjectParameterWords.h"
#include "radiometry/RadiometricModel.h"
#include "serial/CameraSerialSettings.h"

namespace {

// What RADIOMETRY addresses.
constexpr uint32_t kResolutionSelector = 0;
constexpr uint32_t kModeSelector = 1;

void tell(CameraSerialSettings& core, RadiometricParameters parameter, uint16_t word) {
  core.SetParameter(RADIOMETRIC_PARAMETER, &word, parameter, DIGITAL_OUTPUT_NONE);
}

uint16_t ask(CameraSerialSettings& core, RadiometricParameters parameter) {
  uint16_t word = 0;
  core.GetParameter(RADIOMETRIC_PARAMETER, &word, parameter, DIGITAL_OUTPUT_NONE);
  return word;
}

void flip(CameraSerialSettings& core, uint32_t selector, bool on) {
  core.radiometrySelector = selector;
  uint8_t value = on ? 1 : 0;
  core.SetParameter(RADIOMETRY, &value, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
}

template <typename Value>
void printValue(Value value) {
  std::ostringstream text;
  text << value;
  keocam::printLine(text.str());
}

}  // namespace

void CameraSerialSettings::SetRadEmissivityTemp(double emissivityValue) {
  tell(*this, RADIOMETRIC_EMISSIVITY, keocam::emissivityWord(emissivityValue));
}

void CameraSerialSettings::SetRadReflectedTemp(double kelvin) {
  tell(*this, RADIOMETRIC_REFLECTED_TEMPERATURE, keocam::reflectedTemperatureWord(kelvin));
}

void CameraSerialSettings::SetRadAtmosphericTemp(double kelvin) {
  tell(*this, RADIOMETRIC_ATMOSPHERIC_TEMPERATURE, keocam::atmosphericTemperatureWord(kelvin));
}

double CameraSerialSettings::GetRadEmissivityTemp() {
  return keocam::emissivityOfWord(ask(*this, RADIOMETRIC_EMISSIVITY));
}

double CameraSerialSettings::GetRadReflectedTemp() {
  return keocam::kelvinOfWord(ask(*this, RADIOMETRIC_REFLECTED_TEMPERATURE));
}

double CameraSerialSettings::GetRadAtmosphericTemp() {
  // Applications rely on both lines, of which the first says nothing.
  printValue(0);
  const double kelvin = keocam::kelvinOfWord(ask(*this, RADIOMETRIC_ATMOSPHERIC_TEMPERATURE));
  printValue(kelvin);
  return kelvin;
}

void CameraSerialSettings::SetRadiometricParameters() {
  SetRadEmissivityTemp(emissivity);
  SetRadReflectedTemp(reflectedTemperature);
  SetRadAtmosphericTemp(atmosphericTemperature);
}

bool CameraSerialSettings::GetIsRadiometric() { return isRadiometric; }

bool CameraSerialSettings::GetRadiometryMode() { return radiometryMode; }

void CameraSerialSettings::SetRadiometryMode(bool on) {
  radiometryMode = isRadiometric && on;
  if (!isRadiometric) return;
  flip(*this, kModeSelector, on);
  if (!on) return;
  SetRadiometricParameters();
  // A range that there is not counts as the low one here, unlike in SetRangeMode.
  SetRadiometryHighResolutionMode(rangeMode != MiddleRange && rangeMode != HighRange);
}

void CameraSerialSettings::SetRadiometryHighResolutionMode(bool high) {
  radiometryHighResolutionMode = high;
  flip(*this, kResolutionSelector, high);
}
