#include "pv/aravis/PipelineBuffers.h"

#include <algorithm>
#include <utility>

#include "pv/aravis/PvLayer.h"

PvBuffer::PvBuffer(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvBuffer::~PvBuffer() = default;

uint8_t* PvBuffer::GetDataPointer() { return state_->memory.get(); }

std::unique_ptr<PvBuffer> PvLayer::makeBuffer(std::size_t size) {
  auto state = std::make_unique<PvBuffer::State>();
  state->memory = std::make_unique<uint8_t[]>(size);
  return std::unique_ptr<PvBuffer>(new PvBuffer(std::move(state)));
}

PvBuffer::State& PvLayer::state(const PvBuffer& buffer) { return *buffer.state_; }

namespace keocam {

namespace {

// The frame's memory is ours; the user data leads from Aravis' description back to it.
GObjectPtr<ArvBuffer> describe(PvBuffer& buffer, std::size_t size) {
  return GObjectPtr<ArvBuffer>(arv_buffer_new_full(size, buffer.GetDataPointer(), &buffer, nullptr));
}

PvBuffer* findIn(const std::vector<std::unique_ptr<PvBuffer>>& buffers, const void* wanted) {
  for (const auto& buffer : buffers) {
    if (buffer.get() == wanted) return buffer.get();
  }
  return nullptr;
}

}  // namespace

std::vector<ArvBuffer*> PipelineBuffers::prepare(std::size_t count, std::size_t size) {
  // What may throw comes first.
  const std::size_t wanted_size = std::max(size, size_);
  std::vector<ArvBuffer*> descriptions;
  descriptions.reserve(count);
  std::vector<std::unique_ptr<uint8_t[]>> larger;
  if (wanted_size > size_) {
    larger.reserve(buffers_.size());
    while (larger.size() < buffers_.size()) larger.push_back(std::make_unique<uint8_t[]>(wanted_size));
  }
  std::vector<std::unique_ptr<PvBuffer>> further;
  while (buffers_.size() + further.size() < count) further.push_back(PvLayer::makeBuffer(wanted_size));
  buffers_.reserve(buffers_.size() + further.size());

  for (std::size_t index = 0; index < larger.size(); ++index) {
    PvLayer::state(*buffers_[index]).memory = std::move(larger[index]);
  }
  for (auto& buffer : further) buffers_.push_back(std::move(buffer));
  size_ = wanted_size;
  for (std::size_t index = 0; index < count; ++index) {
    auto& state = PvLayer::state(*buffers_[index]);
    state.description = describe(*buffers_[index], size_);
    descriptions.push_back(state.description.get());
  }
  return descriptions;
}

PvBuffer* PipelineBuffers::find(ArvBuffer* description) const {
  PvBuffer* const buffer = findIn(buffers_, arv_buffer_get_user_data(description));
  return buffer != nullptr && descriptionOf(*buffer) == description ? buffer : nullptr;
}

void PipelineBuffers::hold(PvBuffer* buffer) {
  PvLayer::state(*buffer).held = true;
  ++held_count_;
}

ArvBuffer* PipelineBuffers::takeBack(PvBuffer* buffer) {
  if (findIn(buffers_, buffer) == nullptr) return nullptr;
  auto& state = PvLayer::state(*buffer);
  if (!std::exchange(state.held, false)) return nullptr;
  --held_count_;
  return state.description.get();
}

void PipelineBuffers::takeAllBack() {
  for (const auto& buffer : buffers_) PvLayer::state(*buffer).held = false;
  held_count_ = 0;
}

ArvBuffer* PipelineBuffers::descriptionOf(const PvBuffer& buffer) { return PvLayer::state(buffer).description.get(); }

}  // namespace keocam
