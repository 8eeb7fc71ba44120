#include "apps/keocam/StreamRun.h"

#include <chrono>

namespace keocam::cli {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;

int64_t now_ns() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(SteadyClock::now().time_since_epoch()).count();
}

double seconds(int64_t duration_ns) { return static_cast<double>(duration_ns) / kNanosecondsPerSecond; }

// Holds the acquisition for a scope. It is stopped on every path out.
class Acquisition {
 public:
  explicit Acquisition(Camera& camera) : camera_(camera) { camera_.StartAcquisition(); }
  ~Acquisition() { camera_.StopAcquisition(); }
  Acquisition(const Acquisition&) = delete;
  Acquisition& operator=(const Acquisition&) = delete;

 private:
  Camera& camera_;
};

class Run {
 public:
  Run(Camera& camera, const StreamLimits& limits, bool keep_last_frame)
      : camera_(camera), limits_(limits), keep_last_frame_(keep_last_frame) {}

  // Waits up to one second for a frame, and accounts for it. True if one came.
  bool fetch() {
    // The camera hands the previous buffer out again when none came; null before the call tells the two apart.
    camera_.buffer = nullptr;
    const uint8_t* const data = camera_.RetreiveBuffer();
    if (camera_.buffer == nullptr) return false;
    last_arrival_ns_ = now_ns();
    result_.last_frame = detailsOf(*camera_.buffer);
    const FrameDetails& details = result_.last_frame;
    const RawFrame frame{data, details.size, details.width, details.height, details.pixel_format};
    frames_.addFrame(details.block_id, last_arrival_ns_, rawStatisticsOf(frame));
    if (keep_last_frame_) result_.last_frame_pixels.assign(data, data + details.size);
    camera_.ReleaseBuffer();
    return true;
  }

  bool framesReached() const { return limits_.frames && frames_.total().frames >= *limits_.frames; }

  bool durationReached() const { return limits_.duration_s && seconds(now_ns() - start_ns_) >= *limits_.duration_s; }

  bool silentTooLong() const { return seconds(now_ns() - last_arrival_ns_) >= limits_.timeout_s; }

  // The reason to end after a turn of the loop, if there is one.
  std::optional<StreamEnd> endAfter(bool frame_came, const StopSignal& stop) {
    if (framesReached()) return StreamEnd::FramesReached;
    if (stop.requested()) return StreamEnd::Stopped;
    if (durationReached()) return StreamEnd::DurationReached;
    if (!frame_came && !camera_.IsConnected()) return StreamEnd::CameraLost;
    if (!frame_came && silentTooLong()) return StreamEnd::NoFrames;
    return std::nullopt;
  }

  void reportIfDue(const std::function<void(const StreamPeriod&, const StreamPeriod&)>& report) {
    const int64_t now = now_ns();
    if (now < next_report_ns_) return;
    noteNetwork();
    const StreamPeriod second = frames_.endPeriod();
    report(second, frames_.total());
    // A report that comes late, after a wait without frames, does not make the following ones come in a burst.
    next_report_ns_ = now + kNanosecondsPerSecond;
  }

  StreamResult finish(StreamEnd end) {
    noteNetwork();
    result_.end = end;
    result_.total = frames_.total();
    result_.missing_block_ids = frames_.missingBlockIds();
    result_.duration_s = seconds(now_ns() - start_ns_);
    return std::move(result_);
  }

 private:
  void noteNetwork() {
    result_.network = statisticsOf(*camera_.stream);
    // A stream that was closed by a loss has none any more.
    if (const uint32_t size_bytes = packetSizeOf(*camera_.stream); size_bytes > 0)
      result_.packet_size_bytes = size_bytes;
    frames_.setGivenUp(result_.network.frames_incomplete + result_.network.frames_no_buffer);
  }

  Camera& camera_;
  const StreamLimits limits_;
  const bool keep_last_frame_;
  const int64_t start_ns_ = now_ns();
  int64_t last_arrival_ns_ = start_ns_;
  int64_t next_report_ns_ = start_ns_ + kNanosecondsPerSecond;
  FrameStatistics frames_;
  StreamResult result_;
};

}  // namespace

StreamResult runStream(Camera& camera, const StreamLimits& limits, bool keep_last_frame, const StopSignal& stop,
                       const std::function<void(const StreamPeriod&, const StreamPeriod&)>& report) {
  const Acquisition acquisition(camera);
  Run run(camera, limits, keep_last_frame);
  while (true) {
    const bool frame_came = run.fetch();
    // Before the acquisition ends, because a frame cut off by that is no loss.
    if (const auto end = run.endAfter(frame_came, stop)) return run.finish(*end);
    run.reportIfDue(report);
  }
}

}  // namespace keocam::cli
