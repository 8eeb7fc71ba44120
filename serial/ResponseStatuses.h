// What an exchange with the thermal core came to.
#pragma once

#include <cstdint>

/// Said by the core, unless a row says otherwise. "Checked" are the functions of namespace keocam, which look at the
/// whole of a reply.
enum ResponseStatuses : uint32_t {
  CAM_OK = 0,
  CAM_RANGE_ERROR = 1,     ///< the value is refused; by the library as well, which then sends nothing
  CAM_CHECKSUM_ERROR = 2,  ///< a message arrived damaged: the core's reply as well, where that is checked
  CAM_UNDEFINED_PROCESS_ERROR = 3,
  CAM_UNDEFINED_FUNCTION_ERROR = 4,  ///< the code is unknown; to SetParameter as well, which then sends nothing
  CAM_TIMEOUT_ERROR = 5,
  CAM_BYTE_COUNT_ERROR = 6,  ///< a message had the wrong length: the core's reply as well, where that is checked
  CAM_FEATURE_NOT_ENABLED = 7,
  CAM_NOT_READABLE = 8,  ///< by GetParameter, of a command; nothing was sent
  CAM_NOT_WRITABLE = 9,  ///< by SetParameter, of what can only be read; nothing was sent
  UNKNOWN_ERROR = 10,    ///< no answer, a status without a name, a code that GetParameter does not know, or, where that
                         ///< is checked, an answer to something else
};
