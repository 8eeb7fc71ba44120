#include "simulator/RegisterMap.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "simulator/RegisterTable.h"

namespace simulator {
namespace {

constexpr std::size_t kWordBytes = 4;
constexpr uint32_t kRegionBytes = 0x1000;

uint32_t regionBase(uint32_t at) { return at & ~(kRegionBytes - 1); }

float asFloat(uint32_t bits) {
  float value = 0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

}  // namespace

RegisterMap::RegisterMap(const std::string& xml) {
  for (const Field& field : kRegisterTable) {
    if (regionOf(field.address) == nullptr) regions_.push_back({regionBase(field.address), Bytes(kRegionBytes)});
    for (uint32_t at = field.address; at < field.address + field.length_bytes; at += kWordBytes) {
      fields_by_word_[at].push_back(&field);
    }
  }
  Bytes xml_bytes(xml.begin(), xml.end());
  // Hosts read whole words, so the last piece is padded.
  xml_bytes.resize((xml_bytes.size() + kWordBytes - 1) / kWordBytes * kWordBytes);
  xml_end_ = address::kXml + static_cast<uint32_t>(xml_bytes.size());
  regions_.push_back({address::kXml, std::move(xml_bytes)});
  for (const Field& field : kRegisterTable) initialise(field);
}

void RegisterMap::initialise(const Field& field) {
  if (field.kind == FieldKind::Text) {
    setText(field.address, std::string(field.initial_text), field.length_bytes);
  } else if (field.length_bytes == 8) {
    storeU64(bytes(field.address), field.initial);
  } else if (field.isWord()) {
    const uint32_t bits = static_cast<uint32_t>(field.initial) << field.lowest_bit;
    set(field.address, (get(field.address) & ~field.mask()) | bits);
  }
}

const RegisterMap::Region* RegisterMap::regionOf(uint32_t at) const {
  const auto region = std::find_if(regions_.begin(), regions_.end(), [at](const Region& candidate) {
    return at >= candidate.base && at - candidate.base < candidate.bytes.size();
  });
  return region == regions_.end() ? nullptr : &*region;
}

const std::vector<const Field*>* RegisterMap::fieldsAt(uint32_t at) const {
  const auto found = fields_by_word_.find(at);
  return found == fields_by_word_.end() ? nullptr : &found->second;
}

Status RegisterMap::read(uint32_t at, std::size_t size, Bytes& out) const {
  if (size == 0 || size % kWordBytes != 0) return Status::InvalidParameter;
  if (at % kWordBytes != 0) return Status::BadAlignment;
  const Region* region = regionOf(at);
  if (region == nullptr || size > region->bytes.size() - (at - region->base)) return Status::InvalidAddress;
  if (region->base != address::kXml) {
    for (std::size_t offset = 0; offset < size; offset += kWordBytes) {
      if (fieldsAt(at + static_cast<uint32_t>(offset)) == nullptr) return Status::InvalidAddress;
    }
  }
  const uint8_t* first = region->bytes.data() + (at - region->base);
  out.insert(out.end(), first, first + size);
  return Status::Success;
}

Status RegisterMap::write(uint32_t at, const uint8_t* data, std::size_t size, bool locked,
                          std::vector<WrittenField>& written) {
  if (size == 0 || size % kWordBytes != 0) return Status::InvalidParameter;
  if (at % kWordBytes != 0) return Status::BadAlignment;
  if (size > UINT32_MAX - at) return Status::InvalidAddress;
  for (std::size_t offset = 0; offset < size; offset += kWordBytes) {
    const Status status = checkWord(at + static_cast<uint32_t>(offset), loadU32(data + offset), locked);
    if (status != Status::Success) return status;
  }
  for (std::size_t offset = 0; offset < size; offset += kWordBytes) {
    storeWord(at + static_cast<uint32_t>(offset), loadU32(data + offset));
  }
  for (const Field& field : kRegisterTable) {
    const bool touched = field.address < at + size && at < field.address + field.length_bytes;
    if (!touched || field.access == Access::ReadOnly) continue;
    // A command's bit is not stored, so its value comes from the message.
    const uint32_t word = field.isWord() ? loadU32(data + (field.address - at)) : 0;
    written.push_back({&field, (word & field.mask()) >> field.lowest_bit});
  }
  return Status::Success;
}

Status RegisterMap::checkWord(uint32_t at, uint32_t value, bool locked) const {
  if (at >= address::kXml && at < xml_end_) return Status::WriteProtect;
  const auto* fields = fieldsAt(at);
  if (fields == nullptr) return Status::InvalidAddress;
  bool writable = false;
  for (const Field* field : *fields) {
    if (field->access == Access::ReadOnly) continue;
    writable = true;
    if (locked && field->locked_while_streaming) return Status::AccessDenied;
    if (!accepts(*field, (value & field->mask()) >> field->lowest_bit)) return Status::InvalidParameter;
  }
  return writable ? Status::Success : Status::WriteProtect;
}

bool RegisterMap::accepts(const Field& field, uint32_t value) const {
  switch (field.kind) {
    case FieldKind::Integer:
    case FieldKind::Boolean:
      return value >= field.minimum && value <= maximumOf(field) && (value - field.minimum) % field.increment == 0;
    case FieldKind::Float: {
      const double number = static_cast<double>(asFloat(value));
      return std::isfinite(number) && number >= field.minimum && number <= floatMaximumOf(field);
    }
    case FieldKind::Enumeration:
      return std::any_of(field.entries.begin(), field.entries.end(),
                         [value](const EnumEntry& entry) { return entry.value == value; });
    case FieldKind::Command:
    case FieldKind::Text:
    case FieldKind::Block:
      return true;
    case FieldKind::Reserved:
      return false;
  }
  return false;
}

void RegisterMap::storeWord(uint32_t at, uint32_t value) {
  uint32_t word = get(at);
  for (const Field* field : *fieldsAt(at)) {
    if (field->access != Access::ReadWrite) continue;
    word = (word & ~field->mask()) | (value & field->mask());
  }
  set(at, word);
}

uint32_t RegisterMap::get(uint32_t at) const {
  const Region* region = regionOf(at);
  if (region == nullptr) throw std::out_of_range("no register at this address");
  return loadU32(region->bytes.data() + (at - region->base));
}

uint8_t* RegisterMap::bytes(uint32_t at) {
  for (Region& region : regions_) {
    if (at >= region.base && at - region.base < region.bytes.size()) return region.bytes.data() + (at - region.base);
  }
  throw std::out_of_range("no register at this address");
}

void RegisterMap::set(uint32_t at, uint32_t value) { storeU32(bytes(at), value); }

void RegisterMap::setText(uint32_t at, const std::string& text, std::size_t length_bytes) {
  uint8_t* target = bytes(at);
  std::fill_n(target, length_bytes, uint8_t{0});
  std::copy_n(text.begin(), std::min(text.size(), length_bytes - 1), target);
}

uint32_t RegisterMap::fieldValue(const Field& field) const {
  return (get(field.address) & field.mask()) >> field.lowest_bit;
}

double RegisterMap::floatMaximumOf(const Field& field) const {
  return field.maximum_from == 0 ? field.maximum : static_cast<double>(asFloat(get(field.maximum_from)));
}

uint32_t RegisterMap::maximumOf(const Field& field) const {
  return field.maximum_from == 0 ? field.maximum : get(field.maximum_from);
}

}  // namespace simulator
