// The buffers of a pipeline, and in whose hands each of them is.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "PvBuffer.h"
#include "pv/aravis/GLib.h"

/// One frame's memory and the Aravis buffer that describes it. The stream's thread writes it while it is Queued.
struct PvBuffer::State {
  std::unique_ptr<uint8_t[]> memory;
  keocam::GObjectPtr<ArvBuffer> description;
  bool held = false;  // In the application's hands.
};

namespace keocam {

/// Not for concurrent use; the pipeline guards it.
class PipelineBuffers {
 public:
  /// Makes `count` buffers of `size` bytes. Those that the application holds keep their memory as long as this object
  /// and are not given to a stream again. Throws std::bad_alloc.
  void allocate(std::size_t count, std::size_t size);

  std::size_t size() const { return size_; }
  std::size_t count() const { return buffers_.size(); }
  /// Buffers in the application's hands.
  std::size_t heldCount() const { return held_count_; }

  /// The Aravis buffers that a stream may fill: all but the held ones.
  std::vector<ArvBuffer*> fillable() const;

  /// Puts the buffer that `description` belongs to into the application's hands.
  PvBuffer* hold(ArvBuffer* description);

  enum class Return { Refused, Retired, Fillable };
  /// Takes a buffer back. Refused if it is null, foreign or not held; Fillable if a stream may have it again.
  Return takeBack(PvBuffer* buffer);

  /// The Aravis buffer behind one of these buffers.
  static ArvBuffer* descriptionOf(const PvBuffer& buffer);

 private:
  std::size_t size_ = 0;
  std::size_t held_count_ = 0;
  std::vector<std::unique_ptr<PvBuffer>> buffers_;
  std::vector<std::unique_ptr<PvBuffer>> retired_;  // Replaced while the application held them.
};

}  // namespace keocam
