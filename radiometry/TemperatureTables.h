// The temperatures of all raw values by one model, calculated when first asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>

#include "radiometry/TemperatureModel.h"

namespace keocam {

/// What a temperature is given in.
enum class TemperatureUnit : uint8_t { Celsius, Kelvin };

/// Temperatures of one type and unit by their raw value. Pixels have 14 bits: values above them, which frames never
/// hold but callers may, are calculated only once one is seen. Any number of threads may use one.
template <typename Temperature>
class TemperatureTable {
 public:
  using Formula = Temperature (*)(const TemperatureModel&, uint16_t raw);

  TemperatureTable(const TemperatureModel& model, Formula formula);

  /// Looks `count` raw values up.
  void convert(const uint16_t* raw, std::size_t count, Temperature* temperatures);

 private:
  void calculate(std::size_t from, std::size_t to);

  TemperatureModel model_;
  Formula formula_;
  std::unique_ptr<Temperature[]> temperatures_;
  std::once_flag pixels_calculated_;
  std::once_flag rest_calculated_;
};

/// The tables of all types and units. Not copied: share it.
class TemperatureTables {
 public:
  explicit TemperatureTables(const TemperatureModel& model);

  const TemperatureModel& model() const { return model_; }

  void convert(const uint16_t* raw, std::size_t count, float* temperatures, TemperatureUnit unit);
  void convert(const uint16_t* raw, std::size_t count, double* temperatures, TemperatureUnit unit);
  void convertToCentikelvin(const uint16_t* raw, std::size_t count, uint16_t* centikelvin);

 private:
  TemperatureModel model_;
  TemperatureTable<float> float_celsius_;
  TemperatureTable<float> float_kelvin_;
  TemperatureTable<double> double_celsius_;
  TemperatureTable<double> double_kelvin_;
  TemperatureTable<uint16_t> centikelvin_;
};

}  // namespace keocam
