#include "simulator/StreamSender.h"

#include <algorithm>

#include "simulator/Clock.h"
#include "simulator/core/VideoPicture.h"

namespace simulator {
namespace {

/// How soon a change that nobody announces is noticed, such as the end of a freeze.
constexpr uint64_t kGlanceNs = 5 * kNanosecondsPerMillisecond;
/// A frame that is under way is finished after a stop if that takes no longer than this.
constexpr uint64_t kLongestFinishNs = 50 * kNanosecondsPerMillisecond;

uint64_t periodNs(const StreamSettings& settings) {
  return static_cast<uint64_t>(static_cast<double>(kNanosecondsPerSecond) / settings.frame_rate_hz);
}

}  // namespace

StreamSender::StreamSender(uint32_t own_ip, std::shared_ptr<const Scene> scene, std::shared_ptr<VideoSource> video,
                           Faults& faults, StatisticsBoard& statistics)
    : socket_(own_ip, 0, Sharing::Exclusive),
      video_(std::move(video)),
      faults_(faults),
      statistics_(statistics),
      sender_(socket_, statistics),
      scene_(std::move(scene)),
      thread_([this] { run(); }) {}

StreamSender::~StreamSender() {
  {
    const Lock lock(mutex_);
    ending_ = true;
    acquiring_ = false;
  }
  changed_.notify_all();
  thread_.join();
}

uint16_t StreamSender::show(std::shared_ptr<const Scene> scene) {
  const Lock lock(mutex_);
  scene_ = std::move(scene);
  return next_block_;
}

std::shared_ptr<const Scene> StreamSender::scene() const {
  const Lock lock(mutex_);
  return scene_;
}

void StreamSender::apply(const StreamSettings& settings) {
  {
    const Lock lock(mutex_);
    if (settings.do_not_fragment != settings_.do_not_fragment) socket_.setDoNotFragment(settings.do_not_fragment);
    settings_ = settings;
  }
  changed_.notify_all();
}

void StreamSender::restartBlockIds() {
  const Lock lock(mutex_);
  next_block_ = 1;
  history_.clear();
}

void StreamSender::startAcquisition(uint64_t frame_limit) {
  {
    const Lock lock(mutex_);
    if (acquiring_) return;
    acquiring_ = true;
    frames_left_ = frame_limit;
  }
  changed_.notify_all();
}

void StreamSender::stopAcquisition() {
  Lock lock(mutex_);
  acquiring_ = false;
  late_.clear();
  changed_.notify_all();
  changed_.wait(lock, [this] { return !sending_; });
  late_.clear();
}

bool StreamSender::acquiring() const {
  const Lock lock(mutex_);
  return acquiring_;
}

void StreamSender::sendTestPacket() {
  Lock lock(mutex_);
  const StreamSettings settings = settings_;
  lock.unlock();
  if (!settings.open() || !faults_.present()) return;
  const Bytes packet(settings.packet_size_bytes - kIpUdpHeaderBytes);
  const bool sent = sender_.sendRaw(packet.data(), packet.size(), {settings.destination_ip, settings.destination_port});
  statistics_.add(sent ? Counter::TestPacket : Counter::SendError);
}

void StreamSender::resend(const ResendRequest& request) {
  Lock lock(mutex_);
  const Destination destination{settings_.destination_ip, settings_.destination_port};
  const bool open = settings_.open();
  lock.unlock();
  if (!open) return;
  const std::shared_ptr<const StreamFrame> frame = history_.find(request.block_id);
  const uint32_t known = frame ? frame->packetCount() : 0;
  const uint32_t end = std::min(known, request.last_packet + 1);
  std::vector<StreamPacket> packets;
  for (uint32_t id = request.first_packet; id < end; ++id) {
    if (faults_.strikes(faults_.settings().loss_permille)) {
      statistics_.add(Counter::DroppedPacket);
    } else {
      packets.push_back(makePacket(*frame, id));
    }
  }
  statistics_.add(Counter::ResentPacket, packets.size());
  sender_.send(packets, destination);
  // A range that is open to its end may be asked for with the largest id there is.
  constexpr uint32_t kToTheEnd = 0x00FFFFFF;
  if (frame && (request.last_packet < known || (request.last_packet >= kToTheEnd && request.first_packet < known))) {
    return;
  }
  statistics_.add(Counter::ResendUnavailable);
  const GvspHeader header =
      makeUnavailable(static_cast<uint16_t>(request.block_id), std::max(request.first_packet, known));
  sender_.sendRaw(header.data(), header.size(), destination);
}

void StreamSender::run() {
  Lock lock(mutex_);
  uint64_t last_start_ns = 0;
  while (!ending_) {
    if (!waitForFrame(lock, last_start_ns)) continue;
    const StreamSettings settings = settings_;
    sending_ = true;
    const std::shared_ptr<const StreamFrame> frame = makeFrame(lock);
    history_.add(frame);
    sendFrame(lock, frame, planBursts(settings, frame->packetCount()));
    sending_ = false;
    if (frames_left_ > 0 && --frames_left_ == 0) acquiring_ = false;
    changed_.notify_all();
  }
}

bool StreamSender::waitForFrame(Lock& lock, uint64_t& last_start_ns) {
  if (!acquiring_ || !settings_.open()) {
    if (late_.empty()) {
      changed_.wait(lock);
    } else {
      waitUntil(lock, late_.front().due_ns);
    }
    return false;
  }
  const uint64_t now_ns = monotonicNs();
  const uint64_t period_ns = periodNs(settings_);
  const uint64_t due_ns = last_start_ns + period_ns;
  if (now_ns < due_ns || !faults_.present()) {
    waitUntil(lock, std::min(std::max(due_ns, now_ns + 1), now_ns + kGlanceNs));
    return false;
  }
  // A frame that is a whole period late is not caught up with.
  last_start_ns = now_ns - due_ns > period_ns ? now_ns : due_ns;
  return true;
}

std::shared_ptr<const StreamFrame> StreamSender::makeFrame(Lock& lock) {
  const StreamSettings settings = settings_;
  const std::shared_ptr<const Scene> scene = scene_;
  auto frame = std::make_shared<StreamFrame>();
  frame->block_id = next_block_;
  next_block_ = nextBlockId(next_block_);
  lock.unlock();
  frame->timestamp_ns = monotonicNs();
  frame->size = settings.window;
  frame->packet_data_bytes = settings.packet_size_bytes - kGvspOverheadBytes;
  frame->pixels = render(*scene, settings, frame->block_id);
  lock.lock();
  return frame;
}

std::vector<uint16_t> StreamSender::render(const Scene& scene, const StreamSettings& settings,
                                           uint16_t block_id) const {
  const ImageSize window = settings.window;
  if (!video_) return scene.render(window.width, window.height, block_id, settings.pattern);
  const CoreVideo video = video_->nextVideo(block_id);
  // The camera's own pattern takes the place of what the core sends.
  if (settings.pattern != TestPattern::Off)
    return scene.render(window.width, window.height, block_id, settings.pattern);
  return renderVideo(scene, window.width, window.height, video);
}

void StreamSender::sendFrame(Lock& lock, const std::shared_ptr<const StreamFrame>& frame, const BurstPlan& plan) {
  const uint32_t count = frame->packetCount();
  const uint64_t start_ns = monotonicNs();
  const bool finishes_after_stop = (count / plan.packets + 1) * plan.gap_ns <= kLongestFinishNs;
  uint64_t due_ns = start_ns;
  for (uint32_t first = 0; first < count; first += plan.packets) {
    const bool stopped = !acquiring_ && !finishes_after_stop;
    if (ending_ || stopped || !settings_.open() || faults_.vanished()) return;
    const Destination destination{settings_.destination_ip, settings_.destination_port};
    lock.unlock();
    const uint32_t end = std::min(count, first + plan.packets);
    PlannedPackets packets = planPackets(*frame, first, end, faults_, statistics_);
    sender_.send(packets.now, destination);
    lock.lock();
    if (!packets.late.empty()) {
      const uint64_t delay_ns = faults_.settings().late_ms * kNanosecondsPerMillisecond;
      late_.push_back({monotonicNs() + delay_ns, frame, std::move(packets.late)});
    }
    due_ns += plan.gap_ns;
    while (monotonicNs() < due_ns && end < count && !ending_) waitUntil(lock, due_ns);
    while (faults_.frozen() && acquiring_ && !ending_) waitUntil(lock, monotonicNs() + kGlanceNs);
  }
  statistics_.add(Counter::Frame);
}

void StreamSender::waitUntil(Lock& lock, uint64_t until_ns) {
  sendDuePackets(lock, monotonicNs());
  const uint64_t wake_ns = late_.empty() ? until_ns : std::min(until_ns, late_.front().due_ns);
  changed_.wait_until(lock, timePoint(wake_ns));
  sendDuePackets(lock, monotonicNs());
}

void StreamSender::sendDuePackets(Lock& lock, uint64_t now_ns) {
  while (!late_.empty() && late_.front().due_ns <= now_ns) {
    const LatePackets due = std::move(late_.front());
    late_.pop_front();
    if (!settings_.open()) continue;
    const Destination destination{settings_.destination_ip, settings_.destination_port};
    const bool was_sending = sending_;
    sending_ = true;
    lock.unlock();
    sender_.send(due.packets, destination);
    lock.lock();
    sending_ = was_sending;
    if (!was_sending) changed_.notify_all();
  }
}

}  // namespace simulator
