// The camera behind its sockets: registers, control privilege, serial port, and what writes to them set off.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "simulator/ControlPrivilege.h"
#include "simulator/FileAccess.h"
#include "simulator/FrameRates.h"
#include "simulator/RegisterMap.h"
#include "simulator/StreamControl.h"
#include "simulator/Uart.h"

namespace simulator {

/// What makes one camera differ from the next.
struct DeviceIdentity {
  std::array<uint8_t, 6> mac{};
  uint32_t ip = 0;  ///< host byte order, as is the mask
  uint32_t subnet_mask = 0;
  uint16_t stream_source_port = 0;
  std::string model;
  std::string serial;
  std::string user_id;
  ImageSize sensor;
  double frame_rate_hz = 30.0;
  double most_frame_rate_hz = kMostFrameRateHz;
};

/// Opens no socket and reads no clock: the time is an argument. Not thread-safe.
class Device {
 public:
  Device(const DeviceIdentity& identity, StreamControl& stream, std::shared_ptr<UartPeer> uart_peer, bool uart_pacing,
         StatisticsBoard& statistics);

  Status read(const Peer& peer, uint32_t at, std::size_t size, uint64_t now_ns, Bytes& out);
  Status write(const Peer& peer, uint32_t at, const uint8_t* data, std::size_t size, uint64_t now_ns);

  /// The packets requested go to the stream's destination, whichever port of the controlling host asks.
  Status resend(const Peer& peer, const ResendRequest& request);

  /// The bootstrap registers that a discovery acknowledge carries.
  Bytes discoveryData() const;
  const DeviceIdentity& identity() const { return identity_; }

  /// The owner has been heard; others are ignored.
  void refreshHeartbeat(const Peer& peer, uint64_t now_ns);

  /// Lets everything happen that is due: heartbeat expiry, bytes of the serial port.
  void tick(uint64_t now_ns);

  /// When tick() is due next, or kNever.
  uint64_t nextTickNs() const;

  /// Control ends: the stream stops and closes, the serial port is closed.
  void loseControl(uint64_t now_ns);
  void setOccupied(bool occupied, uint64_t now_ns);
  bool controlled() const { return privilege_.value() != 0; }
  bool controlledBy(const Peer& peer) const { return privilege_.owns(peer); }

 private:
  Status writeControl(const Peer& peer, uint32_t at, const uint8_t* data, std::size_t size, uint64_t now_ns);
  void updateLiveRegisters(uint64_t now_ns);
  void perform(const WrittenField& written, uint64_t now_ns);
  void openStreamPort();
  void startAcquisition();
  void configureSerialLine();
  StreamSettings streamSettings() const;
  uint64_t heartbeatTimeoutNs() const;

  DeviceIdentity identity_;
  StreamControl& stream_;
  StatisticsBoard& statistics_;
  RegisterMap registers_;
  Uart uart_;
  FileAccess files_;
  ControlPrivilege privilege_;
  uint16_t open_port_ = 0;  ///< the stream's destination port, to notice a new one
};

}  // namespace simulator
