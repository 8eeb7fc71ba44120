// Buffers that circulate between a stream and the application.
#pragma once

#include <memory>

#include "PvBuffer.h"
#include "PvResult.h"
#include "PvStream.h"

/// Hands received frames out without a copy. One thread retrieves; releasing is safe from any thread.
class PvPipeline {
 public:
  /// `stream` is not owned and must outlive this object.
  explicit PvPipeline(PvStream* stream);
  virtual ~PvPipeline();
  PvPipeline(const PvPipeline&) = delete;
  PvPipeline& operator=(const PvPipeline&) = delete;

  /// The largest number of buffers that the application may hold at a time. Only while stopped.
  PvResult SetBufferCount(unsigned int count);
  /// Bytes in each buffer, at least: Start() makes them larger where the device's payload has grown meanwhile. Only
  /// while stopped.
  PvResult SetBufferSize(unsigned int size);

  /// Begins to receive frames of the payload size that the device has now.
  PvResult Start();
  /// Ends receiving and takes back all buffers that the application still holds: they no longer count against the
  /// buffer count, and releasing them later is refused harmlessly, unless the next run has handed the same buffer out
  /// again. A buffer stays a valid object as long as the pipeline; its memory keeps its contents until the next
  /// Start(), and is replaced there if it has to grow.
  PvResult Stop();
  bool IsStarted();

  /// Waits up to `timeout_ms` milliseconds for the next complete frame and stores its buffer in `*buffer`, and how the
  /// frame fared in `*operationResult`. Frames that arrived incomplete are counted and passed over. On failure
  /// `*buffer` is left as it was: Timeout, or NoBuffer if the application holds as many as it may.
  PvResult RetrieveNextBuffer(PvBuffer** buffer, unsigned int timeout_ms, PvResult* operationResult);
  /// Gives a buffer back. One that is null, not of this pipeline, or not in the application's hands is refused,
  /// harmlessly.
  PvResult ReleaseBuffer(PvBuffer* buffer);

 private:
  friend struct PvLayer;
  struct State;
  std::unique_ptr<State> state_;
};
