// The object parameters as the core's 16-bit words.
#pragma once

#include <cstdint>

namespace keocam {

/// In units of 1/8192, 0.5 to 1; values beyond are brought to these, NaN is 0.
uint16_t emissivityWord(double emissivity);
double emissivityOfWord(uint16_t word);

/// In hundredths of a degree Celsius, but whole degrees only: nothing finer has ever been sent for the reflected
/// temperature. 0 below 0 degrees; the word of a temperature above 655 degrees wraps.
uint16_t reflectedTemperatureWord(double kelvin);

/// In hundredths of a degree Celsius. 0 below 0 degrees; the word of a temperature above 655.35 degrees wraps.
uint16_t atmosphericTemperatureWord(double kelvin);

/// Kelvin of a word in hundredths of a degree Celsius.
double kelvinOfWord(uint16_t word);

}  // namespace keocam
