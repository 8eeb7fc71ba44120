// What a GigE Vision device adds: the size of its stream's packets and where they go.
#include "PvDeviceGEV.h"

#include <utility>

#include "pv/aravis/Error.h"
#include "pv/aravis/GvcpClient.h"
#include "pv/aravis/LastFailures.h"
#include "pv/aravis/NetworkInterfaces.h"
#include "pv/aravis/PacketSize.h"
#include "pv/aravis/PvLayer.h"
#include "pv/aravis/StreamChannel.h"
#include "pv/aravis/Text.h"

namespace {

using Code = PvResult::Code;
namespace reg = keocam::bootstrap;

// Writes a register that does not have the value yet: a device may start its stream anew when told its destination.
PvResult ensureRegister(ArvDevice* device, uint32_t address, uint32_t value) {
  guint32 present = 0;
  keocam::GErrorPtr read_error;
  arv_device_read_register(device, address, &present, read_error.out());
  if (!read_error && present == value) return {};
  keocam::GErrorPtr error;
  arv_device_write_register(device, address, value, error.out());
  return keocam::resultOf(error, "Setting the stream's destination");
}

// Aravis takes the packet size over when it creates a stream, so one that is open is created anew if the size changes.
// Creating it only when it is first needed would save that, but then a stream that cannot be opened would seem open.
PvResult negotiate(ArvDevice* device, keocam::DeviceLink& link, uint32_t fallback_bytes) {
  const auto receiver = link.receiver();
  if (receiver && receiver->isStarted()) {
    return keocam::failure(Code::AccessDenied, "The packet size cannot change during acquisition; stop it first.");
  }
  PvResult result = keocam::negotiatePacketSize(device, link.details(), fallback_bytes);
  if (receiver && receiver->isOpen() && receiver->packetSize() != keocam::packetSizeSetOn(device)) {
    PvResult created = receiver->create(device);
    if (!created.IsOK()) {
      keocam::noteOutcome(link.details().address, created);
      return created;
    }
  }
  return result;
}

}  // namespace

PvDeviceGEV::PvDeviceGEV(std::unique_ptr<State> state) : PvDevice(std::move(state)) {}
PvDeviceGEV::~PvDeviceGEV() = default;

PvDeviceGEV* PvLayer::makeDevice(const std::shared_ptr<keocam::DeviceLink>& link) {
  auto state = std::make_unique<PvDevice::State>();
  state->link = link;
  state->parameters = makeParameters(link);
  return new PvDeviceGEV(std::move(state));
}

PvResult PvDeviceGEV::NegotiatePacketSize(unsigned int channel, unsigned int fallbackSize) {
  PvResult result = keocam::checkChannel(channel);
  if (!result.IsOK()) return result;
  if (fallbackSize > reg::kPacketSizeMask) {
    return keocam::failure(Code::InvalidParameter, "A packet holds at most 65535 bytes.");
  }
  const auto link = state_->link;
  return link->run([link, fallbackSize](ArvDevice* device) { return negotiate(device, *link, fallbackSize); });
}

PvResult PvDeviceGEV::SetStreamDestination(const PvString& address, unsigned short port, unsigned int channel) {
  PvResult result = keocam::checkChannel(channel);
  if (!result.IsOK()) return result;
  const std::string text = keocam::textOf(address);
  const auto destination = keocam::parseIpv4(text);
  if (!destination) {
    return keocam::failure(Code::InvalidParameter, "'" + text + "' is no IPv4 address in dotted form.");
  }
  return state_->link->run([host = *destination, port](ArvDevice* device) {
    PvResult written = ensureRegister(device, reg::kStreamDestination, host);
    return written.IsOK() ? ensureRegister(device, reg::kStreamHostPort, port) : written;
  });
}
