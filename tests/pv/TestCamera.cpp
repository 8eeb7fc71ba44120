#include "tests/pv/TestCamera.h"

#include <filesystem>
#include <thread>

#include "pv/aravis/PvLayer.h"

namespace pv_test {

namespace {

using Clock = std::chrono::steady_clock;

std::size_t entriesOf(const char* directory) {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    static_cast<void>(entry);
    ++count;
  }
  return count;
}

}  // namespace

simulator::CameraOptions smallCamera() {
  simulator::CameraOptions options;
  options.sensor = {160, 120};
  options.frame_rate_hz = 60;
  options.uart_pacing = false;
  return options;
}

std::unique_ptr<PvDeviceInfo> describe(const simulator::CameraOptions& options) {
  keocam::DeviceDetails details;
  details.serial_number = options.serial;
  details.model = "Simulated";
  details.address = options.address;
  details.interface_name = "lo";
  details.interface_address = "127.0.0.1";
  return PvLayer::makeDeviceInfo(details);
}

Connection::Connection(const simulator::CameraOptions& options, unsigned int buffers) : info(describe(options)) {
  PvResult result;
  device.reset(PvDevice::CreateAndConnect(info.get(), &result));
  if (!device) {
    ADD_FAILURE() << "Connecting: " << textOf(result);
    return;
  }
  stream.reset(PvStream::CreateAndOpen(info->GetConnectionID(), &result));
  if (!stream) {
    ADD_FAILURE() << "Opening the stream: " << textOf(result);
    return;
  }
  packet_size_result = gevDevice().NegotiatePacketSize(0, 0);
  EXPECT_TRUE(gevDevice().SetStreamDestination(gevStream().GetLocalIPAddress(), gevStream().GetLocalPort(), 0).IsOK());
  pipeline = std::make_unique<PvPipeline>(stream.get());
  EXPECT_TRUE(pipeline->SetBufferCount(buffers).IsOK());
  EXPECT_TRUE(pipeline->SetBufferSize(static_cast<unsigned int>(device->GetPayloadSize())).IsOK());
}

Connection::~Connection() {
  pipeline.reset();
  stream.reset();
}

PvResult Connection::execute(const char* name) {
  auto* const command = dynamic_cast<PvGenCommand*>(features().Get(name));
  if (command == nullptr) return {Code::NotFound, PvString("There is no such command.")};
  return command->Execute();
}

PvResult Connection::start() {
  PvResult result = pipeline->Start();
  if (result.IsOK()) result = device->StreamEnable(0);
  return result.IsOK() ? execute("AcquisitionStart") : result;
}

PvResult Connection::stop() {
  PvResult result = execute("AcquisitionStop");
  if (result.IsOK()) result = device->StreamDisable(0);
  return result.IsOK() ? pipeline->Stop() : result;
}

double durationOf(const std::function<void()>& action) {
  const auto start = Clock::now();
  action();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto deadline = Clock::now() + limit;
  while (!condition()) {
    if (Clock::now() >= deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

std::size_t openDescriptors() { return entriesOf("/proc/self/fd"); }

std::size_t runningThreads() { return entriesOf("/proc/self/task"); }

}  // namespace pv_test
