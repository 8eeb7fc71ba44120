// Times of this host's clock as text, in coordinated universal time.
#pragma once

#include <cstdint>
#include <string>

namespace keocam::cli {

/// "2026-11-21T09:15:36.123Z" of nanoseconds since 1970.
std::string isoTime(uint64_t time_ns);

/// "2026:11:21 09:15:36", as cameras write it into pictures.
std::string pictureTime(uint64_t time_ns);

}  // namespace keocam::cli
