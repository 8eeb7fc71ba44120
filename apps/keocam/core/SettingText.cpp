#include "apps/keocam/core/SettingText.h"

#include <charconv>
#include <limits>
#include <optional>
#include <vector>

#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"

namespace keocam::cli {
namespace {

constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;

// Whole numbers of any size: those that are too large for their type stop at its ends, which no setting accepts.
std::optional<long long> numberOf(std::string_view text) {
  const bool negative = !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  const bool hexadecimal = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  if (hexadecimal) text.remove_prefix(2);
  unsigned int magnitude = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), magnitude, hexadecimal ? kHexadecimal : kDecimal);
  if (end != text.data() + text.size() || error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc::result_out_of_range) magnitude = std::numeric_limits<unsigned int>::max();
  return negative ? -static_cast<long long>(magnitude) : static_cast<long long>(magnitude);
}

std::optional<long long> choiceNamed(const SettingRow& setting, std::string_view text) {
  for (const SettingChoice& choice : setting.choices) {
    if (text == choice.name) return choice.value;
  }
  if (isSwitch(setting) && text == "true") return 1;
  if (isSwitch(setting) && text == "false") return 0;
  return std::nullopt;
}

// A number within the setting's bounds, to the nearest step.
std::optional<int> fractionOf(const SettingRow& setting, std::string_view text) {
  const std::optional<double> number = numberIn(text);
  const SettingRange range = listedRange(setting);
  const bool fits = number && *number >= inUnits(setting, range.lowest) && *number <= inUnits(setting, range.highest);
  return fits ? std::optional<int>(inSteps(setting, *number)) : std::nullopt;
}

std::vector<std::string> choiceNames(const SettingRow& setting) {
  std::vector<std::string> names;
  for (const SettingChoice& choice : setting.choices) {
    if (hasListedValue(setting, choice.value)) names.emplace_back(choice.name);
  }
  return names;
}

std::string refusalOf(const SettingRow& setting, std::string_view text) {
  const std::string name = setting.name;
  if (setting.choices.empty()) {
    const bool whole = decimalsOf(setting) == 0;
    return name + " takes a " + (whole ? "whole " : "") + "number, " + acceptedText(setting) + ", not " +
           inQuotes(text) + ".";
  }
  const std::string suggestion = didYouMean(text, choiceNames(setting));
  return name + " does not take " + inQuotes(text) + (suggestion.empty() ? "." : suggestion) +
         " It takes: " + acceptedText(setting) + ".";
}

}  // namespace

bool isSwitch(const SettingRow& setting) {
  if (setting.choices.count != 2) return false;
  return valueText(setting, 0) == "off" && valueText(setting, 1) == "on";
}

std::string valueText(const SettingRow& setting, int value) {
  for (const SettingChoice& choice : setting.choices) {
    if (choice.value == value) return choice.name;
  }
  return shortText(inUnits(setting, value), decimalsOf(setting));
}

std::string acceptedText(const SettingRow& setting) {
  if (setting.choices.empty()) {
    const SettingRange range = listedRange(setting);
    return valueText(setting, range.lowest) + " to " + valueText(setting, range.highest);
  }
  std::string text;
  for (const std::string& name : choiceNames(setting)) text += (text.empty() ? "" : ", ") + name;
  return text;
}

std::variant<int, std::string> parseValue(const SettingRow& setting, std::string_view text) {
  if (decimalsOf(setting) > 0) {
    const std::optional<int> value = fractionOf(setting, text);
    return value ? std::variant<int, std::string>(*value) : refusalOf(setting, text);
  }
  std::optional<long long> value = choiceNamed(setting, text);
  if (!value) value = numberOf(text);
  const bool fits = value && *value >= std::numeric_limits<int>::min() && *value <= std::numeric_limits<int>::max();
  if (fits && hasListedValue(setting, static_cast<int>(*value))) return static_cast<int>(*value);
  return refusalOf(setting, text);
}

}  // namespace keocam::cli
