#include "simulator/Uart.h"

#include <algorithm>

#include "simulator/Clock.h"

namespace simulator {

uint64_t characterTimeNs(const UartLine& line) {
  const uint64_t bits = 1U + 8U + (line.parity == UartParity::None ? 0U : 1U) + line.stop_bits;
  return bits * kNanosecondsPerSecond / line.baud;
}

Uart::Uart(std::shared_ptr<UartPeer> peer, bool pacing, StatisticsBoard& statistics)
    : peer_(std::move(peer)), pacing_(pacing), statistics_(statistics) {}

void Uart::configure(const UartLine& line, bool enabled, bool loopback) {
  line_ = line;
  enabled_ = enabled;
  loopback_ = loopback;
}

uint64_t Uart::paced(const UartLine& line) const { return pacing_ ? characterTimeNs(line) : 0; }

std::size_t Uart::write(const uint8_t* data, std::size_t size, uint64_t now_ns) {
  advance(now_ns);
  const std::size_t taken = std::min(size, kQueueBytes - outgoing_bytes_);
  statistics_.add(Counter::UartFromHost, taken);
  if (taken == 0 || !enabled_) return taken;
  const uint64_t start_ns = std::max(now_ns, transmitter_free_ns_);
  transmitter_free_ns_ = start_ns + taken * paced(line_);
  Bytes bytes(data, data + taken);
  // A looped back character arrives as it leaves: the two directions share their time.
  if (loopback_) receiveLater(bytes, start_ns, paced(line_));
  const bool to_peer = peer_ != nullptr && !loopback_;
  outgoing_.push_back({to_peer ? std::move(bytes) : Bytes(), taken, line_, transmitter_free_ns_});
  outgoing_bytes_ += taken;
  advance(now_ns);
  return taken;
}

void Uart::receiveLater(Bytes bytes, uint64_t start_ns, uint64_t character_ns) {
  const uint64_t begin_ns = std::max(start_ns, receiver_free_ns_);
  receiver_free_ns_ = begin_ns + bytes.size() * character_ns;
  incoming_.push_back({std::move(bytes), 0, begin_ns, character_ns});
}

void Uart::advance(uint64_t now_ns) {
  while (!outgoing_.empty() && outgoing_.front().done_ns <= now_ns) {
    const Outgoing chunk = std::move(outgoing_.front());
    outgoing_.pop_front();
    outgoing_bytes_ -= chunk.size;
    if (chunk.bytes.empty()) continue;
    UartReply reply = peer_->receive(chunk.bytes.data(), chunk.bytes.size(), chunk.line);
    if (!reply.bytes.empty()) receiveLater(std::move(reply.bytes), chunk.done_ns + reply.delay_ns, paced(chunk.line));
  }
  while (!incoming_.empty()) {
    Incoming& chunk = incoming_.front();
    while (chunk.arrived < chunk.bytes.size() && chunk.start_ns + (chunk.arrived + 1) * chunk.character_ns <= now_ns) {
      if (received_.size() < kQueueBytes) {
        received_.push_back(chunk.bytes[chunk.arrived]);
      } else {
        statistics_.add(Counter::UartOverflow);
      }
      ++chunk.arrived;
    }
    if (chunk.arrived < chunk.bytes.size()) break;
    incoming_.pop_front();
  }
}

Bytes Uart::read(std::size_t size, uint64_t now_ns) {
  advance(now_ns);
  const auto count = static_cast<std::ptrdiff_t>(std::min(size, received_.size()));
  Bytes bytes(received_.begin(), received_.begin() + count);
  received_.erase(received_.begin(), received_.begin() + count);
  statistics_.add(Counter::UartToHost, bytes.size());
  return bytes;
}

std::size_t Uart::waiting(uint64_t now_ns) {
  advance(now_ns);
  return received_.size();
}

void Uart::discardReceived(uint64_t now_ns) {
  advance(now_ns);
  received_.clear();
}

uint64_t Uart::nextDeliveryNs() const { return outgoing_.empty() ? kNever : outgoing_.front().done_ns; }

}  // namespace simulator
