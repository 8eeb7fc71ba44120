// Reads calibration texts as a host does, in as few lines as that takes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

struct ReadLens {
  unsigned bb = 0;
  std::string date;
  std::string name;
  bool with_1500 = false;
  std::vector<float> points;  ///< in the order of the text
  std::array<std::vector<uint8_t>, 3> tables;
};

/// Every lens of a text of version 0, 1, 2 or 3. Throws std::runtime_error where a key or a digit is missing.
std::vector<ReadLens> readCalibration(const std::string& text, unsigned version);
