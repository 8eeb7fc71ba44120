// The small control client against a peer that answers as told.
#include "pv/aravis/GvcpClient.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <functional>
#include <thread>
#include <vector>

#include "pv/aravis/ControlProbe.h"
#include "pv/aravis/NetworkInterfaces.h"
#include "tests/pv/TestCamera.h"

namespace {

using keocam::ControlState;
using keocam::RegisterAnswer;
using std::chrono::milliseconds;
using Datagram = std::vector<uint8_t>;

const keocam::InterfaceDetails kLoopback{"lo", "127.0.0.1", "255.0.0.0"};
constexpr char kPeer[] = "127.0.0.77";

// Answers the first command with the datagrams that `answers` makes of it.
class Peer {
 public:
  explicit Peer(std::function<std::vector<Datagram>(const Datagram&)> answers) : answers_(std::move(answers)) {
    EXPECT_TRUE(socket_.open());
    EXPECT_TRUE(socket_.bindTo(keocam::parseIpv4(kPeer).value(), 3956));
    thread_ = std::thread([this] { serve(); });
  }
  ~Peer() { thread_.join(); }

 private:
  void serve() {
    Datagram command(64);
    sockaddr_in from{};
    socklen_t from_size = sizeof from;
    const timeval patience{3, 0};
    setsockopt(socket_.descriptor(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    auto* const address = reinterpret_cast<sockaddr*>(&from);
    const ssize_t size = recvfrom(socket_.descriptor(), command.data(), command.size(), 0, address, &from_size);
    if (size < 0) return;
    command.resize(static_cast<std::size_t>(size));
    for (const Datagram& answer : answers_(command)) {
      EXPECT_GE(sendto(socket_.descriptor(), answer.data(), answer.size(), 0, address, from_size), 0);
    }
  }

  std::function<std::vector<Datagram>(const Datagram&)> answers_;
  keocam::UdpSocket socket_;
  std::thread thread_;
};

Datagram answerTo(const Datagram& command, uint16_t status, uint8_t kind, const Datagram& payload) {
  Datagram answer(8 + payload.size());
  answer[0] = static_cast<uint8_t>(status >> 8);
  answer[1] = static_cast<uint8_t>(status & 0xFF);
  answer[3] = kind;
  answer[5] = static_cast<uint8_t>(payload.size());
  std::copy_n(&command.at(6), 2, &answer[6]);
  std::copy(payload.begin(), payload.end(), answer.begin() + 8);
  return answer;
}

std::optional<RegisterAnswer> ask(milliseconds wait = milliseconds(1000)) {
  keocam::GvcpClient client;
  EXPECT_TRUE(client.open(kLoopback, kPeer));
  return client.readRegister(keocam::bootstrap::kControlPrivilege, wait);
}

TEST(GvcpClient, ReadRegister_Answer_IsItsValue) {
  Datagram seen;
  const Peer peer([&](const Datagram& command) {
    seen = command;
    return std::vector<Datagram>{answerTo(command, 0, 0x81, {0x12, 0x34, 0x56, 0x78})};
  });
  const auto answer = ask();
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 0);
  EXPECT_EQ(answer->value, 0x12345678U);
  ASSERT_EQ(seen.size(), 12U);
  EXPECT_EQ((Datagram{seen.begin(), seen.begin() + 6}), (Datagram{0x42, 0x01, 0x00, 0x80, 0x00, 0x04}));
  EXPECT_EQ((Datagram{seen.begin() + 8, seen.end()}), (Datagram{0x00, 0x00, 0x0A, 0x00}));
}

TEST(GvcpClient, ReadRegister_ErrorStatus_IsTold) {
  const Peer peer([](const Datagram& command) { return std::vector<Datagram>{answerTo(command, 0x8006, 0x81, {})}; });
  const auto answer = ask();
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 0x8006);
}

TEST(GvcpClient, ReadRegister_StrayDatagrams_ArePassedOver) {
  const Peer peer([](const Datagram& command) {
    Datagram other = answerTo(command, 0, 0x81, {9, 9, 9, 9});
    other[7] = static_cast<uint8_t>(other[7] + 1);
    return std::vector<Datagram>{{},
                                 {1, 2, 3},
                                 Datagram(200, 0xFF),
                                 other,
                                 answerTo(command, 0, 0x81, {1}),
                                 answerTo(command, 0, 0x85, {9, 9, 9, 9}),
                                 answerTo(command, 0, 0x81, {0, 0, 0, 2})};
  });
  const auto answer = ask();
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->value, 2U);
}

TEST(GvcpClient, ReadRegister_PendingAnswer_WaitsOn) {
  const Peer peer([](const Datagram& command) {
    return std::vector<Datagram>{answerTo(command, 0, 0x89, {0, 0, 0x01, 0xF4})};
  });
  std::optional<RegisterAnswer> answer;
  const double took_ms = pv_test::durationOf([&] { answer = ask(milliseconds(50)); });
  EXPECT_FALSE(answer);
  EXPECT_GE(took_ms, 490);
  EXPECT_LT(took_ms, 500 + 2 * pv_test::kScheduling_ms);
}

TEST(GvcpClient, ReadRegister_PendingAnswerOfLessThanTheWait_DoesNotShortenIt) {
  const Peer peer([](const Datagram& command) {
    return std::vector<Datagram>{answerTo(command, 0, 0x89, {0, 0, 0x00, 0x0A})};
  });
  std::optional<RegisterAnswer> answer;
  const double took_ms = pv_test::durationOf([&] { answer = ask(milliseconds(200)); });
  EXPECT_FALSE(answer);
  EXPECT_GE(took_ms, 199);
}

TEST(GvcpClient, Waited_PatienceIncluded_IsWhatTheQuestionTook) {
  const Peer peer([](const Datagram& command) {
    return std::vector<Datagram>{answerTo(command, 0, 0x89, {0, 0, 0xFF, 0xFF})};
  });
  keocam::GvcpClient client;
  ASSERT_TRUE(client.open(kLoopback, kPeer));
  EXPECT_FALSE(client.readRegister(keocam::bootstrap::kControlPrivilege, milliseconds(50), milliseconds(300)));
  EXPECT_EQ(client.waited(), milliseconds(300));
  EXPECT_FALSE(client.readRegister(keocam::bootstrap::kControlPrivilege, milliseconds(50)));
  EXPECT_EQ(client.waited(), milliseconds(50));
}

TEST(ControlProbe, DeviceThatAsksForPatience_IsNoAnswerWithinItsLimit) {
  const Peer peer([](const Datagram& command) {
    return std::vector<Datagram>{answerTo(command, 0, 0x89, {0, 0, 0xFF, 0xFF})};
  });
  ControlState state = ControlState::Free;
  const double took_ms = pv_test::durationOf([&] { state = keocam::probeControl(kLoopback, kPeer); });
  EXPECT_EQ(state, ControlState::NoAnswer);
  EXPECT_LT(took_ms, 700 + pv_test::kScheduling_ms);
}

TEST(GvcpClient, ReadRegister_NobodyThere_WaitsAsAsked) {
  std::optional<RegisterAnswer> answer;
  const double took_ms = pv_test::durationOf([&] { answer = ask(milliseconds(100)); });
  EXPECT_FALSE(answer);
  EXPECT_GE(took_ms, 99);
  EXPECT_LT(took_ms, 120 + pv_test::kScheduling_ms);
}

TEST(GvcpClient, Open_AddressesThatAreNone_Fails) {
  keocam::GvcpClient client;
  EXPECT_FALSE(client.open({"lo", "nowhere", ""}, kPeer));
  keocam::GvcpClient other;
  EXPECT_FALSE(other.open(kLoopback, "camera"));
  EXPECT_EQ(keocam::probeControl({"lo", "203.0.113.200", ""}, kPeer), ControlState::NoAnswer);
}

TEST(ControlProbe, RefusedQuestion_IsControlled) {
  const Peer peer([](const Datagram& command) { return std::vector<Datagram>{answerTo(command, 0x8006, 0x81, {})}; });
  EXPECT_EQ(keocam::probeControl(kLoopback, kPeer), ControlState::Controlled);
}

}  // namespace
