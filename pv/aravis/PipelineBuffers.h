// The buffers of a pipeline, and in whose hands each of them is.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "PvBuffer.h"
#include "pv/aravis/GLib.h"

/// One frame's memory and the Aravis buffer that describes it in the present run. The stream's thread writes it while
/// it is queued there.
struct PvBuffer::State {
  std::unique_ptr<uint8_t[]> memory;
  keocam::GObjectPtr<ArvBuffer> description;
  bool held = false;  // In the application's hands.
};

namespace keocam {

/// A buffer, once made, lives as long as this object, since applications keep pointers to buffers that they have
/// released. Not for concurrent use; the pipeline guards it.
class PipelineBuffers {
 public:
  /// Readies `count` buffers of at least `size` bytes for a run and returns their Aravis buffers, made for this run
  /// alone: a frame of an earlier run is thus never taken for one of this. Memory that is large enough is kept, with
  /// what it holds; no buffer may be held. Throws std::bad_alloc, and then nothing has changed.
  std::vector<ArvBuffer*> prepare(std::size_t count, std::size_t size);

  /// Buffers in the application's hands.
  std::size_t heldCount() const { return held_count_; }

  /// The buffer that `description` belongs to in the present run; null if it is of an earlier one.
  PvBuffer* find(ArvBuffer* description) const;
  /// Puts one of these buffers into the application's hands.
  void hold(PvBuffer* buffer);
  /// Takes a buffer back and returns its Aravis buffer; null if it is null, foreign or not held.
  ArvBuffer* takeBack(PvBuffer* buffer);
  /// Takes back all that the application holds.
  void takeAllBack();

  /// The Aravis buffer behind one of these buffers.
  static ArvBuffer* descriptionOf(const PvBuffer& buffer);

 private:
  std::size_t size_ = 0;
  std::size_t held_count_ = 0;
  std::vector<std::unique_ptr<PvBuffer>> buffers_;
};

}  // namespace keocam
