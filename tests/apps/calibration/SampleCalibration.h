// Small calibration texts, for tests to spoil.
#pragma once

#include <cstddef>
#include <string>

namespace keocam::cli {

/// What a record is made of; all that is not touched is as it should be. Tables have the size of a 160x128 sensor's.
struct SampleRecord {
  std::string bb = "BB:2";
  std::string date = "Cdate:2026-03-02";
  std::string lens = "Lens:L25mm";
  std::string data;       ///< with 600 points
  std::string data_1500;  ///< empty: none
  std::string low;
  std::string middle;
  std::string high;

  SampleRecord();
  std::string text() const { return bb + date + lens + data + data_1500 + low + middle + high; }
};

inline constexpr std::size_t kSampleTable_bytes = std::size_t{160} * 128 * 4;

/// A record of the range up to 1500 degrees.
SampleRecord sampleWith1500();

/// `count` points as digits, none of them 0, neighbours different.
std::string samplePoints(std::size_t count);

/// So many bytes as digits.
std::string sampleTable(std::size_t bytes, char digit);

}  // namespace keocam::cli
