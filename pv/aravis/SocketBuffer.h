// How large a stream's socket buffer is to be.
#pragma once

#include <cstdint>

namespace keocam {

/// Bytes for frames of `payload_bytes`: four of them, at least 2 MiB. With the system's default, frames in flight while
/// the receiving thread waits for the processor are lost. Where the system allows less, says so once on standard error
/// with the command that raises its limit.
uint32_t socketBufferFor(uint64_t payload_bytes);

}  // namespace keocam
