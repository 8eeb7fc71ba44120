// Whole frames of raw values turned into temperatures, pixel by pixel the same as CameraSerialSettings::RawToTemp.
//
//     keocam::TemperatureConverter converter(*camera.serialSettings);
//     std::vector<float> celsius(width * height);
//     converter.convert(raw, celsius.size(), celsius.data());
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "radiometry/Radiance.h"
#include "radiometry/TemperatureModel.h"
#include "radiometry/TemperatureTables.h"
#include "serial/CameraSerialSettings.h"

namespace keocam {

class PinnedConverter;

/// Converts by the process-wide model in force at each call, whoever changed it, a setter or an assignment: a change
/// costs the next call a new table, some 0.3 ms. For a process with one camera; several are told apart by pin(). One
/// thread at a time, as for CameraSerialSettings; no other may change the model meanwhile.
///
/// Every call first reads the core's temperature if there is a calibration and the last reading is more than 60 seconds
/// old, in one exchange that blocks for some 20 ms (0.1 s if the core is silent). Throws std::out_of_range if there are
/// lenses but not the selected one, and std::bad_alloc.
class TemperatureConverter {
 public:
  /// Nothing is sent. `camera` is not owned and must outlive this.
  explicit TemperatureConverter(CameraSerialSettings& camera);
  ~TemperatureConverter();
  TemperatureConverter(TemperatureConverter&&) noexcept;
  TemperatureConverter& operator=(TemperatureConverter&&) noexcept;

  /// Converts `count` raw values; `temperatures` has as many. NaN where the model has no temperature. The doubles are
  /// the very bits of RawToTemp (of Camera::CalculateTemperatureK in kelvin), the floats these rounded to the nearest.
  void convert(const uint16_t* raw, std::size_t count, float* temperatures,
               TemperatureUnit unit = TemperatureUnit::Celsius);
  void convert(const uint16_t* raw, std::size_t count, double* temperatures,
               TemperatureUnit unit = TemperatureUnit::Celsius);

  /// Hundredths of a kelvin, rounded to the nearest; 0 for NaN, 65535 for temperatures of 655.35 K and above.
  void convertToCentikelvin(const uint16_t* raw, std::size_t count, uint16_t* centikelvin);

  /// The model in force. As a conversion it reads the core's temperature first if that is due.
  TemperatureModel model();

  /// A converter that keeps the model in force now, and with it this camera's calibration, whatever other cameras do
  /// to the process-wide one. As a conversion it reads the core's temperature first if that is due.
  PinnedConverter pin();

 private:
  TemperatureTables& tables();

  CameraSerialSettings* camera_;
  std::shared_ptr<TemperatureTables> tables_;
};

/// Keeps the state of its camera from the moment of pinning: lens, range, mode, constants, object parameters and the
/// core's temperature. The last two drift and are followed by making another of the two functions below. A value: cheap
/// to copy, and any number of threads may use one, or copies of it, at once.
class PinnedConverter {
 public:
  void convert(const uint16_t* raw, std::size_t count, float* temperatures,
               TemperatureUnit unit = TemperatureUnit::Celsius) const;
  void convert(const uint16_t* raw, std::size_t count, double* temperatures,
               TemperatureUnit unit = TemperatureUnit::Celsius) const;
  void convertToCentikelvin(const uint16_t* raw, std::size_t count, uint16_t* centikelvin) const;

  /// Degrees Celsius of one raw value.
  double celsius(uint16_t raw) const { return model().celsius(raw); }

  const TemperatureModel& model() const;
  const ObjectParameters& object() const;
  /// Degrees Celsius.
  double coreTemperatureC() const;

  /// The same for another object; a core in radiometry mode uses its own parameters instead.
  PinnedConverter withObject(const ObjectParameters& object) const;

  /// The same at another temperature of the core in degrees Celsius, such as keocam::readSensorTemperatureC gives it.
  PinnedConverter atCoreTemperature(double celsius) const;

 private:
  friend class TemperatureConverter;
  struct State;
  explicit PinnedConverter(std::shared_ptr<const State> state);

  std::shared_ptr<const State> state_;
};

}  // namespace keocam
