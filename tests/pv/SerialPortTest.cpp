// The bridged serial port, over both ways that devices offer.
#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "PvDeviceSerialPort.h"
#include "pv/aravis/PvLayer.h"
#include "pv/aravis/SerialConnection.h"
#include "pv/aravis/SerialFeatureAccess.h"
#include "tests/pv/TestCamera.h"

namespace {

using pv_test::Code;
using std::chrono::milliseconds;

std::vector<uint8_t> numbered(uint32_t size) {
  std::vector<uint8_t> bytes(size);
  std::iota(bytes.begin(), bytes.end(), uint8_t{1});
  return bytes;
}

class SerialPortTest : public testing::Test {
 protected:
  explicit SerialPortTest(const simulator::CameraOptions& options = pv_test::smallCamera())
      : camera_(options), connection_(options) {}

  void SetUp() override {
    ASSERT_TRUE(connection_.ok());
    ASSERT_TRUE(connection_.features().SetBooleanValue("BulkLoopback", true).IsOK());
    adapter_ = std::make_unique<PvDeviceAdapter>(connection_.device.get());
  }

  void echo(uint32_t size) {
    SCOPED_TRACE(size);
    const std::vector<uint8_t> sent = numbered(size);
    uint32_t count = 0;
    const PvResult written = port_.Write(sent.data(), size, count);
    ASSERT_TRUE(written.IsOK()) << pv_test::textOf(written);
    EXPECT_EQ(count, size);
    std::vector<uint8_t> received(size + 100);
    const PvResult read = port_.Read(received.data(), size + 100, count, 1000);
    ASSERT_TRUE(read.IsOK()) << pv_test::textOf(read);
    received.resize(count);
    EXPECT_EQ(received, sent);
  }

  simulator::SimulatedCamera camera_;
  pv_test::Connection connection_;
  std::unique_ptr<PvDeviceAdapter> adapter_;
  PvDeviceSerialPort port_;
};

TEST_F(SerialPortTest, Echo_OfEverySizeAroundAPiece_ComesBackWhole) {
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  for (const uint32_t size : {1U, 12U, 483U, 484U, 485U, 968U, 2000U}) echo(size);
}

TEST_F(SerialPortTest, Exchange_TakesFewTransactions) {
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  const auto before = camera_.statistics();
  const std::vector<uint8_t> sent = numbered(12);
  std::vector<uint8_t> received(12);
  uint32_t count = 0;
  ASSERT_TRUE(port_.Write(sent.data(), 12, count).IsOK());
  ASSERT_TRUE(port_.Read(received.data(), 12, count, 1000).IsOK());
  const auto after = camera_.statistics();
  // Write and its result, looks, take and its result; Aravis' heartbeat may fall in between.
  EXPECT_LE(after[simulator::Counter::WriteMemory] - before[simulator::Counter::WriteMemory], 2U);
  EXPECT_LE(after[simulator::Counter::ReadMemory] - before[simulator::Counter::ReadMemory], 6U);
}

TEST_F(SerialPortTest, Ready_CountsAndReadTakesAtMostWhatIsAsked) {
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  const std::vector<uint8_t> sent = numbered(20);
  uint32_t count = 0;
  ASSERT_TRUE(port_.Write(sent.data(), 20, count).IsOK());
  ASSERT_TRUE(port_.GetRxBytesReady(count).IsOK());
  EXPECT_EQ(count, 20U);
  std::vector<uint8_t> received(8);
  ASSERT_TRUE(port_.Read(received.data(), 8, count, 1000).IsOK());
  EXPECT_EQ(count, 8U);
  EXPECT_EQ(received, numbered(8));
  ASSERT_TRUE(port_.GetRxBytesReady(count).IsOK());
  EXPECT_EQ(count, 12U);
  EXPECT_TRUE(port_.Read(received.data(), 0, count, 1000).IsOK());
  EXPECT_EQ(count, 0U);
}

TEST_F(SerialPortTest, Read_NothingComes_IsTimeoutInTime) {
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  for (const uint32_t timeout_ms : {0U, 100U, 500U}) {
    uint8_t byte = 0;
    uint32_t count = 7;
    PvResult result;
    const double took_ms = pv_test::durationOf([&] { result = port_.Read(&byte, 1, count, timeout_ms); });
    EXPECT_EQ(result.GetCode(), Code::Timeout) << pv_test::textOf(result);
    EXPECT_EQ(count, 0U);
    EXPECT_GE(took_ms, timeout_ms - 1.0);
    EXPECT_LT(took_ms, timeout_ms + 20 + pv_test::kScheduling_ms);
  }
}

TEST_F(SerialPortTest, ClosedPort_RefusesEverything) {
  uint8_t byte = 0;
  uint32_t count = 7;
  EXPECT_EQ(port_.Write(&byte, 1, count).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(port_.Read(&byte, 1, count, 10).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(port_.GetRxBytesReady(count).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(port_.Close().GetCode(), Code::InvalidParameter);
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  EXPECT_FALSE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  EXPECT_TRUE(port_.Close().IsOK());
  EXPECT_FALSE(port_.Write(&byte, 1, count).IsOK());
}

TEST_F(SerialPortTest, Open_AbsentPorts_AreNotFound) {
  EXPECT_EQ(port_.Open(adapter_.get(), PvDeviceSerial0).GetCode(), Code::NotFound);
  EXPECT_EQ(port_.Open(adapter_.get(), PvDeviceSerial1).GetCode(), Code::NotFound);
  EXPECT_EQ(port_.Open(adapter_.get(), PvDeviceSerialInvalid).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(port_.Open(nullptr, PvDeviceSerialBulk0).GetCode(), Code::InvalidParameter);
  PvDeviceAdapter nobody(nullptr);
  EXPECT_EQ(port_.Open(&nobody, PvDeviceSerialBulk0).GetCode(), Code::InvalidParameter);
}

// Opens the port behind the library's back, as a connection does whose end got lost.
void leaveOpen(PvDevice& device) {
  ASSERT_TRUE(
      PvLayer::link(device)->run([](ArvDevice* raw) { return keocam::SerialFeatureAccess("Bulk0").open(raw); }).IsOK());
}

TEST_F(SerialPortTest, Open_LeftOpenBefore_OpensAllTheSame) {
  leaveOpen(*connection_.device);
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  echo(12);
}

TEST_F(SerialPortTest, Open_OpenInThisProgram_IsInUseAndTheFirstGoesOn) {
  PvDeviceSerialPort second;
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  EXPECT_EQ(second.Open(adapter_.get(), PvDeviceSerialBulk0).GetCode(), Code::InUse);
  echo(12);
  EXPECT_TRUE(port_.Close().IsOK());
  EXPECT_TRUE(second.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
}

TEST_F(SerialPortTest, Open_Failed_LeavesThePortFree) {
  EXPECT_EQ(port_.Open(adapter_.get(), PvDeviceSerial0).GetCode(), Code::NotFound);
  EXPECT_EQ(port_.Open(adapter_.get(), PvDeviceSerial0).GetCode(), Code::NotFound);
}

TEST_F(SerialPortTest, LostAcknowledgements_WriteEveryByteOnce) {
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  simulator::FaultSettings faults;
  faults.ack_loss_permille = 100;
  camera_.faults().set(faults);
  for (int exchange = 0; exchange < 10; ++exchange) {
    const std::vector<uint8_t> sent = numbered(12);
    uint32_t count = 0;
    ASSERT_TRUE(port_.Write(sent.data(), 12, count).IsOK());
  }
  camera_.faults().set({});
  std::vector<uint8_t> received(200);
  uint32_t count = 0;
  ASSERT_TRUE(port_.Read(received.data(), 200, count, 1000).IsOK());
  EXPECT_EQ(count, 120U);
}

simulator::CameraOptions pacedCamera() {
  auto options = pv_test::smallCamera();
  options.uart_pacing = true;
  return options;
}

class PacedSerialPortTest : public SerialPortTest {
 protected:
  PacedSerialPortTest() : SerialPortTest(pacedCamera()) {}
};

TEST_F(PacedSerialPortTest, Read_BytesThatTrickleIn_AreOneMessage) {
  ASSERT_TRUE(port_.Open(adapter_.get(), PvDeviceSerialBulk0).IsOK());
  for (const uint32_t size : {1U, 12U, 138U}) echo(size);
}

// The standard's features, on a device that would offer the faster way.
TEST_F(SerialPortTest, FeatureByFeature_EchoComesBackWhole) {
  PvResult result;
  const auto connection = keocam::SerialConnection::open(
      PvLayer::link(*connection_.device), "Bulk0", result,
      [](ArvDevice*, const std::string& port, PvResult&) -> std::unique_ptr<keocam::SerialAccess> {
        return std::make_unique<keocam::SerialFeatureAccess>(port);
      });
  ASSERT_TRUE(connection) << pv_test::textOf(result);
  for (const uint32_t size : {1U, 12U, 484U, 485U, 2000U}) {
    SCOPED_TRACE(size);
    const std::vector<uint8_t> sent = numbered(size);
    uint32_t count = 0;
    result = connection->write(sent.data(), size, count);
    ASSERT_TRUE(result.IsOK()) << pv_test::textOf(result);
    EXPECT_EQ(count, size);
    std::vector<uint8_t> received(size + 100);
    result = connection->read(received.data(), size + 100, count, milliseconds(1000));
    ASSERT_TRUE(result.IsOK()) << pv_test::textOf(result);
    received.resize(count);
    EXPECT_EQ(received, sent);
  }
  uint8_t byte = 0;
  uint32_t count = 0;
  EXPECT_EQ(connection->read(&byte, 1, count, milliseconds(50)).GetCode(), Code::Timeout);
  EXPECT_TRUE(connection->close().IsOK());
  EXPECT_FALSE(connection->write(&byte, 1, count).IsOK());
}

}  // namespace
