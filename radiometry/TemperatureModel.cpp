#include "radiometry/TemperatureModel.h"

#include <cstring>
#include <ctime>

#include "calibration/Calibration.h"
#include "radiometry/ModelInForce.h"
#include "serial/CoreTemperature.h"

namespace keocam {
namespace {

constexpr double kCoreTemperatureAge_s = 60.0;

RawMeaning meaningFor(const CameraSerialSettings& camera) {
  if (!camera.radiometryMode) return RawMeaning::Counts;
  return camera.radiometryHighResolutionMode ? RawMeaning::KelvinHighResolution : RawMeaning::KelvinLowResolution;
}

}  // namespace

TemperatureModel::TemperatureModel(const SensorModel& sensor, const LensCorrection& correction)
    : sensor_(sensor), correction_(correction) {}

TemperatureModel TemperatureModel::inForce(const CameraSerialSettings& camera) {
  return {sensorModelInForce(camera), correctionInForce(camera)};
}

double TemperatureModel::celsius(uint16_t raw) const { return correction_.corrected(sensor_.celsius(raw)); }

double TemperatureModel::kelvin(uint16_t raw) const { return celsius(raw) + kZeroCelsius_K; }

double TemperatureModel::raw(double celsius) const {
  const TemperatureLimits reach = sensor_.reach();
  return sensor_.raw(correction_.uncorrected(celsius, reach.lowest, reach.highest));
}

bool TemperatureModel::operator==(const TemperatureModel& other) const {
  static_assert(sizeof(SensorModel) == 13 * sizeof(double), "padding would be compared too");
  return std::memcmp(&sensor_, &other.sensor_, sizeof sensor_) == 0 && correction_ == other.correction_;
}

SensorModel sensorModelInForce(const CameraSerialSettings& camera) {
  return {responseInForce(), sightInForce(), {::LowerCameraLimit, ::UpperCameraLimit}, meaningFor(camera)};
}

LensCorrection correctionInForce(const CameraSerialSettings& camera) {
  if (calibrationVect.empty() || camera.rangeMode > CameraSerialSettings::HighRange) return {};
  const CalibrationStruct& lens = calibrationVect.at(static_cast<std::size_t>(currentLensNumber));
  return {lens, camera.rangeMode, calibrationRow(coreTemperature)};
}

void refreshCoreTemperature(CameraSerialSettings& camera) {
  if (calibrationVect.empty()) return;
  if (std::difftime(std::time(nullptr), coreTemperatureTimer) > kCoreTemperatureAge_s) camera.GetSensorTemperature();
}

}  // namespace keocam
