#include "apps/keocam/temperature/DisplayUnit.h"

#include <cctype>
#include <string>

namespace keocam::cli {

const DisplayUnit kCelsius{"C", "celsius", "°C", 1.0, 0.0};
const DisplayUnit kKelvin{"K", "kelvin", "K", 1.0, 273.15};
const DisplayUnit kFahrenheit{"F", "fahrenheit", "°F", 1.8, 32.0};

namespace {

std::string lowerCase(std::string_view text) {
  std::string lower;
  for (const char c : text) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

}  // namespace

const DisplayUnit* findUnit(std::string_view text) {
  const std::string wanted = lowerCase(text);
  for (const DisplayUnit* const unit : {&kCelsius, &kKelvin, &kFahrenheit}) {
    if (wanted == lowerCase(unit->letter) || wanted == unit->name) return unit;
  }
  return nullptr;
}

double fromCelsius(const DisplayUnit& unit, double celsius) { return celsius * unit.step + unit.zero_celsius; }

double toCelsius(const DisplayUnit& unit, double temperature) { return (temperature - unit.zero_celsius) / unit.step; }

double fromKelvins(const DisplayUnit& unit, double kelvins) { return kelvins * unit.step; }

}  // namespace keocam::cli
