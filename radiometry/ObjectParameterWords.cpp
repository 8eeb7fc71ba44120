#include "radiometry/ObjectParameterWords.h"

#include "radiometry/Radiance.h"
#include "radiometry/SaturatingConversion.h"

namespace keocam {
namespace {

constexpr double kEmissivitySteps = 8192.0;
constexpr uint16_t kLeastEmissivityWord = 4096;
constexpr uint16_t kMostEmissivityWord = 8192;
constexpr double kStepsPerDegree = 100.0;

uint16_t lowWord(double value) { return static_cast<uint16_t>(saturated<uint32_t>(value) & 0xFFFF); }

}  // namespace

uint16_t emissivityWord(double emissivity) {
  if (emissivity < 0.5) return kLeastEmissivityWord;
  if (emissivity > 1.0) return kMostEmissivityWord;
  return saturated<uint16_t>(emissivity * kEmissivitySteps);
}

double emissivityOfWord(uint16_t word) { return word * 0.0001220703125; }

uint16_t reflectedTemperatureWord(double kelvin) {
  // The single-precision zero is a little below the double one: 293.15 K is 20 degrees, not 19.
  const uint16_t degrees = lowWord(kelvin - static_cast<double>(273.15F));
  return static_cast<uint16_t>(degrees * 100U & 0xFFFF);
}

uint16_t atmosphericTemperatureWord(double kelvin) { return lowWord((kelvin - kZeroCelsius_K) * kStepsPerDegree); }

double kelvinOfWord(uint16_t word) { return word / kStepsPerDegree + kZeroCelsius_K; }

}  // namespace keocam
