#include "SampleCalibration.h"

#include <cstdio>
#include <cstring>

namespace keocam::cli {

std::string samplePoints(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    const float value = static_cast<float>(i) + 0.5F;
    unsigned char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    char digits[9];
    std::snprintf(digits, sizeof digits, "%02x%02x%02x%02x", bytes[0], bytes[1], bytes[2], bytes[3]);
    text += digits;
  }
  return text;
}

std::string sampleTable(std::size_t bytes, char digit) { return std::string(2 * bytes, digit); }

SampleRecord::SampleRecord()
    : data("Data:" + samplePoints(600)),
      low("SffcLowRange:" + sampleTable(kSampleTable_bytes, '1') + ")"),
      middle("SffcHighRange:" + sampleTable(kSampleTable_bytes, '2') + ")") {}

SampleRecord sampleWith1500() {
  SampleRecord record;
  record.data_1500 = "Data1500:" + samplePoints(300);
  record.high = "Sffc1500Range:" + sampleTable(kSampleTable_bytes, '3') + ")";
  return record;
}

}  // namespace keocam::cli
