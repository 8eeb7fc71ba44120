// Opening and closing the receiving end of a device's stream.
#include "PvStream.h"

#include <utility>

#include "PvStreamGEV.h"
#include "pv/aravis/DeviceRegistry.h"
#include "pv/aravis/Error.h"
#include "pv/aravis/LastFailures.h"
#include "pv/aravis/PvLayer.h"
#include "pv/aravis/Text.h"

namespace {

using Code = PvResult::Code;

PvResult closeNow(keocam::StreamReceiver& receiver) {
  receiver.close();
  return {};
}

// For a receiver whose caller waits no longer. If the device is lost, its working thread closes the receiver anyway.
void closeLater(keocam::DeviceLink& link, const std::shared_ptr<keocam::StreamReceiver>& receiver) {
  link.post([receiver](ArvDevice* /*device*/) { return closeNow(*receiver); });
}

PvResult open(const std::shared_ptr<keocam::DeviceLink>& link,
              const std::shared_ptr<keocam::StreamReceiver>& receiver) {
  PvResult result = link->run([link, receiver](ArvDevice* device) {
    const auto present = link->receiver();
    if (present && present->isOpen()) {
      return keocam::failure(Code::InUse, "The stream of " + link->name() + " is open already; close it first.");
    }
    PvResult created = receiver->create(device);
    if (created.IsOK()) link->setReceiver(receiver);
    return created;
  });
  if (!result.IsOK()) closeLater(*link, receiver);
  return result;
}

}  // namespace

PvStream* PvStream::CreateAndOpen(const PvString& connectionID, PvResult* result) {
  PvResult unused;
  PvResult& outcome = result != nullptr ? *result : unused;
  const std::string address = keocam::textOf(connectionID);
  const auto link = keocam::connectedDevice(address);
  if (!link) {
    outcome = keocam::failure(Code::NotConnected, "No connected device has the connection identifier '" + address +
                                                      "'; connect to it first.");
    return nullptr;
  }
  const auto receiver = std::make_shared<keocam::StreamReceiver>();
  keocam::noteOutcome(address, {});
  outcome = open(link, receiver);
  if (!outcome.IsOK()) keocam::noteOutcome(address, outcome);
  return outcome.IsOK() ? PvLayer::makeStream(link, receiver) : nullptr;
}

void PvStream::Free(PvStream* stream) { delete stream; }

PvStream::PvStream(std::unique_ptr<State> state) : state_(std::move(state)) {}

PvStream::~PvStream() { static_cast<void>(Close()); }

// A stream outlives the loss of its device: it stays open, and merely receives nothing, until it is closed.
bool PvStream::IsOpen() const { return state_->open && state_->receiver->usable(); }

PvResult PvStream::Close() {
  if (!state_->open.exchange(false)) return keocam::failure(Code::NotConnected, "The stream is not open.");
  const auto receiver = state_->receiver;
  const PvResult closed = state_->link->run([receiver](ArvDevice* /*device*/) { return closeNow(*receiver); });
  if (!closed.IsOK()) closeLater(*state_->link, receiver);
  return {};
}

PvStreamGEV::PvStreamGEV(std::unique_ptr<State> state) : PvStream(std::move(state)) {}
PvStreamGEV::~PvStreamGEV() = default;

PvStreamGEV* PvLayer::makeStream(const std::shared_ptr<keocam::DeviceLink>& link,
                                 const std::shared_ptr<keocam::StreamReceiver>& receiver) {
  auto state = std::make_unique<PvStream::State>();
  state->link = link;
  state->receiver = receiver;
  return new PvStreamGEV(std::move(state));
}

PvString PvStreamGEV::GetLocalIPAddress() const { return PvString(state_->receiver->localAddress()); }

unsigned short PvStreamGEV::GetLocalPort() const { return state_->receiver->port(); }

namespace keocam {

StreamStatistics statisticsOf(const PvStream& stream) {
  const auto& state = PvLayer::state(stream);
  return state.open ? state.receiver->statistics() : StreamStatistics{};
}

uint32_t packetSizeOf(const PvStream& stream) { return PvLayer::state(stream).receiver->packetSize(); }

}  // namespace keocam
