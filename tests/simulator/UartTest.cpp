// The UART: bytes take the time of the line, queues are bounded, a peer gets what is written.
#include "simulator/Uart.h"

#include <gtest/gtest.h>

#include "simulator/Clock.h"

namespace {

using namespace simulator;

constexpr uint64_t kStartNs = kNanosecondsPerSecond;
// Ten bits at 57600 baud.
constexpr uint64_t kCharacterNs = 173611;

/// Answers each delivery with its bytes plus one, two milliseconds later.
class AddingPeer final : public UartPeer {
 public:
  UartReply receive(const uint8_t* data, std::size_t size, const UartLine& line) override {
    ++deliveries;
    last_line = line;
    UartReply reply;
    reply.delay_ns = 2 * kNanosecondsPerMillisecond;
    for (std::size_t i = 0; i < size; ++i) reply.bytes.push_back(static_cast<uint8_t>(data[i] + 1));
    return reply;
  }
  int deliveries = 0;
  UartLine last_line;
};

TEST(CharacterTime, CountsStartDataParityAndStopBits) {
  EXPECT_EQ(characterTimeNs({57600, 1, UartParity::None}), kCharacterNs);
  EXPECT_EQ(characterTimeNs({9600, 2, UartParity::Even}), 12U * kNanosecondsPerSecond / 9600U);
  EXPECT_EQ(characterTimeNs({921600, 1, UartParity::Odd}), 11U * kNanosecondsPerSecond / 921600U);
}

TEST(Uart, Loopback_BytesArriveOneCharacterTimeApart) {
  StatisticsBoard statistics;
  Uart uart(nullptr, true, statistics);
  uart.configure({}, true, true);
  const Bytes sent{1, 2, 3};
  EXPECT_EQ(uart.write(sent.data(), sent.size(), kStartNs), 3U);
  EXPECT_EQ(uart.waiting(kStartNs + kCharacterNs - 1), 0U);
  EXPECT_EQ(uart.waiting(kStartNs + kCharacterNs), 1U);
  EXPECT_EQ(uart.waiting(kStartNs + 3 * kCharacterNs - 1), 2U);
  EXPECT_EQ(uart.read(10, kStartNs + 3 * kCharacterNs), sent);
}

TEST(Uart, SecondWrite_QueuesBehindTheFirst) {
  StatisticsBoard statistics;
  Uart uart(nullptr, true, statistics);
  uart.configure({}, true, true);
  const Bytes sent{1, 2};
  uart.write(sent.data(), 2, kStartNs);
  uart.write(sent.data(), 2, kStartNs + 1);
  EXPECT_EQ(uart.waiting(kStartNs + 4 * kCharacterNs - 1), 3U);
  EXPECT_EQ(uart.waiting(kStartNs + 4 * kCharacterNs), 4U);
}

TEST(Uart, NewBaudRate_CountsForWhatIsWrittenAfterwards) {
  StatisticsBoard statistics;
  Uart uart(nullptr, true, statistics);
  uart.configure({9600, 1, UartParity::None}, true, true);
  const uint8_t byte = 1;
  uart.write(&byte, 1, kStartNs);
  EXPECT_EQ(uart.waiting(kStartNs + 1'041'665), 0U);
  EXPECT_EQ(uart.waiting(kStartNs + 1'041'666), 1U);
}

TEST(Uart, WithoutPacing_BytesAreThereAtOnce) {
  StatisticsBoard statistics;
  Uart uart(nullptr, false, statistics);
  uart.configure({}, true, true);
  const Bytes sent(300, 7);
  uart.write(sent.data(), sent.size(), kStartNs);
  EXPECT_EQ(uart.waiting(kStartNs), 300U);
}

TEST(Uart, WithoutPeerOrLoopback_BytesVanish) {
  StatisticsBoard statistics;
  Uart uart(nullptr, false, statistics);
  const uint8_t byte = 1;
  EXPECT_EQ(uart.write(&byte, 1, kStartNs), 1U);
  EXPECT_EQ(uart.waiting(kStartNs + kNanosecondsPerSecond), 0U);
}

TEST(Uart, Peer_GetsBytesWhenTheLastHasArrivedAndItsAnswerTakesTime) {
  StatisticsBoard statistics;
  const auto peer = std::make_shared<AddingPeer>();
  Uart uart(peer, true, statistics);
  const UartLine line{57600, 1, UartParity::None};
  uart.configure(line, true, false);
  const Bytes sent{10, 20};
  uart.write(sent.data(), 2, kStartNs);
  const uint64_t delivered_ns = kStartNs + 2 * kCharacterNs;
  EXPECT_EQ(uart.nextDeliveryNs(), delivered_ns);
  uart.advance(delivered_ns - 1);
  EXPECT_EQ(peer->deliveries, 0);
  uart.advance(delivered_ns);
  EXPECT_EQ(peer->deliveries, 1);
  EXPECT_TRUE(peer->last_line == line);
  EXPECT_EQ(uart.nextDeliveryNs(), kNever);
  const uint64_t answered_ns = delivered_ns + 2 * kNanosecondsPerMillisecond + 2 * kCharacterNs;
  EXPECT_EQ(uart.waiting(answered_ns - 1), 1U);
  EXPECT_EQ(uart.read(10, answered_ns), (Bytes{11, 21}));
}

TEST(Uart, ReceiveQueue_Full_CountsWhatIsLost) {
  StatisticsBoard statistics;
  Uart uart(nullptr, false, statistics);
  uart.configure({}, true, true);
  const Bytes sent(1000, 7);
  for (int i = 0; i < 70; ++i) uart.write(sent.data(), sent.size(), kStartNs);
  EXPECT_EQ(uart.waiting(kStartNs), Uart::kQueueBytes);
  EXPECT_EQ(statistics.snapshot()[Counter::UartOverflow], 70'000U - Uart::kQueueBytes);
}

TEST(Uart, TransmitQueue_Full_TakesNoMore) {
  StatisticsBoard statistics;
  Uart uart(nullptr, true, statistics);
  const Bytes sent(Uart::kQueueBytes - 10, 7);
  EXPECT_EQ(uart.write(sent.data(), sent.size(), kStartNs), sent.size());
  EXPECT_EQ(uart.write(sent.data(), sent.size(), kStartNs), 10U);
  EXPECT_EQ(uart.write(sent.data(), sent.size(), kStartNs), 0U);
}

}  // namespace
