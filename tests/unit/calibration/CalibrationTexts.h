// Calibration texts for tests, piece by piece.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace calibration_texts {

/// A float as eight hexadecimal characters, lowest byte first.
inline std::string hexFloat(float value) {
  uint32_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  std::string text;
  for (int i = 0; i < 4; ++i, bits >>= 8) {
    text += "0123456789ABCDEF"[bits >> 4 & 0xF];
    text += "0123456789ABCDEF"[bits & 0xF];
  }
  return text;
}

/// `count` floats: first, first + 1, ...
inline std::string hexFloats(std::size_t count, float first = 0.0F) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += hexFloat(first + static_cast<float>(i));
  return text;
}

/// `count` bytes: first, first + step, ...
inline std::vector<uint8_t> bytes(std::size_t count, unsigned int first = 1, unsigned int step = 7) {
  std::vector<uint8_t> result(count);
  for (std::size_t i = 0; i < count; ++i) result[i] = static_cast<uint8_t>((first + i * step) & 0xFF);
  return result;
}

inline std::string hexBytes(const std::vector<uint8_t>& data) {
  std::string text;
  for (const uint8_t byte : data) {
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 0xF];
  }
  return text;
}

/// A lens record as grammar 3 writes it.
struct Lens {
  std::string name = "L25mm";
  std::string date = "2024-05-06";
  char bb = '2';
  float first_point = 1.0F;
  std::vector<uint8_t> low = bytes(300, 1);
  std::vector<uint8_t> high = bytes(300, 2);
  bool has_1500 = false;
  std::vector<uint8_t> high_1500 = bytes(300, 3);
};

inline std::string heading(const Lens& lens) {
  return std::string("BB:") + lens.bb + "Cdate:" + lens.date + "Lens:" + lens.name;
}

inline std::string record(const Lens& lens) {
  std::string text = heading(lens) + "Data:" + hexFloats(600, lens.first_point);
  if (lens.has_1500) text += "Data1500:" + hexFloats(300, lens.first_point + 600);
  text += "SffcLowRange:" + hexBytes(lens.low) + ")SffcHighRange:" + hexBytes(lens.high) + ")";
  if (lens.has_1500) text += "Sffc1500Range:" + hexBytes(lens.high_1500) + ")";
  return text;
}

}  // namespace calibration_texts
