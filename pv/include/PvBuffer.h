// One frame's memory.
#pragma once

#include <cstdint>
#include <memory>

/// Owned by its PvPipeline.
class PvBuffer {
 public:
  virtual ~PvBuffer();
  PvBuffer(const PvBuffer&) = delete;
  PvBuffer& operator=(const PvBuffer&) = delete;

  /// The first byte of the frame's data, row after row, as the device sent them. The contents are the
  /// application's from RetrieveNextBuffer to ReleaseBuffer or to the pipeline's Stop. The memory stays readable as
  /// long as the pipeline, or until a Start that needs larger buffers.
  uint8_t* GetDataPointer();

 private:
  friend struct PvLayer;
  struct State;
  explicit PvBuffer(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};
