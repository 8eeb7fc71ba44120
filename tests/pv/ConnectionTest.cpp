// Connecting to a device and giving it back.
#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "pv/aravis/PvLayer.h"
#include "tests/pv/TestCamera.h"

namespace {

using pv_test::Code;

PvDevice* connect(const simulator::CameraOptions& options, PvResult& result) {
  return PvDevice::CreateAndConnect(pv_test::describe(options).get(), &result);
}

TEST(Connect, CreateAndConnect_DeviceGone_IsNotConnectedWithinASecond) {
  PvResult result;
  PvDevice* device = nullptr;
  const double took_ms = pv_test::durationOf([&] { device = connect(pv_test::smallCamera(), result); });
  EXPECT_EQ(device, nullptr);
  EXPECT_EQ(result.GetCode(), Code::NotConnected) << pv_test::textOf(result);
  EXPECT_LT(took_ms, 1000 + pv_test::kScheduling_ms);
}

TEST(Connect, CreateAndConnect_AnotherDeviceLostWhileItWasConnected_WaitsUntilItIsGivenUp) {
  simulator::CameraOptions dying = pv_test::smallCamera();
  dying.address = "127.0.0.3";
  dying.serial = "KEOD2002";
  simulator::SimulatedCamera lost(dying);
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  lost.faults().vanishAt(simulator::Counter::ControlTaken, 1);
  const auto lost_info = pv_test::describe(dying);
  PvResult result;
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_EQ(PvDevice::CreateAndConnect(lost_info.get(), &result), nullptr); }),
            3000);
  EXPECT_EQ(result.GetCode(), Code::Timeout) << pv_test::textOf(result);

  const auto info = pv_test::describe(camera.options());
  pv_test::DevicePtr device;
  EXPECT_LT(pv_test::durationOf([&] { device.reset(PvDevice::CreateAndConnect(info.get(), &result)); }), 12000);
  EXPECT_TRUE(device) << pv_test::textOf(result);
}

TEST(Connect, CreateAndConnect_ControlledByAnotherHost_IsInUse) {
  simulator::SimulatedCamera camera(pv_test::smallCamera());
  camera.setOccupied(true);
  PvResult result;
  EXPECT_EQ(connect(camera.options(), result), nullptr);
  EXPECT_EQ(result.GetCode(), Code::InUse);
  EXPECT_NE(pv_test::textOf(result).find("is in use by another host"), std::string::npos) << pv_test::textOf(result);
}

TEST(Connect, CreateAndConnect_ConnectedByThisProgram_IsInUseAndTheFirstLives) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  pv_test::Connection first(camera.options());
  ASSERT_TRUE(first.ok());
  PvResult result;
  EXPECT_EQ(connect(camera.options(), result), nullptr);
  EXPECT_EQ(result.GetCode(), Code::InUse);
  EXPECT_TRUE(first.device->IsConnected());
}

TEST(Connect, CreateAndConnect_UnusableArguments_AreRefused) {
  PvResult result;
  EXPECT_EQ(PvDevice::CreateAndConnect(nullptr, &result), nullptr);
  EXPECT_EQ(result.GetCode(), Code::InvalidParameter);
  EXPECT_EQ(PvDevice::CreateAndConnect(nullptr, nullptr), nullptr);
  PvDevice::Free(nullptr);
}

TEST(Connect, CreateAndConnect_InterfaceAddressIsGone_FailsWithoutACrash) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  keocam::DeviceDetails details;
  details.address = camera.options().address;
  details.interface_name = "lo";
  details.interface_address = "203.0.113.200";
  PvResult result;
  EXPECT_EQ(PvDevice::CreateAndConnect(PvLayer::makeDeviceInfo(details).get(), &result), nullptr);
  EXPECT_EQ(result.GetCode(), Code::NotConnected);
}

TEST(Connect, CreateAndOpen_OfAStreamWithoutItsDevice_IsNotConnected) {
  PvResult result;
  EXPECT_EQ(PvStream::CreateAndOpen("127.0.0.2", &result), nullptr);
  EXPECT_EQ(result.GetCode(), Code::NotConnected);
}

TEST(Connect, CreateAndOpen_OfASecondStream_IsInUseUntilTheFirstIsClosed) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  pv_test::Connection connection(camera.options());
  ASSERT_TRUE(connection.ok());
  PvResult result;
  EXPECT_EQ(PvStream::CreateAndOpen(connection.info->GetConnectionID(), &result), nullptr);
  EXPECT_EQ(result.GetCode(), Code::InUse);
  connection.pipeline.reset();
  EXPECT_TRUE(connection.stream->Close().IsOK());
  EXPECT_FALSE(connection.stream->IsOpen());
  EXPECT_FALSE(connection.stream->Close().IsOK());
  EXPECT_EQ(connection.gevStream().GetLocalPort(), 0);
  const pv_test::StreamPtr second(PvStream::CreateAndOpen(connection.info->GetConnectionID(), &result));
  EXPECT_TRUE(second) << pv_test::textOf(result);
}

TEST(Connect, Disconnect_GivesControlBackAndCallsEnd) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  pv_test::Connection connection(camera.options());
  ASSERT_TRUE(connection.ok());
  EXPECT_TRUE(camera.controlled());
  EXPECT_TRUE(connection.device->Disconnect().IsOK());
  EXPECT_FALSE(camera.controlled());
  EXPECT_FALSE(connection.device->IsConnected());
  EXPECT_EQ(connection.device->Disconnect().GetCode(), Code::NotConnected);
  EXPECT_EQ(connection.features().SetIntegerValue("Width", 64).GetCode(), Code::NotConnected);
  EXPECT_EQ(connection.device->GetPayloadSize(), 0);
  EXPECT_EQ(connection.pipeline->Start().GetCode(), Code::NotConnected);
}

// Devices' descriptions are read by code that is not made for several threads.
TEST(Connect, FourDevicesFromFourThreads_AllConnectAndOpenStreamsTenTimes) {
  constexpr std::size_t kDevices = 4;
  std::array<std::unique_ptr<simulator::SimulatedCamera>, kDevices> cameras;
  for (std::size_t index = 0; index < kDevices; ++index) {
    auto options = pv_test::smallCamera();
    options.address = "127.0.0." + std::to_string(20 + index);
    options.serial = "KEOD30" + std::to_string(20 + index);
    cameras.at(index) = std::make_unique<simulator::SimulatedCamera>(options);
  }
  for (int round = 0; round < 10; ++round) {
    std::array<std::unique_ptr<pv_test::Connection>, kDevices> connections;
    std::array<std::thread, kDevices> threads;
    for (std::size_t index = 0; index < kDevices; ++index) {
      threads.at(index) = std::thread(
          [&, index] { connections.at(index) = std::make_unique<pv_test::Connection>(cameras.at(index)->options()); });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::size_t index = 0; index < kDevices; ++index) {
      ASSERT_TRUE(connections.at(index)->ok()) << "round " << round << ", device " << index;
      EXPECT_EQ(connections.at(index)->device->GetPayloadSize(), 160 * 120 * 2);
      EXPECT_TRUE(cameras.at(index)->controlled());
    }
  }
}

TEST(Connect, TwentyTimes_LeaveNoDescriptorAndNoThread) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  std::size_t descriptors = 0;
  std::size_t threads = 0;
  for (int round = 0; round < 20; ++round) {
    pv_test::Connection connection(camera.options());
    ASSERT_TRUE(connection.ok()) << "round " << round;
    ASSERT_TRUE(connection.start().IsOK());
    PvBuffer* buffer = nullptr;
    PvResult fared;
    ASSERT_TRUE(connection.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
    ASSERT_TRUE(connection.pipeline->ReleaseBuffer(buffer).IsOK());
    if (round == 0) {
      descriptors = pv_test::openDescriptors();
      threads = pv_test::runningThreads();
    }
  }
  // Counted inside the first connection, so the end of the last must be below it, not merely equal.
  const auto given_back = [&] {
    return pv_test::openDescriptors() < descriptors && pv_test::runningThreads() < threads;
  };
  EXPECT_TRUE(pv_test::eventually(given_back, std::chrono::milliseconds(1000)))
      << pv_test::openDescriptors() << " of " << descriptors << " descriptors, " << pv_test::runningThreads() << " of "
      << threads << " threads";
}

}  // namespace
