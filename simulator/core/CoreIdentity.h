// Who a core is: part number, serial numbers and versions, and what follows from them.
#pragma once

#include <cstdint>
#include <optional>
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

/// The letter at index 10 is 'F'. A part number of the alternative form, which has no resolution at indices 2 to 4 but
/// a model code at 6 and 7, is fast unless the letter at index 14 is 'S'.
bool isFast(const CoreIdentity& identity);

/// What not every core can do.
struct CoreAbilities {
  bool radiometric = false;
  bool fast = false;
};

CoreAbilities abilitiesOf(const CoreIdentity& identity);

/// Pictures a second that the core makes, by which it counts its frames.
double coreFrameRateHz(const CoreIdentity& identity);

/// The largest rate at which a camera with this core sends pictures: a slow core's own. Empty for a fast core, which
/// keeps to the camera's rate, so that tests need not take a real camera's time.
std::optional<double> frameRateLimitHz(const CoreIdentity& identity);

/// The answers' payloads.
Bytes serialNumberAnswer(const CoreIdentity& identity);
Bytes versionAnswer(const CoreIdentity& identity);
Bytes partNumberAnswer(const CoreIdentity& identity);

}  // namespace simulator
