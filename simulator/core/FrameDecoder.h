// Finds frames in the bytes that arrive at the core.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/Bytes.h"
#include "simulator/Clock.h"

namespace simulator {

/// What a piece of the input turned out to be. Everything up to TooLong is answered.
enum class Verdict {
  Frame,             ///< both check sums are right; function and payload are still to be judged
  DamagedFrame,      ///< the frame's check sum is wrong, the header's is right
  DamagedHeader,     ///< looks like a header, but its check sum is wrong, and nothing else came with it
  UndefinedProcess,  ///< a sound header with another process code, or a status or reserved byte that is not 0
  TooLong,           ///< a sound header that announces more bytes than any function takes
  Noise,             ///< belongs to no frame
  Partial,           ///< the beginning of a frame whose end did not come in time
  WrongLine,         ///< sent with other line settings than the core's
  InReset,           ///< arrived while the core was starting
};

struct DecodedFrame {
  Verdict verdict = Verdict::Noise;
  Bytes bytes;  ///< as they arrived
  uint8_t function = 0;
  Bytes payload;  ///< of Frame and DamagedFrame
};

/// Not thread-safe.
class FrameDecoder {
 public:
  /// No function takes more.
  static constexpr std::size_t kLargestPayload = 256;
  /// A frame with a longer pause in it is given up.
  static constexpr uint64_t kLongestPauseNs = 50 * kNanosecondsPerMillisecond;

  /// Takes bytes that ended at `end_ns` and took `duration_ns` on the line. Bytes in front of a frame are skipped; a
  /// frame that is not complete waits for its rest. Only a whole header tells another process code from noise, so such
  /// a header must come in one piece.
  std::vector<DecodedFrame> feed(const uint8_t* data, std::size_t size, uint64_t end_ns, uint64_t duration_ns);

  void clear() { pending_.clear(); }

 private:
  enum class Start { None, Incomplete, Sound };
  Start startAt(std::size_t at) const;
  void skipTo(std::size_t at, std::vector<DecodedFrame>& found);
  /// False when more bytes are needed.
  bool takeFrame(std::vector<DecodedFrame>& found);
  void take(Verdict verdict, std::size_t size, std::vector<DecodedFrame>& found);
  void erase(std::size_t size);

  Bytes pending_;
  uint64_t last_ns_ = 0;
};

}  // namespace simulator
