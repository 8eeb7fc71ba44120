// One lens' part of a calibration text, looked up in a folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/Bytes.h"

namespace simulator {

struct LensRecord {
  std::string text;   ///< from its "BB:" to the next lens'
  std::string where;  ///< names lens and file, for messages
};

/// The record of the first lens of this name; a name may be short of its blanks. Throws std::runtime_error with a text
/// that names what is missing, and the lenses that are there.
LensRecord readLensRecord(const std::string& folder, const std::string& serial, const std::string& lens);

/// The bytes that an even number of hexadecimal digits stand for; empty where there is anything else.
std::optional<Bytes> bytesOfHex(std::string_view digits);

}  // namespace simulator
