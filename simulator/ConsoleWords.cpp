#include "simulator/ConsoleWords.h"

#include <charconv>
#include <iomanip>
#include <sstream>

namespace simulator {

std::optional<uint32_t> numberOf(const std::string& word, uint32_t maximum) {
  uint32_t value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc() || end != word.data() + word.size() || value > maximum) return std::nullopt;
  return value;
}

std::string usageLine(std::string_view name, std::string_view arguments, std::string_view help) {
  std::ostringstream text;
  text << "  " << std::left << std::setw(36) << std::string(name) + " " + std::string(arguments) << help << '\n';
  return text.str();
}

std::string wrongArguments(std::string_view name, std::string_view arguments) {
  return "usage: " + std::string(name) + " " + std::string(arguments) + '\n';
}

}  // namespace simulator
