// Whole cameras on loopback: discovery, control over sockets, and the faults of the control channel.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <set>
#include <thread>

#include "TestHost.h"
#include "simulator/RegisterAddresses.h"
#include "simulator/SimulatedCamera.h"

namespace {

using namespace simulator;
using gvcp::Bytes;

const Bytes kDiscovery{0x42, 1, 0, 2, 0, 0, 0xFF, 0xFF};

CameraOptions small(const std::string& ip = "127.0.0.2", const std::string& serial = "KEOD2001") {
  CameraOptions options;
  options.address = ip;
  options.serial = serial;
  options.sensor = {160, 128};
  return options;
}

bool eventually(const std::function<bool()>& condition) {
  for (int i = 0; i < 500; ++i) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

TEST(CameraOnLoopback, BroadcastDiscovery_IsAnsweredByEveryCameraFromItsOwnAddress) {
  SimulatedCamera first(small("127.0.0.2", "KEOD2001"));
  SimulatedCamera second(small("127.0.0.3", "KEOD2002"));
  HostSocket host;
  host.sendTo("255.255.255.255", kDiscovery);
  std::set<std::string> serials;
  std::set<Bytes> macs;
  for (int i = 0; i < 2; ++i) {
    uint16_t from = 0;
    const Bytes ack = host.receive(2000, &from);
    ASSERT_EQ(ack.size(), 256U);
    EXPECT_EQ(from, 3956);
    serials.insert(reinterpret_cast<const char*>(ack.data()) + 8 + 0xD8);
    macs.insert(Bytes(ack.begin() + 18, ack.begin() + 24));
  }
  EXPECT_EQ(serials, (std::set<std::string>{"KEOD2001", "KEOD2002"}));
  EXPECT_EQ(macs.size(), 2U);
}

TEST(CameraOnLoopback, UnicastDiscovery_IsAnswered) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  EXPECT_EQ(host.ask(kDiscovery).payload.size(), 0xF8U);
}

TEST(CameraOnLoopback, AddressInUse_ThrowsATextThatNamesIt) {
  SimulatedCamera camera(small());
  try {
    SimulatedCamera twin(small());
    FAIL() << "two cameras on one address";
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string(error.what()).find("127.0.0.2:3956 is in use"), std::string::npos) << error.what();
  }
}

TEST(CameraOnLoopback, UnusableOptions_Throw) {
  EXPECT_THROW(SimulatedCamera(small("192.0.2.1")), std::runtime_error);
  EXPECT_THROW(SimulatedCamera(small("nonsense")), std::runtime_error);
  EXPECT_THROW(SimulatedCamera(small("127.0.0.2", "A-SERIAL-NUMBER-TOO-LONG")), std::runtime_error);
  CameraOptions slow = small();
  slow.frame_rate_hz = 0;
  EXPECT_THROW(SimulatedCamera{slow}, std::runtime_error);
}

TEST(CameraOnLoopback, HeartbeatMissing_EndsControl) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  ASSERT_EQ(host.write(address::kHeartbeatTimeout, 500), 0);
  EXPECT_TRUE(camera.controlled());
  EXPECT_TRUE(eventually([&] { return !camera.controlled(); }));
  EXPECT_EQ(host.read(address::kControlPrivilege), 0U);
  EXPECT_EQ(camera.statistics()[Counter::ControlExpired], 1U);
}

TEST(CameraOnLoopback, IgnoreHeartbeat_EndsControlOfALivingHost) {
  CameraOptions options = small();
  options.faults.ignore_heartbeat = true;
  SimulatedCamera camera(options);
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  ASSERT_EQ(host.write(address::kHeartbeatTimeout, 500), 0);
  EXPECT_TRUE(eventually([&] { return host.read(address::kControlPrivilege) == 0U; }));
}

TEST(CameraOnLoopback, DropControl_IsSeenByTheHost) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  camera.dropControl();
  EXPECT_EQ(host.read(address::kControlPrivilege), 0U);
  EXPECT_EQ(host.write(address::kWidth, 100), 0x8006);
}

TEST(CameraOnLoopback, Occupied_RefusesControl) {
  SimulatedCamera camera(small());
  camera.setOccupied(true);
  TestHost host("127.0.0.2");
  EXPECT_EQ(host.read(address::kControlPrivilege), 2U);
  EXPECT_EQ(host.write(address::kControlPrivilege, 2), 0x8006);
  camera.setOccupied(false);
  EXPECT_TRUE(host.takeControl());
}

TEST(CameraOnLoopback, GvcpLoss_LeavesCommandsUnansweredAndUnexecuted) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  FaultSettings deaf;
  deaf.gvcp_loss_permille = 1000;
  camera.faults().set(deaf);
  EXPECT_FALSE(host.ask(gvcp::writeRegister(address::kWidth, 100, 900), 200).present);
  camera.faults().set({});
  EXPECT_EQ(host.read(address::kWidth), 160U);
  EXPECT_EQ(camera.statistics()[Counter::IgnoredCommand], 1U);
}

TEST(CameraOnLoopback, AckLoss_ExecutesOnceHoweverOftenTheHostRepeats) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  FaultSettings mute;
  mute.ack_loss_permille = 1000;
  camera.faults().set(mute);
  const Bytes start = gvcp::writeRegister(address::kAcquisitionStart, 1, 901);
  EXPECT_FALSE(host.ask(start, 200).present);
  EXPECT_TRUE(camera.streaming());
  camera.faults().set({});
  EXPECT_EQ(host.ask(start).status, 0);
  EXPECT_EQ(camera.statistics()[Counter::Replay], 1U);
  EXPECT_EQ(camera.statistics()[Counter::LostAck], 1U);
}

TEST(CameraOnLoopback, SlowAnswers_PromiseFirstAndKeepIt) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  FaultSettings slow;
  slow.slow_answer_ms = 100;
  camera.faults().set(slow);
  const Bytes request = gvcp::writeRegister(address::kWidth, 100, 902);
  const gvcp::Answer pending = host.ask(request);
  EXPECT_EQ(pending.command, 0x89);
  EXPECT_EQ(pending.id, 902);
  EXPECT_EQ(gvcp::u16At(pending.payload, 2), 300U);
  const gvcp::Answer answer = gvcp::parse(host.control.receive(2000));
  EXPECT_EQ(answer.command, 0x83);
  EXPECT_EQ(answer.id, 902);
  EXPECT_EQ(answer.status, 0);
}

TEST(CameraOnLoopback, Frozen_IsSilentAndThenAnswersAgainWithControlKept) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  camera.faults().freeze(300);
  EXPECT_FALSE(host.read(address::kControlPrivilege, 100).has_value());
  EXPECT_TRUE(eventually([&] { return host.read(address::kControlPrivilege, 50) == 2U; }));
}

TEST(CameraOnLoopback, Vanished_IsSilentAndComesBackWithoutControl) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  camera.faults().vanish();
  EXPECT_TRUE(eventually([&] { return !camera.controlled(); }));
  EXPECT_FALSE(host.ask(kDiscovery, 100).present);
  camera.faults().comeBack();
  EXPECT_TRUE(eventually([&] { return host.read(address::kControlPrivilege, 50) == 0U; }));
  EXPECT_TRUE(host.takeControl());
}

TEST(CameraOnLoopback, VanishAt_AnswersTheCommandThatReachesTheCountAndNoMore) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  camera.faults().vanishAt(Counter::ReadRegister, camera.statistics()[Counter::ReadRegister] + 2);
  EXPECT_EQ(host.write(address::kWidth, 100), 0) << "another command";
  EXPECT_EQ(host.read(address::kWidth), 100U);
  EXPECT_EQ(host.read(address::kWidth), 100U);
  EXPECT_FALSE(host.ask(kDiscovery, 100).present);
  camera.faults().comeBack();
  EXPECT_TRUE(eventually([&] { return host.read(address::kControlPrivilege, 50) == 0U; }));
  EXPECT_EQ(host.read(address::kWidth), 100U) << "once is enough";
}

TEST(CameraOnLoopback, PacedEcho_TakesTheTimeOfTheLine) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  ASSERT_EQ(host.write(address::kBulkLoopback, 1), 0);
  ASSERT_EQ(host.write(address::kBulkBaudRate, 9600), 0);
  ASSERT_EQ(host.write(address::kFileOperation, 0), 0);
  ASSERT_EQ(host.write(address::kFileExecute, 1), 0);
  const Bytes block = gvcp::join({gvcp::u32(3), gvcp::u32(0), gvcp::u32(96), gvcp::u32(1), Bytes(96, 0x41)});
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_EQ(host.ask(gvcp::writeMemory(address::kFileOperation, block, host.nextId())).status, 0);
  EXPECT_TRUE(eventually([&] { return host.read(address::kFileSize) == 96U; }));
  const auto elapsed = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(elapsed, std::chrono::milliseconds(100)) << "96 characters of ten bits at 9600 baud";
}

TEST(CameraOnLoopback, Statistics_CountCommandsByKind) {
  SimulatedCamera camera(small());
  TestHost host("127.0.0.2");
  host.takeControl();
  host.read(address::kControlPrivilege);
  host.ask(gvcp::readMemory(address::kXml, 512, host.nextId()));
  const Statistics statistics = camera.statistics();
  EXPECT_EQ(statistics[Counter::WriteRegister], 1U);
  EXPECT_EQ(statistics[Counter::ReadRegister], 1U);
  EXPECT_EQ(statistics[Counter::ReadMemory], 1U);
  EXPECT_EQ(statistics[Counter::Heartbeat], 1U);
  EXPECT_EQ(statistics[Counter::ControlTaken], 1U);
  EXPECT_EQ(counterName(Counter::UartOverflow), "uart-overflow");
}

}  // namespace
