// The calibration text's grammars once more, in the plainest way: strings that are searched and cut, a character pair
// at a time. What the library's reader makes of a text is compared with it.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "calibration/Calibration.h"

namespace fuzz {

struct PlainLens {
  bool slopes_valid = false;
  bool has_1500_range = false;
  unsigned long bb = 0;
  std::string date;
  std::string name;
  double data[3][60][5] = {};
  double slopes[2][60] = {};
  std::vector<uint8_t> low;
  std::vector<uint8_t> high;
  std::vector<uint8_t> high_1500;
};

class PlainCalibrationReader {
 public:
  std::vector<PlainLens> lenses;
  CameraSpeed speed;

  /// Throws what the reader throws; `lenses` and `speed` are then as they were before the fault.
  void read(std::string text, const std::string& version, const std::string& serial) {
    const auto number = static_cast<int32_t>(static_cast<uint32_t>(std::stoul(version)));
    if (number == 0) readVersion0(text);
    if (number <= 0) return;
    while (text.find("BB:") != std::string::npos) {
      PlainLens lens;
      lens.bb = std::stoul(valueOf(text, "BB:", 1));
      lens.date = valueOf(text, "Cdate:", 10);
      lens.name = valueOf(text, "Lens:", 5);
      std::string points = valueOf(text, "Data:", 4800);
      if (number == 1) text = valueOf(text, "Data:");
      if (number >= 3 && text.find("Data1500:") != std::string::npos) {
        lens.has_1500_range = true;
        points += valueOf(text, "Data1500:", 2400);
      }
      if (number >= 2) lens.low = cutTable(text, "SffcLowRange:");
      if (number >= 2) lens.high = cutTable(text, "SffcHighRange:");
      if (lens.has_1500_range) lens.high_1500 = cutTable(text, "Sffc1500Range:");
      fill(lens, points, number >= 3);
      if (number >= 3) computeSlopes(lens);
      speed = number >= 3 ? speedOf(serial) : CameraSpeed{false, speed.speed};
      lenses.push_back(lens);
    }
  }

 private:
  static std::string valueOf(const std::string& text, const std::string& key, std::size_t most = std::string::npos) {
    const int start = static_cast<int>(text.find(key)) + static_cast<int>(key.size());
    return text.substr(static_cast<std::size_t>(start), most);
  }

  static uint8_t byteOf(const std::string& pair) {
    return static_cast<uint8_t>(std::strtol(pair.c_str(), nullptr, 16) & 0xFF);
  }

  static std::vector<uint8_t> cutTable(std::string& text, const std::string& key) {
    text = valueOf(text, key);
    const std::string digits = text.substr(0, text.find(')'));
    std::vector<uint8_t> bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) bytes.push_back(byteOf(digits.substr(i, 2)));
    return bytes;
  }

  // Counters as the format describes them: the point within the row, the row, the range.
  static void fill(PlainLens& lens, const std::string& points, bool third_range) {
    int point = 0;
    int row = 0;
    int range = 0;
    for (std::size_t i = 0; i < points.size() / 8; ++i) {
      uint32_t bits = 0;
      for (std::size_t byte = 0; byte < 4; ++byte) {
        bits |= static_cast<uint32_t>(byteOf(points.substr(8 * i + 2 * byte, 2))) << 8 * byte;
      }
      float value = 0;
      std::memcpy(&value, &bits, sizeof value);
      lens.data[range][row][point] = static_cast<double>(value);
      if (++point == 5) {
        point = 0;
        if (++row == 60) row = 0;
      }
      if (i == 299) range = 1;
      if (i == 599 && third_range) range = 2;
    }
  }

  static void computeSlopes(PlainLens& lens) {
    lens.slopes_valid = lens.data[0][0][3] != 0.0;
    if (!lens.slopes_valid) return;
    for (int range = 0; range < 2; ++range) {
      for (int row = 0; row < 60; ++row) {
        const double* const points = lens.data[range][row];
        lens.slopes[range][row] = (points[4] - points[1]) / (points[0] - points[3]);
      }
    }
  }

  CameraSpeed speedOf(const std::string& serial) const {
    if (std::stoi(serial.substr(4, 7)) <= 1702) return {false, speed.speed};
    return {true, serial[3] == 'E' ? 2 : serial[3] == 'C' ? 0 : 1};
  }

  void readVersion0(const std::string& text) {
    PlainLens lens;
    lens.bb = 2;
    fill(lens, text, false);
    speed.set = false;
    lenses.push_back(lens);
  }
};

}  // namespace fuzz
