#include "simulator/ControlChannel.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "simulator/Clock.h"

namespace simulator {
namespace {

constexpr uint32_t kBroadcastIp = 0xFFFFFFFF;
/// How soon faults and changes made from other threads are noticed.
constexpr uint64_t kGlanceNs = 20 * kNanosecondsPerMillisecond;
/// Datagrams taken from one socket before the clock is looked at again.
constexpr int kDatagramsPerTurn = 64;
/// A PENDING_ACK promises this much more than the delay, so that the answer is in time on a busy machine.
constexpr uint32_t kPendingMarginMs = 200;

int openWakeUp() {
  const int fd = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (fd < 0) throw std::runtime_error(std::string("cannot open an event: ") + std::strerror(errno));
  return fd;
}

}  // namespace

ControlChannel::ControlChannel(const InterfaceAddress& own, Device& device, std::mutex& device_mutex, Faults& faults,
                               StatisticsBoard& statistics)
    : own_(own),
      device_(device),
      device_mutex_(device_mutex),
      faults_(faults),
      statistics_(statistics),
      server_(device, statistics),
      control_(own.ip, kGvcpPort, Sharing::Exclusive),
      broadcast_(kBroadcastIp, kGvcpPort, Sharing::Shared),
      wake_fd_(openWakeUp()),
      thread_([this] { run(); }) {}

ControlChannel::~ControlChannel() {
  const uint64_t one = 1;
  while (::write(wake_fd_, &one, sizeof one) < 0 && errno == EINTR) {
  }
  thread_.join();
  ::close(wake_fd_);
}

void ControlChannel::run() {
  std::array<pollfd, 3> sources{{{wake_fd_, POLLIN, 0}, {control_.fd(), POLLIN, 0}, {broadcast_.fd(), POLLIN, 0}}};
  while ((sources[0].revents & POLLIN) == 0) {
    noticeVanishing();
    ::poll(sources.data(), sources.size(), pollTimeoutMs());
    if (sources[1].revents != 0) receive(control_, Source::Own);
    if (sources[2].revents != 0) receive(broadcast_, Source::Broadcast);
    sendDueAcks();
    if (faults_.frozen()) continue;
    const std::lock_guard<std::mutex> lock(device_mutex_);
    device_.tick(monotonicNs());
  }
}

int ControlChannel::pollTimeoutMs() {
  uint64_t due_ns = 0;
  {
    const std::lock_guard<std::mutex> lock(device_mutex_);
    due_ns = device_.nextTickNs();
  }
  for (const DeferredAck& deferred : deferred_) due_ns = std::min(due_ns, deferred.due_ns);
  const uint64_t now_ns = monotonicNs();
  const uint64_t wait_ns = due_ns <= now_ns ? 0 : std::min(due_ns - now_ns, kGlanceNs);
  // Rounded up, so as not to spin through the last part of a millisecond. A frozen device's timers wait.
  const uint64_t wait_ms = (wait_ns + kNanosecondsPerMillisecond - 1) / kNanosecondsPerMillisecond;
  return faults_.frozen() ? static_cast<int>(std::max<uint64_t>(1, wait_ms)) : static_cast<int>(wait_ms);
}

void ControlChannel::receive(const UdpSocket& socket, Source source) {
  std::array<uint8_t, 2048> datagram;
  for (int turn = 0; turn < kDatagramsPerTurn; ++turn) {
    sockaddr_in from{};
    socklen_t from_bytes = sizeof from;
    const ssize_t size = ::recvfrom(socket.fd(), datagram.data(), datagram.size(), MSG_DONTWAIT,
                                    reinterpret_cast<sockaddr*>(&from), &from_bytes);
    if (size < 0) return;
    const Peer peer{ntohl(from.sin_addr.s_addr), ntohs(from.sin_port)};
    // A broadcast on another interface has a copy delivered here; the wrong interface would be taken for the camera's.
    if (source == Source::Broadcast && ((peer.ip ^ own_.ip) & own_.mask) != 0) continue;
    if (faults_.present()) handle(datagram.data(), static_cast<std::size_t>(size), peer, source);
  }
}

void ControlChannel::handle(const uint8_t* datagram, std::size_t size, const Peer& peer, Source source) {
  const FaultSettings faults = faults_.settings();
  if (faults_.strikes(faults.gvcp_loss_permille)) {
    statistics_.add(Counter::IgnoredCommand);
    return;
  }
  GvcpAnswer result;
  {
    const std::lock_guard<std::mutex> lock(device_mutex_);
    const uint64_t now_ns = monotonicNs();
    result = source == Source::Own ? server_.handle(datagram, size, peer, now_ns, !faults.ignore_heartbeat)
                                   : server_.handleBroadcast(datagram, size, now_ns);
  }
  if (!result.ack.empty()) answer(result, peer, faults);
  faults_.commandAnswered(statistics_);
}

void ControlChannel::answer(const GvcpAnswer& answer, const Peer& peer, const FaultSettings& faults) {
  if (faults_.strikes(faults.ack_loss_permille)) {
    statistics_.add(Counter::LostAck);
    return;
  }
  const bool pending = isDeferred(peer, answer.request_id);
  if (!pending && (faults.slow_answer_ms == 0 || !answer.is_write)) {
    send(answer.ack, peer);
    return;
  }
  const uint32_t wait_ms = std::min<uint32_t>(faults.slow_answer_ms + kPendingMarginMs, UINT16_MAX);
  send(buildPendingAck(answer.request_id, static_cast<uint16_t>(wait_ms)), peer);
  statistics_.add(Counter::PendingAck);
  if (pending) return;
  const uint64_t due_ns = monotonicNs() + faults.slow_answer_ms * kNanosecondsPerMillisecond;
  deferred_.push_back({due_ns, peer, answer.request_id, answer.ack});
}

bool ControlChannel::isDeferred(const Peer& peer, uint16_t request_id) const {
  return std::any_of(deferred_.begin(), deferred_.end(), [&](const DeferredAck& deferred) {
    return deferred.peer == peer && deferred.request_id == request_id;
  });
}

void ControlChannel::sendDueAcks() {
  const uint64_t now_ns = monotonicNs();
  for (auto deferred = deferred_.begin(); deferred != deferred_.end();) {
    if (deferred->due_ns > now_ns) {
      ++deferred;
      continue;
    }
    if (faults_.present()) send(deferred->ack, deferred->peer);
    deferred = deferred_.erase(deferred);
  }
}

void ControlChannel::noticeVanishing() {
  const bool vanished = faults_.vanished();
  if (vanished && !was_vanished_) {
    const std::lock_guard<std::mutex> lock(device_mutex_);
    device_.loseControl(monotonicNs());
    server_.reset();
    deferred_.clear();
  }
  was_vanished_ = vanished;
}

void ControlChannel::send(const Bytes& packet, const Peer& peer) const {
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_addr.s_addr = htonl(peer.ip);
  to.sin_port = htons(peer.port);
  // An answer that the network refuses is lost as any datagram may be; the host asks again.
  ::sendto(control_.fd(), packet.data(), packet.size(), 0, reinterpret_cast<const sockaddr*>(&to), sizeof to);
}

}  // namespace simulator
