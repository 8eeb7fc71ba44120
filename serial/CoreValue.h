// A value read from the thermal core together with how the reading went.
#pragma once

#include "serial/ResponseStatuses.h"

namespace keocam {

template <typename T>
struct CoreValue {
  ResponseStatuses status;  ///< CAM_OK: `value` is the core's
  T value;                  ///< else what an answer of zeros means

  bool ok() const { return status == CAM_OK; }
};

}  // namespace keocam
