// All that a pixel's temperature follows from, as one value: it does not change, whatever the process-wide model does.
#pragma once

#include <cstdint>

#include "radiometry/LensCorrection.h"
#include "radiometry/SensorModel.h"
#include "serial/CameraSerialSettings.h"

namespace keocam {

/// Copies are cheap. Any number of threads may use one.
class TemperatureModel {
 public:
  TemperatureModel(const SensorModel& sensor, const LensCorrection& correction);

  /// The process-wide model, with a camera's range and mode of radiometry and the selected lens' correction at the
  /// core's temperature as last read; the core is not asked. Throws std::out_of_range if there are lenses but not the
  /// selected one.
  static TemperatureModel inForce(const CameraSerialSettings& camera);

  /// Degrees Celsius of a raw value: the same bits as CameraSerialSettings::RawToTemp with that model in force.
  double celsius(uint16_t raw) const;
  /// The same in kelvin, as Camera::CalculateTemperatureK.
  double kelvin(uint16_t raw) const;

  /// The raw value of a temperature in degrees Celsius, such as an isotherm's: the inverse of celsius(), through the
  /// same correction, emissivity and atmosphere. Not rounded, and not limited to the 14 bits of a pixel. NaN for a
  /// temperature that no raw value has, such as one beyond the limits. See LensCorrection::uncorrected for corrections
  /// that bring two raw values to one temperature.
  double raw(double celsius) const;

  /// Bit by bit.
  bool operator==(const TemperatureModel& other) const;
  bool operator!=(const TemperatureModel& other) const { return !(*this == other); }

  const SensorModel& sensor() const { return sensor_; }
  const LensCorrection& correction() const { return correction_; }

 private:
  SensorModel sensor_;
  LensCorrection correction_;
};

/// The process-wide model without a lens' correction, with a camera's mode of radiometry.
SensorModel sensorModelInForce(const CameraSerialSettings& camera);

/// The selected lens' correction in a camera's range at the core's temperature as last read. Throws std::out_of_range
/// if there are lenses but not the selected one.
LensCorrection correctionInForce(const CameraSerialSettings& camera);

/// Reads the core's temperature into coreTemperature if there is a calibration and the last reading is more than 60
/// seconds old. At most one exchange with the core.
void refreshCoreTemperature(CameraSerialSettings& camera);

}  // namespace keocam
