// What an exchange with the thermal core came to.
#pragma once

#include <cstdint>

/// 1 to 7 are the core's own words, or, for the first two that say so, the library's before it asked the core.
enum ResponseStatuses : uint32_t {
  CAM_OK = 0,
  CAM_RANGE_ERROR = 1,  ///< the core, or SetParameter without asking it, refuses the value
  CAM_CHECKSUM_ERROR = 2,
  CAM_UNDEFINED_PROCESS_ERROR = 3,
  CAM_UNDEFINED_FUNCTION_ERROR = 4,  ///< the core, or SetParameter without asking it, does not know the code
  CAM_TIMEOUT_ERROR = 5,
  CAM_BYTE_COUNT_ERROR = 6,
  CAM_FEATURE_NOT_ENABLED = 7,
  CAM_NOT_READABLE = 8,  ///< GetParameter on a command; nothing was sent
  CAM_NOT_WRITABLE = 9,  ///< SetParameter on something that can only be read; nothing was sent
  UNKNOWN_ERROR = 10,    ///< the exchange failed on its way, or the core gave a status that has no name
};
