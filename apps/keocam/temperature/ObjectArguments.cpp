#include "apps/keocam/temperature/ObjectArguments.h"

#include <cmath>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

enum class Kind { Number, Temperature, Fraction };

struct ObjectRow {
  const char* option;
  std::optional<std::string> ObjectArguments::*argument;
  std::optional<double> ObjectOverrides::*value;
  double ObjectParameters::*parameter;
  Kind kind;
  double lowest;  // of the value, both ends included
  double highest;
  const char* unit;         // of a number
  const char* setting;      // the core's own; null where it has none
  double least_difference;  // smaller ones are steps of the core's
};

// The formula for water vapour holds for weather, not for furnaces: it bounds the atmosphere.
constexpr ObjectRow kRows[] = {
    {"--emissivity", &ObjectArguments::emissivity, &ObjectOverrides::emissivity, &ObjectParameters::emissivity,
     Kind::Number, 0.01, 1.0, "", "emissivity", 0.0005},
    {"--reflected", &ObjectArguments::reflected, &ObjectOverrides::reflected_celsius,
     &ObjectParameters::reflectedTemperature, Kind::Temperature, -100.0, 2000.0, "", "reflected-temperature", 0.005},
    {"--atmosphere", &ObjectArguments::atmosphere, &ObjectOverrides::atmosphere_celsius,
     &ObjectParameters::atmosphericTemperature, Kind::Temperature, -100.0, 100.0, "", "atmospheric-temperature", 0.005},
    {"--distance", &ObjectArguments::distance, &ObjectOverrides::distance_m, &ObjectParameters::distance, Kind::Number,
     0.0, 10'000.0, " m", nullptr, 0.0},
    {"--humidity", &ObjectArguments::humidity, &ObjectOverrides::humidity, &ObjectParameters::humidity, Kind::Fraction,
     0.0, 1.0, "", nullptr, 0.0},
};

constexpr int kHintDecimals = 2;

// The value in the program's own unit.
std::optional<double> valueOf(const ObjectRow& row, std::string text, const DisplayUnit& unit) {
  const bool percent = row.kind == Kind::Fraction && !text.empty() && text.back() == '%';
  if (percent) text.pop_back();
  const std::optional<double> number = numberIn(text);
  if (!number) return std::nullopt;
  if (row.kind == Kind::Temperature) return toCelsius(unit, *number);
  return percent ? *number / 100.0 : *number;
}

std::string boundsText(const ObjectRow& row, const DisplayUnit& unit) {
  const bool temperature = row.kind == Kind::Temperature;
  const auto text = [&](double bound) {
    return shortText(temperature ? fromCelsius(unit, bound) : bound, kHintDecimals);
  };
  std::string bounds = text(row.lowest) + " to " + text(row.highest);
  if (row.kind == Kind::Fraction) return bounds + " or 0% to 100%";
  return bounds + (temperature ? std::string(" ") + unit.symbol : row.unit);
}

// Bounds in Fahrenheit come back with rounding errors.
bool isWithin(const ObjectRow& row, double value) {
  constexpr double kRounding = 1e-9;
  return value >= row.lowest - kRounding && value <= row.highest + kRounding;
}

double heldValue(const ObjectRow& row, const ObjectParameters& held) {
  return held.*row.parameter - (row.kind == Kind::Temperature ? kZeroCelsius_K : 0.0);
}

std::string disagreement(const ObjectRow& row, double wanted, const ObjectParameters& held, const DisplayUnit& unit) {
  const std::string begin = std::string(row.option) + " cannot be used: the core computes temperatures itself, ";
  if (row.setting == nullptr) {
    return begin + "and takes no account of it. \"keocam set radiometry=off\" leaves the computing to this program.";
  }
  const bool temperature = row.kind == Kind::Temperature;
  const double core = heldValue(row, held);
  const std::string core_text =
      temperature ? shortText(fromCelsius(unit, core), kHintDecimals) + ' ' + unit.symbol : shortText(core, 3);
  return begin + "with " + core_text + ". \"keocam set " + row.setting + '=' + shortText(wanted, temperature ? 2 : 3) +
         "\" changes that" + (temperature ? " (in °C)" : "") +
         ", \"keocam set radiometry=off\" leaves the computing to this program.";
}

}  // namespace

ObjectOverrides overridesIn(const ObjectArguments& arguments, const DisplayUnit& unit) {
  ObjectOverrides overrides;
  std::string complaints;
  for (const ObjectRow& row : kRows) {
    const std::optional<std::string>& text = arguments.*row.argument;
    if (!text) continue;
    const std::optional<double> value = valueOf(row, *text, unit);
    if (value && isWithin(row, *value)) {
      overrides.*row.value = *value;
      continue;
    }
    complaints += (complaints.empty() ? "" : "\n") + std::string(row.option) + " takes a number, " +
                  boundsText(row, unit) + ", not " + inQuotes(*text) + ".";
  }
  if (!complaints.empty()) throw CommandFailure(ExitStatus::Usage, complaints);
  return overrides;
}

ObjectParameters overridden(const ObjectParameters& object, const ObjectOverrides& overrides) {
  ObjectParameters result = object;
  for (const ObjectRow& row : kRows) {
    const std::optional<double>& value = overrides.*row.value;
    if (value) result.*row.parameter = *value + (row.kind == Kind::Temperature ? kZeroCelsius_K : 0.0);
  }
  return result;
}

void requireAgreement(const ObjectOverrides& overrides, const ObjectParameters& held, const DisplayUnit& unit) {
  for (const ObjectRow& row : kRows) {
    const std::optional<double>& value = overrides.*row.value;
    if (!value) continue;
    const bool same = row.setting != nullptr && std::abs(*value - heldValue(row, held)) <= row.least_difference;
    if (!same) throw CommandFailure(ExitStatus::Failure, disagreement(row, *value, held, unit));
  }
}

}  // namespace keocam::cli
