// The units in which people give and read temperatures. Within the program they are degrees Celsius.
#pragma once

#include <string_view>

namespace keocam::cli {

struct DisplayUnit {
  const char* letter;   ///< "C", as options and data name it
  const char* name;     ///< "celsius"
  const char* symbol;   ///< "°C", as a person reads it
  double step;          ///< of the unit per kelvin
  double zero_celsius;  ///< what 0 degrees Celsius are in it
};

extern const DisplayUnit kCelsius;
extern const DisplayUnit kKelvin;
extern const DisplayUnit kFahrenheit;

/// The unit of this letter or name, upper or lower case; null if there is none.
const DisplayUnit* findUnit(std::string_view text);

double fromCelsius(const DisplayUnit& unit, double celsius);
double toCelsius(const DisplayUnit& unit, double temperature);

/// A difference of temperatures, such as a deviation, from kelvin.
double fromKelvins(const DisplayUnit& unit, double kelvins);

}  // namespace keocam::cli
