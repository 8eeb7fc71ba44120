#include "radiometry/TemperatureTables.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "radiometry/SaturatingConversion.h"

namespace keocam {
namespace {

constexpr std::size_t kPixelValues = std::size_t{1} << 14;
constexpr std::size_t kRawValues = std::size_t{1} << 16;

// Raw values looked up before it is checked that all were pixels' values: they are then still in the first cache.
constexpr std::size_t kBlock = 4096;

// Looks up as if all raw values were pixels', and tells whether they were. Four at a time from one word: less than a
// third of the loads of a plain loop is for the raw values, which makes it a quarter faster.
template <typename Temperature>
bool lookUpPixels(const Temperature* table, const uint16_t* raw, std::size_t count, Temperature* temperatures) {
  static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the first raw value is taken from the word's low end");
  constexpr uint64_t kPixel = kPixelValues - 1;
  constexpr uint64_t kAboveAll = ~(kPixel | kPixel << 16 | kPixel << 32 | kPixel << 48);
  uint64_t seen = 0;
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) {
    uint64_t word = 0;
    std::memcpy(&word, raw + i, sizeof word);
    seen |= word;
    const Temperature first = table[word & kPixel];
    const Temperature second = table[word >> 16 & kPixel];
    const Temperature third = table[word >> 32 & kPixel];
    const Temperature fourth = table[word >> 48 & kPixel];
    temperatures[i] = first;
    temperatures[i + 1] = second;
    temperatures[i + 2] = third;
    temperatures[i + 3] = fourth;
  }
  for (; i < count; ++i) {
    seen |= raw[i];
    temperatures[i] = table[raw[i] & kPixel];
  }
  return (seen & kAboveAll) == 0;
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
    if (lookUpPixels(temperatures_.get(), raw + done, size, temperatures + done)) continue;
    std::call_once(rest_calculated_, [this] { calculate(kPixelValues, kRawValues); });
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
