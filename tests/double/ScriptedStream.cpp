// PvStream, PvPipeline and PvBuffer after the script.
#include <vector>

#include "PvPipeline.h"
#include "PvStreamGEV.h"
#include "tests/double/RecordedTime.h"
#include "tests/double/ScriptedLayer.h"

using scripted::called;
using scripted::eventLog;
using scripted::network;

struct PvStream::State {
  scripted::LiveObject live{"PvStream"};
  const scripted::Device* device;
  bool open = true;
};

PvStream::PvStream(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvStream::~PvStream() { eventLog().add("PvStream::~PvStream"); }
PvStreamGEV::PvStreamGEV(std::unique_ptr<State> state) : PvStream(std::move(state)) {}
PvStreamGEV::~PvStreamGEV() = default;

PvStream* PvStream::CreateAndOpen(const PvString& connectionID, PvResult* result) {
  const std::string id = connectionID.GetAscii() != nullptr ? connectionID.GetAscii() : "(null)";
  called("PvStream::CreateAndOpen " + id +
         (result != nullptr && result == PvLayer::result_of_connecting ? "" : " another result"));
  for (const auto& interface : network().interfaces) {
    if (!interface) continue;
    for (const auto& device : *interface) {
      if (device == nullptr || device->connection_id.GetAscii() != id || !device->stream_opens) continue;
      return PvLayer::makeStream(*device);
    }
  }
  return nullptr;
}

PvStream* PvLayer::makeStream(const scripted::Device& device) {
  auto state = std::make_unique<PvStream::State>();
  state->device = &device;
  return new PvStreamGEV(std::move(state));
}

void PvStream::Free(PvStream* stream) {
  eventLog().add("PvStream::Free");
  delete stream;
}

bool PvStream::IsOpen() const {
  const bool answer = state_->open && state_->device->stream_stays_open;
  called("PvStream::IsOpen");
  return answer;
}

PvResult PvStream::Close() {
  state_->open = false;
  return called("PvStream::Close");
}

PvString PvStreamGEV::GetLocalIPAddress() const { return "192.0.2.1"; }

unsigned short PvStreamGEV::GetLocalPort() const { return 50123; }

struct PvBuffer::State {
  uint8_t first_byte;
};

PvBuffer::PvBuffer(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvBuffer::~PvBuffer() = default;
uint8_t* PvBuffer::GetDataPointer() { return &state_->first_byte; }

std::unique_ptr<PvBuffer> PvLayer::makeBuffer(uint8_t first_byte) {
  return std::unique_ptr<PvBuffer>(new PvBuffer(std::make_unique<PvBuffer::State>(PvBuffer::State{first_byte})));
}

struct PvPipeline::State {
  scripted::LiveObject live{"PvPipeline"};
  bool started = false;
  std::vector<std::unique_ptr<PvBuffer>> buffers;
};

PvPipeline::PvPipeline(PvStream* stream) : state_(std::make_unique<State>()) {
  eventLog().add(stream != nullptr ? "PvPipeline::PvPipeline" : "PvPipeline::PvPipeline no stream");
}
PvPipeline::~PvPipeline() { eventLog().add("PvPipeline::~PvPipeline"); }

PvResult PvPipeline::SetBufferCount(unsigned int count) {
  return called("PvPipeline::SetBufferCount " + std::to_string(count));
}

PvResult PvPipeline::SetBufferSize(unsigned int size) {
  return called("PvPipeline::SetBufferSize " + std::to_string(size));
}

PvResult PvPipeline::Start() {
  PvResult result = called("PvPipeline::Start");
  state_->started = result.IsOK();
  return result;
}

PvResult PvPipeline::Stop() {
  state_->started = false;
  return called("PvPipeline::Stop");
}

bool PvPipeline::IsStarted() {
  eventLog().add("PvPipeline::IsStarted");
  return state_->started;
}

PvResult PvPipeline::RetrieveNextBuffer(PvBuffer** buffer, unsigned int timeout_ms, PvResult* operationResult) {
  eventLog().add("PvPipeline::RetrieveNextBuffer " + std::to_string(timeout_ms) +
                 (operationResult != nullptr ? "" : " no result"));
  if (network().retrievals.empty()) return {PvResult::Code::Timeout, "the script has no more frames"};
  const scripted::Retrieval retrieval = network().retrievals.front();
  network().retrievals.pop_front();
  scripted::passTime_ms(retrieval.takes_ms);
  if (retrieval.first_byte) {
    state_->buffers.push_back(PvLayer::makeBuffer(*retrieval.first_byte));
    *buffer = state_->buffers.back().get();
  }
  return retrieval.result;
}

PvResult PvPipeline::ReleaseBuffer(PvBuffer* buffer) {
  return called(buffer != nullptr ? "PvPipeline::ReleaseBuffer " + std::to_string(*buffer->GetDataPointer())
                                  : "PvPipeline::ReleaseBuffer null");
}
