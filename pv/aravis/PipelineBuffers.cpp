#include "pv/aravis/PipelineBuffers.h"

#include <utility>

#include "pv/aravis/PvLayer.h"

PvBuffer::PvBuffer(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvBuffer::~PvBuffer() = default;

uint8_t* PvBuffer::GetDataPointer() { return state_->memory.get(); }

std::unique_ptr<PvBuffer> PvLayer::makeBuffer(std::size_t size) {
  auto state = std::make_unique<PvBuffer::State>();
  state->memory = std::make_unique<uint8_t[]>(size);
  uint8_t* const memory = state->memory.get();
  std::unique_ptr<PvBuffer> buffer(new PvBuffer(std::move(state)));
  // The frame's memory is ours; the user data leads from Aravis' description back to it.
  buffer->state_->description.reset(arv_buffer_new_full(size, memory, buffer.get(), nullptr));
  return buffer;
}

PvBuffer::State& PvLayer::state(const PvBuffer& buffer) { return *buffer.state_; }

namespace keocam {

namespace {

PvBuffer* find(const std::vector<std::unique_ptr<PvBuffer>>& buffers, const PvBuffer* wanted) {
  for (const auto& buffer : buffers) {
    if (buffer.get() == wanted) return buffer.get();
  }
  return nullptr;
}

}  // namespace

void PipelineBuffers::allocate(std::size_t count, std::size_t size) {
  std::vector<std::unique_ptr<PvBuffer>> made;
  made.reserve(count);
  while (made.size() < count) made.push_back(PvLayer::makeBuffer(size));
  retired_.reserve(retired_.size() + buffers_.size());
  for (auto& buffer : buffers_) {
    if (PvLayer::state(*buffer).held) retired_.push_back(std::move(buffer));
  }
  buffers_ = std::move(made);
  size_ = size;
}

std::vector<ArvBuffer*> PipelineBuffers::fillable() const {
  std::vector<ArvBuffer*> result;
  for (const auto& buffer : buffers_) {
    if (!PvLayer::state(*buffer).held) result.push_back(descriptionOf(*buffer));
  }
  return result;
}

PvBuffer* PipelineBuffers::hold(ArvBuffer* description) {
  const void* const owner = arv_buffer_get_user_data(description);
  PvBuffer* const buffer = find(buffers_, static_cast<const PvBuffer*>(owner));
  if (buffer == nullptr) return nullptr;
  PvLayer::state(*buffer).held = true;
  ++held_count_;
  return buffer;
}

PipelineBuffers::Return PipelineBuffers::takeBack(PvBuffer* buffer) {
  const bool current = find(buffers_, buffer) != nullptr;
  if (!current && find(retired_, buffer) == nullptr) return Return::Refused;
  auto& state = PvLayer::state(*buffer);
  if (!state.held) return Return::Refused;
  state.held = false;
  --held_count_;
  return current ? Return::Fillable : Return::Retired;
}

ArvBuffer* PipelineBuffers::descriptionOf(const PvBuffer& buffer) { return PvLayer::state(buffer).description.get(); }

}  // namespace keocam
