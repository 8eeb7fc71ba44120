#include "simulator/core/FrameDecoder.h"

#include <algorithm>

#include "simulator/core/CoreFrame.h"
#include "simulator/core/Crc16.h"

namespace simulator {
namespace {

/// A damaged header is answered only where it came alone: in front of a frame it is taken for noise, and behind a
/// damaged frame for the rest of it. One answer is enough for all damage of one delivery.
void keepOneAnswerForDamage(std::vector<DecodedFrame>& found) {
  bool answered = std::any_of(found.begin(), found.end(), [](const DecodedFrame& piece) {
    return piece.verdict < Verdict::Noise && piece.verdict != Verdict::DamagedHeader;
  });
  for (DecodedFrame& piece : found) {
    if (piece.verdict != Verdict::DamagedHeader) continue;
    if (answered) piece.verdict = Verdict::Noise;
    answered = true;
  }
}

}  // namespace

std::vector<DecodedFrame> FrameDecoder::feed(const uint8_t* data, std::size_t size, uint64_t end_ns,
                                             uint64_t duration_ns) {
  std::vector<DecodedFrame> found;
  if (!pending_.empty() && end_ns > last_ns_ + duration_ns + kLongestPauseNs) {
    take(Verdict::Partial, pending_.size(), found);
  }
  last_ns_ = end_ns;
  pending_.insert(pending_.end(), data, data + size);
  for (bool more = true; more;) {
    std::size_t at = 0;
    while (at < pending_.size() && startAt(at) == Start::None) ++at;
    skipTo(at, found);
    more = !pending_.empty() && startAt(0) == Start::Sound && takeFrame(found);
  }
  keepOneAnswerForDamage(found);
  return found;
}

FrameDecoder::Start FrameDecoder::startAt(std::size_t at) const {
  const uint8_t* header = pending_.data() + at;
  if (pending_.size() - at < frame::kHeaderBytes) return *header == kProcessCode ? Start::Incomplete : Start::None;
  // Zeros carry the right check sum of their own; they are an idle line, not a process.
  const bool sound =
      header[frame::kProcess] != 0 && crc16(header, frame::kHeaderCrc) == loadU16(header + frame::kHeaderCrc);
  return sound ? Start::Sound : Start::None;
}

void FrameDecoder::skipTo(std::size_t at, std::vector<DecodedFrame>& found) {
  const auto end = pending_.begin() + static_cast<std::ptrdiff_t>(at);
  const auto damaged = static_cast<std::size_t>(std::find(pending_.begin(), end, kProcessCode) - pending_.begin());
  if (damaged > 0) take(Verdict::Noise, damaged, found);
  if (damaged == at) return;
  // What is left has at least a header's length, or its first byte would be the start of an incomplete one.
  const uint8_t function = pending_[frame::kFunction];
  take(Verdict::DamagedHeader, at - damaged, found);
  found.back().function = function;
}

bool FrameDecoder::takeFrame(std::vector<DecodedFrame>& found) {
  const uint8_t* header = pending_.data();
  const uint8_t function = header[frame::kFunction];
  const std::size_t count = loadU16(header + frame::kByteCount);
  const std::size_t size = count + frame::kOverheadBytes;
  if (header[frame::kProcess] != kProcessCode || header[frame::kStatus] != 0 || header[frame::kReserved] != 0) {
    take(Verdict::UndefinedProcess, std::min(size, pending_.size()), found);
    found.back().function = function;
    return true;
  }
  if (count > kLargestPayload) {
    take(Verdict::TooLong, frame::kHeaderBytes, found);
    found.back().function = function;
    return true;
  }
  if (pending_.size() < size) return false;
  const bool good = crc16(header, size - frame::kCrcBytes) == loadU16(header + size - frame::kCrcBytes);
  DecodedFrame frame{good ? Verdict::Frame : Verdict::DamagedFrame, Bytes(header, header + size), function,
                     Bytes(header + frame::kPayload, header + frame::kPayload + count)};
  found.push_back(std::move(frame));
  // Where bytes were lost, the next frame has already begun inside this one.
  std::size_t next = size;
  if (!good) {
    next = frame::kHeaderBytes;
    while (next < size && startAt(next) == Start::None) ++next;
  }
  erase(next);
  return true;
}

void FrameDecoder::take(Verdict verdict, std::size_t size, std::vector<DecodedFrame>& found) {
  const auto end = pending_.begin() + static_cast<std::ptrdiff_t>(size);
  found.push_back({verdict, Bytes(pending_.begin(), end), 0, {}});
  erase(size);
}

void FrameDecoder::erase(std::size_t size) {
  pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(size));
}

}  // namespace simulator
