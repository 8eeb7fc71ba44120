// The values of settings as people write and read them.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "serial/SettingRow.h"

namespace keocam::cli {

/// A setting that is either off or on.
bool isSwitch(const SettingRow& setting);

/// "automatic", "off", "7200". A value that is none of the setting's choices appears as its number.
std::string valueText(const SettingRow& setting, int value);

/// "manual, automatic, external" or "0 to 30000": the values that can be set.
std::string acceptedText(const SettingRow& setting);

/// The value that `text` means: a choice by its name or number, a number in decimal or 0x hexadecimal, a switch also as
/// true or false. Otherwise what is wrong, as a sentence that names setting, text and what is accepted; it is fit for a
/// terminal.
std::variant<int, std::string> parseValue(const SettingRow& setting, std::string_view text);

}  // namespace keocam::cli
