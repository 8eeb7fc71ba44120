// A calibration text cut at its keys, strictly: a value ends where the next key begins.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace keocam::cli {

/// In the order in which a record has them.
enum class CalibrationKey : uint8_t { Bb, Date, Lens, Data, Data1500, SffcLow, SffcHigh, Sffc1500 };
inline constexpr std::size_t kCalibrationKeys = 8;

/// As it stands in a text, its colon included.
std::string_view nameOf(CalibrationKey key);
/// The same in double quotes.
std::string quoted(CalibrationKey key);

struct KeyedValue {
  CalibrationKey key;
  std::size_t key_offset;
  std::size_t offset;      ///< of the value
  std::string_view value;  ///< up to the next key or the text's end
};

/// All keys with their values, in their order. One pass at memory speed; the text must outlive the result.
std::vector<KeyedValue> keyedValues(std::string_view text);

/// `text` without blanks and line ends at its end.
std::string_view withoutTrailingBlanks(std::string_view text);

}  // namespace keocam::cli
