// The Aravis stream of one device, guarded so that it can end while the application still waits on it.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "PvResult.h"
#include "pv/aravis/GLib.h"
#include "pv/aravis/StreamDetails.h"

namespace keocam {

/// create() and close() are for the device's working thread, since a dead device can hold them up for seconds. Every
/// other member may be called from any thread and asks the device nothing; start() and stop() wait for a create() that
/// is under way, the others for nobody.
///
/// The receiving thread runs from create() to close(), also between stop() and start(), then without buffers: packets
/// that come while stopped are thus taken from the socket and forgotten, where they would otherwise wait in it and be
/// delivered as old frames after the next start.
class StreamReceiver {
 public:
  StreamReceiver() = default;
  StreamReceiver(const StreamReceiver&) = delete;
  StreamReceiver& operator=(const StreamReceiver&) = delete;

  /// Opens the stream with the packet size that the device has now. One that is open already is closed first.
  PvResult create(ArvDevice* device);
  /// Gives the stream back to the device. Waits for threads inside pop() to leave, a quarter of a second at most.
  void close();

  bool isOpen() const;
  /// False if the last create() failed.
  bool usable() const;
  bool isStarted() const;
  std::string localAddress() const;
  uint16_t port() const;
  uint32_t packetSize() const;

  /// Hands the buffers to the receiving thread, which forgets all frames before. `payload_bytes` is what a whole frame
  /// holds. The stream takes one reference to each buffer.
  PvResult start(const std::vector<ArvBuffer*>& buffers, uint64_t payload_bytes);
  /// Drops the stream's references to all buffers; none is touched afterwards.
  void stop();

  /// The next buffer that the receiving thread has finished with, together with a reference, or null at `deadline`.
  /// After close() it merely waits.
  ArvBuffer* pop(std::chrono::steady_clock::time_point deadline);
  /// Gives a buffer and a reference to it to the receiving thread; drops the reference if the stream is not started.
  void push(ArvBuffer* buffer);

  /// Counts a frame that Aravis took for whole and that was not.
  void countWrongSize() { ++wrong_size_; }
  StreamStatistics statistics() const;

 private:
  PvResult open(ArvDevice* device);
  StreamStatistics readStatistics(ArvStream* stream) const;
  uint64_t framesWithoutBuffer(ArvStream* stream) const;
  void restartThread(ArvStream* stream, const std::vector<ArvBuffer*>& buffers);

  std::mutex control_;  // Held by create, close, start and stop, which Aravis wants from one thread at a time.

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  ArvStream* stream_ = nullptr;  // Guarded by mutex_, as is all below; changed under both.
  int users_ = 0;                // Threads inside an Aravis call on stream_ other than the holder of control_.
  bool closing_ = false;
  bool started_ = false;
  bool usable_ = true;
  std::string local_address_;
  uint16_t port_ = 0;
  uint32_t packet_size_ = 0;
  uint64_t payload_bytes_ = 0;
  uint64_t underruns_at_start_ = 0;
  uint64_t earlier_frames_without_buffer_ = 0;  // Of the runs that have been stopped.
  StreamStatistics closed_statistics_;

  std::atomic<uint64_t> wrong_size_{0};
};

}  // namespace keocam
