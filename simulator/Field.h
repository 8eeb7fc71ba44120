// One row of the register table: a register or bits of one, how it may be accessed, and the feature it is known by.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace simulator {

enum class FieldKind {
  Integer,      ///< unsigned, 4 or 8 bytes
  Float,        ///< IEEE 754 single precision
  Enumeration,  ///< one of `entries`
  Boolean,      ///< 0 or 1
  Command,      ///< anything but 0 triggers; reads as 0
  Text,         ///< zero-padded UTF-8
  Block,        ///< raw bytes
  Reserved,     ///< reads as 0
};

enum class Access { ReadOnly, ReadWrite, WriteOnly };

enum class Visibility { Beginner, Expert, Guru };

/// What a write sets off, after all words of the write have been stored.
enum class Action {
  None,
  Control,
  StreamPort,
  StreamSettings,
  TestPacket,
  TimestampLatch,
  AcquisitionStart,
  AcquisitionStop,
  SerialLine,
  FileOperation,
};

struct EnumEntry {
  std::string_view name;
  uint32_t value;
};

struct EnumEntries {
  const EnumEntry* data = nullptr;
  std::size_t count = 0;
  constexpr const EnumEntry* begin() const { return data; }
  constexpr const EnumEntry* end() const { return data + count; }
};

struct Field {
  uint32_t address = 0;
  uint32_t length_bytes = 4;
  FieldKind kind = FieldKind::Reserved;
  Access access = Access::ReadOnly;
  std::string_view name{};      ///< of the feature; empty for a register that has none
  std::string_view category{};  ///< of the feature
  std::string_view help{};      ///< of the feature: a full sentence
  std::string_view unit{};
  uint64_t initial = 0;
  std::string_view initial_text{};
  Visibility visibility = Visibility::Beginner;
  uint32_t minimum = 0;
  uint32_t maximum = UINT32_MAX;
  uint32_t increment = 1;
  uint32_t maximum_from = 0;  ///< address of the register that holds the maximum; 0: `maximum` does
  uint32_t selector = 0;      ///< address of the selector; 0: none
  uint32_t lowest_bit = 0;    ///< counted from the least significant bit
  uint32_t bit_count = 32;    ///< less than 32 for a part of a register
  EnumEntries entries{};
  Action action = Action::None;
  bool live = false;                    ///< changes without a write, so hosts must not cache it
  bool locked_while_streaming = false;  ///< refuses writes while acquisition runs or TLParamsLocked is 1

  constexpr Field as(std::string_view feature, std::string_view in_category, std::string_view text) const {
    Field field = *this;
    field.name = feature;
    field.category = in_category;
    field.help = text;
    return field;
  }
  constexpr Field value(uint64_t number) const {
    Field field = *this;
    field.initial = number;
    return field;
  }
  constexpr Field range(uint32_t low, uint32_t high, uint32_t step = 1) const {
    Field field = *this;
    field.minimum = low;
    field.maximum = high;
    field.increment = step;
    return field;
  }
  constexpr Field upTo(uint32_t register_address) const {
    Field field = *this;
    field.maximum_from = register_address;
    return field;
  }
  constexpr Field in(std::string_view unit_name) const {
    Field field = *this;
    field.unit = unit_name;
    return field;
  }
  constexpr Field bits(uint32_t lowest, uint32_t count) const {
    Field field = *this;
    field.lowest_bit = lowest;
    field.bit_count = count;
    return field;
  }
  constexpr Field does(Action effect) const {
    Field field = *this;
    field.action = effect;
    return field;
  }
  constexpr Field selectedBy(uint32_t register_address) const {
    Field field = *this;
    field.selector = register_address;
    return field;
  }
  constexpr Field changing() const {
    Field field = *this;
    field.live = true;
    return field;
  }
  constexpr Field locked() const {
    Field field = *this;
    field.locked_while_streaming = true;
    return field;
  }
  constexpr Field shownTo(Visibility level) const {
    Field field = *this;
    field.visibility = level;
    return field;
  }

  constexpr uint32_t mask() const { return bit_count >= 32 ? UINT32_MAX : ((1U << bit_count) - 1U) << lowest_bit; }
  constexpr bool isPart() const { return bit_count < 32; }
  /// One 32-bit word with a value of its own, as against text, blocks and 64-bit numbers.
  constexpr bool isWord() const {
    return length_bytes == 4 && kind != FieldKind::Text && kind != FieldKind::Block && kind != FieldKind::Reserved;
  }
};

constexpr Field makeField(FieldKind kind, Access access, uint32_t address, uint32_t length_bytes = 4) {
  Field field;
  field.kind = kind;
  field.access = access;
  field.address = address;
  field.length_bytes = length_bytes;
  return field;
}

}  // namespace simulator
