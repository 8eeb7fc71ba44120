#include "simulator/core/CoreRequest.h"

#include <algorithm>

#include "simulator/core/CoreSettings.h"

namespace simulator {
namespace {

CoreRequest refused(CoreStatus status) {
  CoreRequest request;
  request.status = status;
  return request;
}

bool hasKey(const RequestKey& key, const Bytes& payload) {
  return payload.size() >= key.size && std::equal(key.bytes.begin(), key.bytes.begin() + key.size, payload.begin());
}

bool fitsGet(const FunctionRow& row, const Bytes& payload) {
  return row.kind != RowKind::Memory && payload.size() == row.get_key.size;
}

bool fitsMemory(const FunctionRow& row, const Bytes& payload) {
  return row.kind == RowKind::Memory && payload.size() >= row.least_payload_bytes &&
         payload.size() <= row.most_payload_bytes;
}

bool fitsSet(const FunctionRow& row, const Bytes& payload) {
  if (!row.writable || payload.size() < row.set_key.size) return false;
  const std::size_t value_bytes = payload.size() - row.set_key.size;
  return value_bytes == row.set_value_bytes || (row.one_word_for_all && value_bytes == 2);
}

/// The words of a payload that fits the row's set request.
SettingWords wordsOf(const FunctionRow& row, const Bytes& payload) {
  const uint8_t* value = payload.data() + row.set_key.size;
  const std::size_t value_bytes = payload.size() - row.set_key.size;
  if (value_bytes == 1) return {*value};
  SettingWords words{};
  for (std::size_t i = 0; i < row.words; ++i) words[i] = loadU16(value + std::min(2 * i, value_bytes - 2));
  return words;
}

}  // namespace

CoreRequest understand(const DecodedFrame& frame, const CoreAbilities& abilities) {
  if (frame.verdict == Verdict::UndefinedProcess) return refused(CoreStatus::UndefinedProcess);
  if (frame.verdict == Verdict::DamagedHeader) return refused(CoreStatus::ChecksumError);
  bool defined = false;
  bool fits = false;
  bool enabled = true;
  CoreRequest request = refused(CoreStatus::RangeError);
  for (const FunctionRow& row : kFunctionRows) {
    if (row.code != frame.function) continue;
    defined = true;
    enabled = enabled && (abilities.radiometric || !row.radiometric);
    const bool get = fitsGet(row, frame.payload);
    const bool set = fitsSet(row, frame.payload);
    const bool memory = fitsMemory(row, frame.payload);
    fits = fits || get || set || memory;
    if (memory) {
      request = {CoreStatus::Ok, &row, Operation::Memory, {}};
    } else if (get && hasKey(row.get_key, frame.payload)) {
      request = {CoreStatus::Ok, &row, row.kind == RowKind::Command ? Operation::Command : Operation::Get, {}};
    } else if (set && hasKey(row.set_key, frame.payload)) {
      const SettingWords words = wordsOf(row, frame.payload);
      if (inRange(row, words, abilities)) request = {CoreStatus::Ok, &row, Operation::Set, words};
    }
  }
  if (!defined) return refused(CoreStatus::UndefinedFunction);
  if (!fits || frame.verdict == Verdict::TooLong) return refused(CoreStatus::ByteCountError);
  if (frame.verdict == Verdict::DamagedFrame) return refused(CoreStatus::ChecksumError);
  if (!enabled) return refused(CoreStatus::FeatureNotEnabled);
  return request;
}

}  // namespace simulator
