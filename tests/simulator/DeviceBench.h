// A device on the bench: no sockets, a clock that the test turns, and a stream channel that writes down its orders.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "GvcpMessages.h"
#include "simulator/Device.h"
#include "simulator/GvcpServer.h"
#include "simulator/RegisterTable.h"

class RecordedStream final : public simulator::StreamControl {
 public:
  void apply(const simulator::StreamSettings& settings) override { applied = settings; }
  void restartBlockIds() override { log.push_back("restart"); }
  void startAcquisition(uint64_t frame_limit) override {
    log.push_back("start " + std::to_string(frame_limit));
    running = true;
  }
  void stopAcquisition() override {
    if (running) log.push_back("stop");
    running = false;
  }
  bool acquiring() const override { return running; }
  void sendTestPacket() override { log.push_back("test packet"); }
  void resend(const simulator::ResendRequest& request) override {
    log.push_back("resend " + std::to_string(request.block_id) + " " + std::to_string(request.first_packet) + "-" +
                  std::to_string(request.last_packet));
  }

  simulator::StreamSettings applied;
  std::vector<std::string> log;
  bool running = false;
};

struct DeviceBench {
  static constexpr simulator::Peer kHost{0x7F000001, 40000};
  static constexpr simulator::Peer kOther{0x7F000001, 40001};

  explicit DeviceBench(std::shared_ptr<simulator::UartPeer> peer = nullptr, bool pacing = true,
                       simulator::ImageSize sensor = {})
      : device(identity(sensor), stream, std::move(peer), pacing, statistics), server(device, statistics) {}

  static simulator::DeviceIdentity identity(simulator::ImageSize sensor) {
    simulator::DeviceIdentity identity;
    identity.mac = {2, 0x4B, 1, 2, 3, 4};
    identity.ip = 0x7F000002;
    identity.subnet_mask = 0xFF000000;
    identity.stream_source_port = 50000;
    identity.model = "KEOsim-640";
    identity.serial = "KEOD2001";
    identity.user_id = "bench";
    identity.sensor = sensor;
    return identity;
  }

  gvcp::Bytes send(const gvcp::Bytes& datagram, simulator::Peer peer = kHost) {
    return server.handle(datagram.data(), datagram.size(), peer, now_ns).ack;
  }
  gvcp::Answer ask(const gvcp::Bytes& datagram, simulator::Peer peer = kHost) {
    return gvcp::parse(send(datagram, peer));
  }

  /// Statuses and values of single registers, each under a new request id.
  uint16_t write(uint32_t address, uint32_t value, simulator::Peer peer = kHost) {
    return ask(gvcp::writeRegister(address, value, nextId()), peer).status;
  }
  uint16_t writeBlock(uint32_t address, const gvcp::Bytes& data, simulator::Peer peer = kHost) {
    return ask(gvcp::writeMemory(address, data, nextId()), peer).status;
  }
  uint32_t read(uint32_t address, simulator::Peer peer = kHost) {
    const gvcp::Answer answer = ask(gvcp::readRegister(address, nextId()), peer);
    return answer.payload.size() == 4 ? gvcp::u32At(answer.payload, 0) : 0xDEAD0000U | answer.status;
  }
  gvcp::Bytes readBlock(uint32_t address, uint16_t count) {
    gvcp::Bytes payload = ask(gvcp::readMemory(address, count, nextId())).payload;
    if (payload.size() >= 4) payload.erase(payload.begin(), payload.begin() + 4);
    return payload;
  }
  void takeControl(simulator::Peer peer = kHost) { write(simulator::address::kControlPrivilege, 2, peer); }
  void pass(uint64_t ms) { now_ns += ms * 1'000'000; }
  uint16_t nextId() { return ++id == 0 ? ++id : id; }

  simulator::StatisticsBoard statistics;
  RecordedStream stream;
  simulator::Device device;
  simulator::GvcpServer server;
  uint64_t now_ns = 1'000'000'000;
  uint16_t id = 0;
};
