// The stream channel: a thread that renders frames at the frame rate and sends them, and answers to resend requests.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

#include "simulator/FrameHistory.h"
#include "simulator/PacketSender.h"
#include "simulator/Scene.h"
#include "simulator/StreamControl.h"
#include "simulator/StreamPlan.h"
#include "simulator/VideoSource.h"

namespace simulator {

/// The members of StreamControl are called by the control side; the thread inside never calls back.
class StreamSender final : public StreamControl {
 public:
  /// `video` may be null: then the pictures are the scene's.
  StreamSender(uint32_t own_ip, std::shared_ptr<const Scene> scene, std::shared_ptr<VideoSource> video, Faults& faults,
               StatisticsBoard& statistics);
  ~StreamSender() override;
  StreamSender(const StreamSender&) = delete;
  StreamSender& operator=(const StreamSender&) = delete;

  /// The port that all packets come from, for as long as this object lives.
  uint16_t sourcePort() const { return socket_.port(); }

  /// The next frame shows another scene. Returns its block id.
  uint16_t show(std::shared_ptr<const Scene> scene);
  std::shared_ptr<const Scene> scene() const;

  void apply(const StreamSettings& settings) override;
  void restartBlockIds() override;
  void startAcquisition(uint64_t frame_limit) override;
  void stopAcquisition() override;
  bool acquiring() const override;
  void sendTestPacket() override;
  void resend(const ResendRequest& request) override;

 private:
  struct LatePackets {
    uint64_t due_ns;
    std::shared_ptr<const StreamFrame> frame;  ///< keeps what the packets point into
    std::vector<StreamPacket> packets;
  };
  using Lock = std::unique_lock<std::mutex>;

  void run();
  /// False once the acquisition or the thread is to end.
  bool waitForFrame(Lock& lock, uint64_t& last_start_ns);
  void sendFrame(Lock& lock, const std::shared_ptr<const StreamFrame>& frame, const BurstPlan& plan);
  std::shared_ptr<const StreamFrame> makeFrame(Lock& lock);
  std::vector<uint16_t> render(const Scene& scene, const StreamSettings& settings, uint16_t block_id) const;
  void waitUntil(Lock& lock, uint64_t until_ns);
  void sendDuePackets(Lock& lock, uint64_t now_ns);

  UdpSocket socket_;
  const std::shared_ptr<VideoSource> video_;
  Faults& faults_;
  StatisticsBoard& statistics_;
  PacketSender sender_;
  FrameHistory history_;

  mutable std::mutex mutex_;  ///< guards everything below
  std::condition_variable changed_;
  std::shared_ptr<const Scene> scene_;
  StreamSettings settings_;
  uint16_t next_block_ = 1;
  bool acquiring_ = false;
  bool sending_ = false;  ///< the thread is in the middle of a frame
  bool ending_ = false;
  uint64_t frames_left_ = 0;  ///< 0: no limit
  std::deque<LatePackets> late_;

  std::thread thread_;
};

}  // namespace simulator
