#include "apps/keocam/temperature/Conditions.h"

#include "apps/keocam/Json.h"
#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

constexpr int kTemperatureDecimals = 2;
constexpr int kFractionDecimals = 4;

double kelvinIn(const DisplayUnit& unit, double kelvin) { return fromCelsius(unit, kelvin - kZeroCelsius_K); }

}  // namespace

ConditionTexts conditionTexts(const Conditions& conditions, const DisplayUnit& unit) {
  const ObjectParameters& object = conditions.object;
  const auto temperature = [](double value) { return shortText(value, kTemperatureDecimals); };
  ConditionTexts texts{
      {"Model", printable(conditions.camera.model)},
      {"SerialNumber", printable(conditions.camera.serial_number)},
      {"Lens", conditions.lens},
      {"Range", rangeName(conditions.range)},
      {"ComputedBy", conditions.by_core ? "core" : "host"},
      {"Emissivity", shortText(object.emissivity, kFractionDecimals)},
      {"ReflectedApparentTemperature", temperature(kelvinIn(unit, object.reflectedTemperature))},
      {"AtmosphericTemperature", temperature(kelvinIn(unit, object.atmosphericTemperature))},
  };
  if (!conditions.by_core) {
    texts.emplace_back("ObjectDistance", shortText(object.distance, kFractionDecimals) + " m");
    texts.emplace_back("RelativeHumidity", shortText(object.humidity, kFractionDecimals));
  }
  texts.emplace_back("CoreTemperature", temperature(fromCelsius(unit, conditions.core_temperature_celsius)));
  return texts;
}

nlohmann::ordered_json conditionsJson(const Conditions& conditions, const DisplayUnit& unit) {
  const ObjectParameters& object = conditions.object;
  const auto unlessByCore = [&](double value) {
    return conditions.by_core ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(value);
  };
  return {
      {"camera", conditions.camera.serial_number},
      {"model", conditions.camera.model},
      {"lens", conditions.lens.empty() ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(conditions.lens)},
      {"range", rangeName(conditions.range)},
      {"computed_by", conditions.by_core ? "core" : "host"},
      {"emissivity", toThousandths(object.emissivity)},
      {"reflected", toThousandths(kelvinIn(unit, object.reflectedTemperature))},
      {"atmosphere", toThousandths(kelvinIn(unit, object.atmosphericTemperature))},
      {"distance_m", unlessByCore(object.distance)},
      {"humidity", unlessByCore(object.humidity)},
      {"core_temperature", toThousandths(fromCelsius(unit, conditions.core_temperature_celsius))},
  };
}

std::string conditionSummary(const Conditions& conditions, const DisplayUnit& unit) {
  const ObjectParameters& object = conditions.object;
  const auto temperature = [&](double kelvin) {
    return shortText(kelvinIn(unit, kelvin), kTemperatureDecimals) + ' ' + unit.symbol;
  };
  std::string text = (conditions.lens.empty() ? "Range " : "Lens " + conditions.lens + ", range ") +
                     rangeName(conditions.range) + ", emissivity " + shortText(object.emissivity, kFractionDecimals) +
                     ", reflected " + temperature(object.reflectedTemperature) + ", atmosphere " +
                     temperature(object.atmosphericTemperature);
  if (conditions.by_core) return text + ", computed by the core";
  constexpr double kPercent = 100.0;
  return text + ", " + shortText(object.distance, kTemperatureDecimals) + " m, " +
         shortText(object.humidity * kPercent, 1) + " % humidity";
}

}  // namespace keocam::cli
