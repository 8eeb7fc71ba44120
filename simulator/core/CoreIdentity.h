// Who a core is: part number, serial numbers and versions, and what follows from them.
#pragma once

#include <cstdint>
#include <string>

#include "simulator/Bytes.h"

namespace simulator {

struct CoreVersions {
  uint16_t software_major = 4;
  uint16_t software_minor = 1;
  uint16_t firmware_major = 2;
  uint16_t firmware_minor = 7;
};

struct CoreIdentity {
  std::string part_number = "46640001X-FRNLX";  ///< 1 to 32 printable characters but '^'
  uint32_t core_serial = 701001;
  uint32_t sensor_serial = 301001;
  CoreVersions versions;
};

/// Throws std::invalid_argument with a text that names the part number and what it may be.
void checkPartNumber(const std::string& part_number);

/// The letter at index 11 is 'R' or 'I'.
bool isRadiometric(const CoreIdentity& identity);

/// The letter at index 10 is 'F'.
bool isFast(const CoreIdentity& identity);

/// Pictures a second that the core makes, by which it counts its frames.
double coreFrameRateHz(const CoreIdentity& identity);

/// The answers' payloads.
Bytes serialNumberAnswer(const CoreIdentity& identity);
Bytes versionAnswer(const CoreIdentity& identity);
Bytes partNumberAnswer(const CoreIdentity& identity);

}  // namespace simulator
