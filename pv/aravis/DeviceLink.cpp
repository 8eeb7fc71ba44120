#include "pv/aravis/DeviceLink.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "pv/aravis/DeviceWatcher.h"
#include "pv/aravis/DisplayName.h"
#include "pv/aravis/Error.h"
#include "pv/aravis/GvcpClient.h"
#include "pv/aravis/LastFailures.h"
#include "pv/aravis/NetworkInterfaces.h"
#include "pv/aravis/OpeningTurn.h"
#include "pv/aravis/StreamOptions.h"
#include "pv/aravis/StreamReceiver.h"

namespace keocam {

namespace {

using Code = PvResult::Code;

// Long enough for a device that answers, short enough for a caller.
constexpr std::chrono::milliseconds kCloseLimit_ms(2500);
constexpr guint32 kTakeControl = 2;
// Aravis takes five seconds to give up a device that falls silent while it is being opened, and ten if its heartbeat
// gets in between. Who connected it has waited two of them, and whoever goes on with another device waits for the rest.
constexpr std::chrono::milliseconds kTurnLimit_ms(9000);

// Found on one interface, such a device is then sent to through whichever of them the kernel prefers.
std::string routingHint(const DeviceDetails& device) {
  const auto address = parseIpv4(device.address);
  if (!address || interfacesInSubnet(listInterfaces(), *address).size() < 2) return {};
  return " Several interfaces of this host share its subnet; give each a subnet of its own.";
}

}  // namespace

DeviceLink::DeviceLink(DeviceDetails device) : details_(std::move(device)) {}

std::string DeviceLink::name() const { return displayName(details_); }

std::shared_ptr<DeviceLink> DeviceLink::connect(const DeviceDetails& device, std::chrono::milliseconds limit,
                                                PvResult& result) {
  auto link = std::make_shared<DeviceLink>(device);
  const PvResult late =
      failure(Code::Timeout, link->name() + " did not answer in time while it was being opened." + routingHint(device));
  const auto turn = std::make_shared<OpeningTurn>(kTurnLimit_ms);
  if (!turn->taken()) {
    result = failure(Code::Timeout, link->name() +
                                        " was not opened: another device, being opened, is silent; try again in a few "
                                        "seconds.");
    return nullptr;
  }
  try {
    link->threads_ = 1;
    std::thread([link] { link->work(); }).detach();
    result = link->jobs_.run([link, turn] { return link->openDevice(*turn); }, limit, late);
    if (result.IsOK()) {
      link->connected_ = true;
      const auto watcher = std::make_shared<DeviceWatcher>(link);
      watcher->begin();
      const std::lock_guard<std::mutex> lock(link->mutex_);
      result = link->reason_;  // Ok, unless the watcher's first question showed that the device is lost already.
      if (result.IsOK()) {
        std::thread([watcher] { watcher->watch(); }).detach();
        ++link->threads_;
      }
    }
  } catch (const std::system_error& error) {
    result = failure(Code::GenericError, std::string("No thread could be started for the device: ") + error.what());
  }
  if (result.IsOK()) return link;
  link->end(result);
  return nullptr;
}

PvResult DeviceLink::openDevice(OpeningTurn& turn) {
  const GObjectPtr<GInetAddress> interface(g_inet_address_new_from_string(details_.interface_address.c_str()));
  const GObjectPtr<GInetAddress> address(g_inet_address_new_from_string(details_.address.c_str()));
  if (!interface || !address) return failure(Code::InvalidParameter, name() + " has no usable address.");
  GErrorPtr error;
  GObjectPtr<ArvDevice> device(arv_gv_device_new(interface.get(), address.get(), error.out()));
  turn.end();
  if (error) return resultOf(error, "Opening " + name());
  if (!device) return failure(Code::GenericError, "Opening " + name() + " failed without an explanation.");
  // Aravis opens a device without control over it all the same; every write would then fail.
  if (arv_gv_device_is_controller(ARV_GV_DEVICE(device.get())) == FALSE) {
    return failure(Code::InUse, name() + " is in use by another host.");
  }
  arv_device_set_range_check_policy(device.get(), ARV_RANGE_CHECK_POLICY_ENABLE);
  arv_device_set_access_check_policy(device.get(), ARV_ACCESS_CHECK_POLICY_ENABLE);
  arv_gv_device_set_packet_size_adjustment(ARV_GV_DEVICE(device.get()), ARV_GV_PACKET_SIZE_ADJUSTMENT_NEVER);
  arv_gv_device_set_stream_options(ARV_GV_DEVICE(device.get()), streamOptions().packet_socket
                                                                    ? ARV_GV_STREAM_OPTION_NONE
                                                                    : ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED);
  device_ = std::move(device);
  return {};
}

void DeviceLink::work() {
  jobs_.serve();
  giveBack();
  const std::lock_guard<std::mutex> lock(mutex_);
  --threads_;
  changed_.notify_all();
}

// The stream refers to the device, so it goes first.
void DeviceLink::giveBack() {
  if (const auto stream = receiver()) stream->close();
  device_.reset();
}

PvResult DeviceLink::run(const Work& work, std::chrono::milliseconds limit) {
  const auto self = shared_from_this();
  const PvResult late = failure(Code::Timeout, name() + " did not answer in time.");
  PvResult result = jobs_.run([self, work] { return work(self->device_.get()); }, limit, late);
  if (isAccessDenied(result)) confirmControlSoon();
  return result;
}

void DeviceLink::post(const Work& work) {
  const auto self = shared_from_this();
  jobs_.post([self, work] { return work(self->device_.get()); });
}

// False if the link had ended before. `note` comes before anyone can see that it has ended.
bool DeviceLink::end(const PvResult& reason, const std::function<void()>& note) {
  bool first = false;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    first = !std::exchange(ended_, true);
    if (first) reason_ = reason;
    if (first && note) note();
    changed_.notify_all();
  }
  connected_ = false;
  jobs_.close(reason);
  return first;
}

void DeviceLink::disconnect() {
  if (!end(failure(Code::NotConnected, name() + " was disconnected."))) return;
  std::unique_lock<std::mutex> lock(mutex_);
  changed_.wait_for(lock, kCloseLimit_ms, [this] { return threads_ == 0; });
}

void DeviceLink::lose(const std::string& reason) {
  const PvResult lost = failure(Code::NotConnected, "Lost " + name() + ": " + reason);
  end(lost, [&] { noteOutcome(details_.address, lost); });
}

// Aravis' signal that control is lost would tell sooner, but whoever listens ends the process now and then: while it is
// given, Aravis' own thread holds the device, and if that turns out to be the last hold, waits for its own end.
//
// Writing the control register again does nothing for the host that has control, and another host is refused. It is
// the one question that tells the two apart: the register reads the same for both.
PvResult DeviceLink::confirmControl() {
  if (arv_gv_device_is_controller(ARV_GV_DEVICE(device_.get())) == FALSE) {
    lose("it no longer keeps this host's control.");
    return failure(Code::NotConnected, name() + " is no longer controlled by this host.");
  }
  GErrorPtr error;
  arv_device_write_register(device_.get(), bootstrap::kControlPrivilege, kTakeControl, error.out());
  PvResult result = resultOf(error, "Keeping control");
  if (isAccessDenied(result)) lose("another host has taken control of it.");
  return result;
}

void DeviceLink::confirmControlSoon() {
  if (confirming_.exchange(true)) return;
  const auto self = shared_from_this();
  post([self](ArvDevice* /*device*/) {
    PvResult result = self->confirmControl();
    self->confirming_ = false;
    return result;
  });
}

std::shared_ptr<StreamReceiver> DeviceLink::receiver() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return receiver_;
}

void DeviceLink::setReceiver(const std::shared_ptr<StreamReceiver>& receiver) {
  const std::lock_guard<std::mutex> lock(mutex_);
  receiver_ = receiver;
}

}  // namespace keocam
