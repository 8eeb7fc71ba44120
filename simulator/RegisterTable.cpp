#include "simulator/RegisterTable.h"

#include <algorithm>
#include <iterator>

namespace simulator {
namespace {

constexpr bool rowIsSound(const Field& row) {
  return row.address % 4 == 0 && row.length_bytes % 4 == 0 && row.length_bytes > 0 && row.increment > 0 &&
         (row.maximum_from != 0 || row.minimum <= row.maximum) && row.lowest_bit + row.bit_count <= 32 &&
         (row.name.empty() == row.category.empty()) && (row.name.empty() == row.help.empty()) &&
         ((row.kind == FieldKind::Enumeration) == (row.entries.count > 0));
}

constexpr bool overlap(const Field& a, const Field& b) {
  return a.address < b.address + b.length_bytes && b.address < a.address + a.length_bytes && (a.mask() & b.mask()) != 0;
}

constexpr bool tableIsSound() {
  constexpr std::size_t count = std::size(kRegisterTable);
  for (std::size_t i = 0; i < count; ++i) {
    if (!rowIsSound(kRegisterTable[i])) return false;
    for (std::size_t j = i + 1; j < count; ++j) {
      const Field& a = kRegisterTable[i];
      const Field& b = kRegisterTable[j];
      if (!a.name.empty() && a.name == b.name) return false;
      // Views of the same bytes are allowed as long as only one of them can be written.
      if (overlap(a, b) && a.access != Access::ReadOnly && b.access != Access::ReadOnly) return false;
    }
  }
  return true;
}

static_assert(tableIsSound(), "rows are aligned, have sensible bounds and unique names, and do not overlap in writing");

}  // namespace

const Field* findFeature(std::string_view name) {
  const auto* row = std::find_if(std::begin(kRegisterTable), std::end(kRegisterTable),
                                 [name](const Field& field) { return !name.empty() && field.name == name; });
  return row == std::end(kRegisterTable) ? nullptr : row;
}

const Field* featureAt(uint32_t address) {
  const auto* row = std::find_if(std::begin(kRegisterTable), std::end(kRegisterTable), [address](const Field& field) {
    return field.address == address && !field.name.empty() && !field.isPart() && field.isWord();
  });
  return row == std::end(kRegisterTable) ? nullptr : row;
}

}  // namespace simulator
