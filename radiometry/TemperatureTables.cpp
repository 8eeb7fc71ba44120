#include "radiometry/TemperatureTables.h"

#include <algorithm>
#include <cmath>

#include "radiometry/SaturatingConversion.h"

namespace keocam {
namespace {

constexpr std::size_t kPixelValues = std::size_t{1} << 14;
constexpr std::size_t kRawValues = std::size_t{1} << 16;

// Raw values checked at a time before they are looked up: they are then still in the first cache.
constexpr std::size_t kBlock = 4096;

bool allArePixels(const uint16_t* raw, std::size_t count) {
  uint16_t bits = 0;
  for (std::size_t i = 0; i < count; ++i) bits = static_cast<uint16_t>(bits | raw[i]);
  return bits < kPixelValues;
}

template <typename Temperature>
void lookUp(const Temperature* table, const uint16_t* raw, std::size_t count, Temperature* temperatures) {
  for (std::size_t i = 0; i < count; ++i) temperatures[i] = table[raw[i]];
}

template <typename Temperature>
Temperature celsius(const TemperatureModel& model, uint16_t raw) {
  return static_cast<Temperature>(model.celsius(raw));
}

template <typename Temperature>
Temperature kelvin(const TemperatureModel& model, uint16_t raw) {
  return static_cast<Temperature>(model.kelvin(raw));
}

uint16_t centikelvin(const TemperatureModel& model, uint16_t raw) {
  return saturated<uint16_t>(std::round(model.kelvin(raw) * 100.0));
}

}  // namespace

template <typename Temperature>
TemperatureTable<Temperature>::TemperatureTable(const TemperatureModel& model, Formula formula)
    : model_(model), formula_(formula) {}

template <typename Temperature>
void TemperatureTable<Temperature>::calculate(std::size_t from, std::size_t to) {
  for (std::size_t raw = from; raw < to; ++raw) temperatures_[raw] = formula_(model_, static_cast<uint16_t>(raw));
}

template <typename Temperature>
void TemperatureTable<Temperature>::convert(const uint16_t* raw, std::size_t count, Temperature* temperatures) {
  std::call_once(pixels_calculated_, [this] {
    // Not set to zero: the part above the pixels' values need not even be touched.
    temperatures_.reset(new Temperature[kRawValues]);
    calculate(0, kPixelValues);
  });
  for (std::size_t done = 0; done < count; done += kBlock) {
    const std::size_t size = std::min(kBlock, count - done);
    if (!allArePixels(raw + done, size)) {
      std::call_once(rest_calculated_, [this] { calculate(kPixelValues, kRawValues); });
    }
    lookUp(temperatures_.get(), raw + done, size, temperatures + done);
  }
}

TemperatureTables::TemperatureTables(const TemperatureModel& model)
    : model_(model),
      float_celsius_(model, celsius<float>),
      float_kelvin_(model, kelvin<float>),
      double_celsius_(model, celsius<double>),
      double_kelvin_(model, kelvin<double>),
      centikelvin_(model, centikelvin) {}

void TemperatureTables::convert(const uint16_t* raw, std::size_t count, float* temperatures, TemperatureUnit unit) {
  (unit == TemperatureUnit::Celsius ? float_celsius_ : float_kelvin_).convert(raw, count, temperatures);
}

void TemperatureTables::convert(const uint16_t* raw, std::size_t count, double* temperatures, TemperatureUnit unit) {
  (unit == TemperatureUnit::Celsius ? double_celsius_ : double_kelvin_).convert(raw, count, temperatures);
}

void TemperatureTables::convertToCentikelvin(const uint16_t* raw, std::size_t count, uint16_t* centikelvin) {
  centikelvin_.convert(raw, count, centikelvin);
}

}  // namespace keocam
