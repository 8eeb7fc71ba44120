// Words of a console line, and the lines that explain a command.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

using Words = std::vector<std::string>;

/// Empty for anything but a decimal number of at most `maximum`.
std::optional<uint32_t> numberOf(const std::string& word, uint32_t maximum);

/// A line of "help".
std::string usageLine(std::string_view name, std::string_view arguments, std::string_view help);

/// What is said where a command's arguments make no sense.
std::string wrongArguments(std::string_view name, std::string_view arguments);

}  // namespace simulator
