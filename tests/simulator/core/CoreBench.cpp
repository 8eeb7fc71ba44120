#include "CoreBench.h"

#include <gtest/gtest.h>

namespace core_test {
namespace {

simulator::CoreOptions withClock(simulator::CoreOptions options, const std::shared_ptr<uint64_t>& now_ns) {
  options.clock = [now_ns] { return *now_ns; };
  return options;
}

}  // namespace

uint16_t crcOf(const Bytes& bytes) {
  // The remainder of the message followed by sixteen zero bits.
  uint32_t remainder = 0;
  for (std::size_t bit = 0; bit < (bytes.size() + 2) * 8; ++bit) {
    const uint32_t next = bit / 8 < bytes.size() ? (uint32_t{bytes[bit / 8]} >> (7 - bit % 8)) & 1U : 0U;
    remainder = (remainder << 1) | next;
    if ((remainder & 0x10000U) != 0) remainder ^= 0x11021U;
  }
  return static_cast<uint16_t>(remainder);
}

Bytes wordBytes(uint16_t word) { return {static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word & 0xFF)}; }

Bytes request(uint8_t function, const Bytes& payload) {
  Bytes bytes{
      0x6E, 0, 0, function, static_cast<uint8_t>(payload.size() >> 8), static_cast<uint8_t>(payload.size() & 0xFF)};
  simulator::appendU16(bytes, crcOf(bytes));
  bytes.insert(bytes.end(), payload.begin(), payload.end());
  simulator::appendU16(bytes, crcOf(bytes));
  return bytes;
}

Answer parse(const Bytes& bytes) {
  Answer answer;
  if (bytes.size() < 10) return answer;
  answer.status = bytes[1];
  answer.function = bytes[3];
  answer.payload.assign(bytes.begin() + 8, bytes.end() - 2);
  const bool lengths = simulator::loadU16(bytes.data() + 4) + 10U == bytes.size();
  const bool checks = crcOf(Bytes(bytes.begin(), bytes.begin() + 8)) == 0 && crcOf(bytes) == 0;
  // The frame's check sum over header and header check sum included makes both remainders 0.
  answer.sound = lengths && checks && bytes[0] == 0x6E && bytes[2] == 0;
  return answer;
}

CoreBench::CoreBench(simulator::CoreOptions options) : core(withClock(std::move(options), now_ns_)) {}

simulator::CoreOptions CoreBench::quietOptions() {
  simulator::CoreOptions options;
  options.thermal.still = true;
  return options;
}

simulator::CoreOptions CoreBench::plainOptions() {
  simulator::CoreOptions options = quietOptions();
  options.identity.part_number = "46640001X-FPNLX";
  return options;
}

Bytes CoreBench::send(const Bytes& bytes, const simulator::UartLine& line) {
  const simulator::UartReply reply = core.receive(bytes.data(), bytes.size(), line);
  delay_ns = reply.delay_ns;
  return reply.bytes;
}

Answer CoreBench::ask(uint8_t function, const Bytes& payload) { return parse(send(request(function, payload))); }

uint8_t CoreBench::statusOf(uint8_t function, const Bytes& payload) {
  const Answer answer = ask(function, payload);
  EXPECT_TRUE(answer.sound) << "function " << unsigned{function};
  EXPECT_EQ(answer.function, function);
  return answer.status;
}

}  // namespace core_test
