#include "serial/ParameterCodec.h"

#include <cstring>

#include "serial/Frame.h"

namespace keocam {
namespace {

uint32_t valueOf(Selector selector, const Selectors& selectors) {
  switch (selector) {
    case Selector::None:
      return 0;
    case Selector::DigitalOutput:
      return selectors.output;
    case Selector::TemperatureSensor:
      return selectors.temperature_sensor;
    case Selector::Radiometry:
      return selectors.radiometry;
    case Selector::RadiometricParameter:
      return selectors.radiometric;
  }
  return 0;
}

const SelectorBytes* bytesOf(const ParameterRow& row, const Selectors& selectors) {
  return findSelectorBytes(row.selector, valueOf(row.selector, selectors));
}

std::vector<uint8_t> makeFrame(FunctionCodes code, const std::vector<uint8_t>& payload) {
  return makeRequest(code, payload.data(), static_cast<uint16_t>(payload.size()));
}

void append(std::vector<uint8_t>& payload, const Writing& writing, const void* value) {
  if (writing.form == ValueForm::None) return;
  std::vector<uint8_t> bytes(writing.value_bytes);
  if (value != nullptr) std::memcpy(bytes.data(), value, bytes.size());
  if (writing.form == ValueForm::Word) {
    uint16_t word = 0;
    std::memcpy(&word, bytes.data(), sizeof word);
    bytes = {static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word & 0xFF)};
  }
  payload.insert(payload.end(), bytes.begin(), bytes.end());
}

}  // namespace

ParameterRequest readRequest(FunctionCodes code, const Selectors& selectors) {
  const ParameterRow* const row = findParameter(code);
  if (row == nullptr || row->reading.access == ReadAccess::Unknown) return {UNKNOWN_ERROR, row, {}};
  if (row->reading.access == ReadAccess::Refused) return {CAM_NOT_READABLE, row, {}};
  if (row->selector == Selector::None) return {CAM_OK, row, makeFrame(code, {})};
  if (row->selector == Selector::RadiometricParameter && selectors.radiometric == RADIOMETRIC_NONE) {
    return {UNKNOWN_ERROR, row, {}};
  }
  const SelectorBytes* const bytes = bytesOf(*row, selectors);
  if (bytes == nullptr) return {CAM_OK, row, makeFrame(code, {0, 0})};
  return {CAM_OK, row, makeFrame(code, {bytes->read.begin(), bytes->read.end()})};
}

void storeReply(const Reading& reading, const uint8_t* payload, void* value) {
  if (reading.form == ReplyForm::Word) {
    const auto word = static_cast<uint16_t>(payload[0] << 8 | payload[1]);
    std::memcpy(value, &word, sizeof word);
  } else {
    std::memcpy(value, payload, reading.reply_bytes);
  }
}

bool acceptsValue(const Writing& writing, const void* value) {
  if (writing.form == ValueForm::None) return true;
  if (value == nullptr) return false;
  if (writing.form == ValueForm::Raw) return true;
  uint16_t number = 0;
  if (writing.form == ValueForm::Byte) {
    number = *static_cast<const uint8_t*>(value);
  } else {
    std::memcpy(&number, value, sizeof number);
  }
  return number <= writing.highest && (number >= 16 || (writing.gaps >> number & 1) == 0);
}

ParameterRequest writeRequest(FunctionCodes code, const void* value, const Selectors& selectors) {
  const ParameterRow* const row = findParameter(code);
  if (row == nullptr || row->writing.access == WriteAccess::Unknown) return {CAM_UNDEFINED_FUNCTION_ERROR, row, {}};
  if (row->writing.access == WriteAccess::Refused) return {CAM_NOT_WRITABLE, row, {}};
  std::vector<uint8_t> payload;
  if (row->selector != Selector::None) {
    const SelectorBytes* const bytes = bytesOf(*row, selectors);
    if (bytes != nullptr) {
      payload.assign(bytes->write_prefix.begin(), bytes->write_prefix.begin() + bytes->write_prefix_bytes);
    } else if (row->selector == Selector::Radiometry) {
      return {CAM_OK, row, makeFrame(code, {0, 0, 0, 0})};
    } else {
      return {CAM_RANGE_ERROR, row, {}};
    }
  }
  if (row->writing.zero_first) payload.push_back(0);
  append(payload, row->writing, value);
  return {CAM_OK, row, makeFrame(code, payload)};
}

}  // namespace keocam
