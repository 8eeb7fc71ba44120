#include "simulator/Device.h"

#include <cstring>

#include "simulator/GenicamXml.h"
#include "simulator/RegisterTable.h"

namespace simulator {
namespace {

constexpr uint32_t kBytesPerPixel = 2;
constexpr uint32_t kDoNotFragmentBit = 1U << 30;
constexpr std::size_t kMaximumTransferBytes = 536;

uint32_t floatBits(double value) {
  const auto single = static_cast<float>(value);
  uint32_t bits = 0;
  std::memcpy(&bits, &single, sizeof bits);
  return bits;
}

double floatValue(uint32_t bits) {
  float single = 0;
  std::memcpy(&single, &bits, sizeof single);
  return static_cast<double>(single);
}

}  // namespace

Device::Device(const DeviceIdentity& identity, StreamControl& stream, std::shared_ptr<UartPeer> uart_peer,
               bool uart_pacing, StatisticsBoard& statistics)
    : identity_(identity),
      stream_(stream),
      statistics_(statistics),
      registers_(genicamXml(identity.model)),
      uart_(std::move(uart_peer), uart_pacing, statistics),
      files_(registers_, uart_) {
  const std::array<uint8_t, 6>& mac = identity.mac;
  const std::pair<uint32_t, uint32_t> words[] = {
      {address::kDeviceMacHigh, loadU16(mac.data())},
      {address::kDeviceMacLow, loadU32(mac.data() + 2)},
      {address::kCurrentIp, identity.ip},
      {address::kCurrentSubnetMask, identity.subnet_mask},
      {address::kStreamSourcePort, identity.stream_source_port},
      {address::kWidthMax, identity.sensor.width},
      {address::kHeightMax, identity.sensor.height},
      {address::kSensorWidth, identity.sensor.width},
      {address::kSensorHeight, identity.sensor.height},
      {address::kWidth, identity.sensor.width},
      {address::kHeight, identity.sensor.height},
      {address::kAcquisitionFrameRate, floatBits(identity.frame_rate_hz)},
      {address::kAcquisitionFrameRateMax, floatBits(identity.most_frame_rate_hz)},
  };
  for (const auto& [at, value] : words) registers_.set(at, value);
  registers_.setText(address::kModelName, identity.model, 32);
  registers_.setText(address::kSerialNumber, identity.serial, 16);
  registers_.setText(address::kUserName, identity.user_id, 16);
  registers_.setText(address::kFirstUrl, genicamUrl(identity.model), 512);
  configureSerialLine();
  stream_.apply(streamSettings());
}

Status Device::read(const Peer& peer, uint32_t at, std::size_t size, uint64_t now_ns, Bytes& out) {
  if (size > kMaximumTransferBytes) return Status::InvalidParameter;
  if (!privilege_.mayRead(peer)) return Status::AccessDenied;
  updateLiveRegisters(now_ns);
  return registers_.read(at, size, out);
}

Status Device::write(const Peer& peer, uint32_t at, const uint8_t* data, std::size_t size, uint64_t now_ns) {
  if (at == address::kControlPrivilege) return writeControl(peer, at, data, size, now_ns);
  if (!privilege_.owns(peer)) return Status::AccessDenied;
  const bool locked = stream_.acquiring() || registers_.get(address::kTransportLocked) != 0;
  std::vector<WrittenField> written;
  const Status status = registers_.write(at, data, size, locked, written);
  if (status != Status::Success) return status;
  for (const WrittenField& field : written) perform(field, now_ns);
  return Status::Success;
}

// The privilege is decided before the register map sees the value, which then only checks and stores it.
Status Device::writeControl(const Peer& peer, uint32_t at, const uint8_t* data, std::size_t size, uint64_t now_ns) {
  if (size != 4) return Status::InvalidParameter;
  std::vector<WrittenField> written;
  const bool had_owner = privilege_.owner().has_value();
  const uint32_t value = loadU32(data);
  if (privilege_.value() != 0 && !privilege_.owns(peer)) return Status::AccessDenied;
  Status status = registers_.write(at, data, size, false, written);
  if (status == Status::Success) status = privilege_.request(peer, value, now_ns);
  if (status != Status::Success) return status;
  if (value != 0 && !had_owner) statistics_.add(Counter::ControlTaken);
  if (value == 0 && had_owner) loseControl(now_ns);
  return status;
}

void Device::perform(const WrittenField& written, uint64_t now_ns) {
  const bool triggered = written.field->kind != FieldKind::Command || written.value != 0;
  if (!triggered) return;
  switch (written.field->action) {
    case Action::None:
    case Action::Control:
      break;
    case Action::StreamPort:
      openStreamPort();
      break;
    case Action::StreamSettings:
      stream_.apply(streamSettings());
      break;
    case Action::TestPacket:
      stream_.sendTestPacket();
      break;
    case Action::TimestampLatch:
      storeU64(registers_.bytes(address::kTimestampValue), now_ns);
      break;
    case Action::AcquisitionStart:
      startAcquisition();
      break;
    case Action::AcquisitionStop:
      stream_.stopAcquisition();
      break;
    case Action::SerialLine:
      configureSerialLine();
      break;
    case Action::FileOperation:
      files_.execute(now_ns);
      break;
  }
}

void Device::openStreamPort() {
  const StreamSettings settings = streamSettings();
  stream_.apply(settings);
  if (settings.destination_port != 0 && settings.destination_port != open_port_) stream_.restartBlockIds();
  open_port_ = settings.destination_port;
}

void Device::startAcquisition() {
  const uint64_t frame_count = registers_.get(address::kAcquisitionFrameCount);
  const auto mode = static_cast<AcquisitionMode>(registers_.get(address::kAcquisitionMode));
  stream_.startAcquisition(mode == AcquisitionMode::SingleFrame  ? 1
                           : mode == AcquisitionMode::MultiFrame ? frame_count
                                                                 : 0);
}

void Device::configureSerialLine() {
  const UartLine line{registers_.get(address::kBulkBaudRate), registers_.get(address::kBulkStopBits),
                      static_cast<UartParity>(registers_.get(address::kBulkParity))};
  const bool enabled = registers_.get(address::kBulkMode) == static_cast<uint32_t>(BulkMode::Uart);
  uart_.configure(line, enabled, registers_.get(address::kBulkLoopback) != 0);
}

StreamSettings Device::streamSettings() const {
  StreamSettings settings;
  settings.destination_ip = registers_.get(address::kStreamDestination);
  settings.destination_port = static_cast<uint16_t>(registers_.get(address::kStreamPort));
  const uint32_t packet_size = registers_.get(address::kStreamPacketSize);
  settings.packet_size_bytes = packet_size & 0xFFFF;
  settings.do_not_fragment = (packet_size & kDoNotFragmentBit) != 0;
  settings.packet_delay_ns = registers_.get(address::kStreamPacketDelay);
  settings.window = {registers_.get(address::kWidth), registers_.get(address::kHeight)};
  settings.frame_rate_hz = floatValue(registers_.get(address::kAcquisitionFrameRate));
  settings.pattern = static_cast<TestPattern>(registers_.get(address::kTestPattern));
  return settings;
}

void Device::updateLiveRegisters(uint64_t now_ns) {
  registers_.set(address::kPayloadSize,
                 registers_.get(address::kWidth) * registers_.get(address::kHeight) * kBytesPerPixel);
  registers_.set(address::kFileSize, static_cast<uint32_t>(uart_.waiting(now_ns)));
  registers_.set(address::kControlPrivilege, privilege_.value());
  const Peer owner = privilege_.owner().value_or(Peer{});
  registers_.set(address::kControllerIp, owner.ip);
  registers_.set(address::kControllerPort, owner.port);
}

Status Device::resend(const Peer& peer, const ResendRequest& request) {
  if (!privilege_.owner() || privilege_.owner()->ip != peer.ip) return Status::AccessDenied;
  stream_.resend(request);
  return Status::Success;
}

Bytes Device::discoveryData() const {
  Bytes data;
  registers_.read(0, address::kDiscoveryBytes, data);
  return data;
}

void Device::refreshHeartbeat(const Peer& peer, uint64_t now_ns) {
  if (privilege_.owns(peer)) privilege_.refresh(now_ns);
}

uint64_t Device::heartbeatTimeoutNs() const {
  return registers_.get(address::kHeartbeatTimeout) * kNanosecondsPerMillisecond;
}

void Device::tick(uint64_t now_ns) {
  uart_.advance(now_ns);
  if (privilege_.expiresNs(heartbeatTimeoutNs()) <= now_ns) {
    statistics_.add(Counter::ControlExpired);
    loseControl(now_ns);
  }
}

uint64_t Device::nextTickNs() const {
  return std::min(privilege_.expiresNs(heartbeatTimeoutNs()), uart_.nextDeliveryNs());
}

void Device::loseControl(uint64_t now_ns) {
  privilege_.release();
  stream_.stopAcquisition();
  registers_.set(address::kStreamPort, 0);
  registers_.set(address::kTransportLocked, 0);
  openStreamPort();
  files_.abandon(now_ns);
}

void Device::setOccupied(bool occupied, uint64_t now_ns) {
  loseControl(now_ns);
  privilege_.setOccupied(occupied);
}

}  // namespace simulator
