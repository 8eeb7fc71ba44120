// The camera's memory as the network sees it: words that obey the rows of the register table, and the XML.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "simulator/Bytes.h"
#include "simulator/Field.h"
#include "simulator/GvcpPacket.h"

namespace simulator {

/// A field that a write touched, with its new value; for text and blocks the value is 0.
struct WrittenField {
  const Field* field;
  uint32_t value;
};

class RegisterMap {
 public:
  /// Every register at its initial value; `xml` is readable at address::kXml.
  explicit RegisterMap(const std::string& xml);

  /// Appends `size` bytes from `at` to `out`. Nothing is appended unless all of them can be read.
  Status read(uint32_t at, std::size_t size, Bytes& out) const;

  /// Writes whole words: all of them, or none when one is refused. `locked` refuses the fields that are locked while
  /// streaming. `written` receives the fields touched, each once, in the table's order.
  Status write(uint32_t at, const uint8_t* data, std::size_t size, bool locked, std::vector<WrittenField>& written);

  // The camera's own access: no rules, only addresses of the table.
  uint32_t get(uint32_t at) const;
  void set(uint32_t at, uint32_t value);
  void setText(uint32_t at, const std::string& text, std::size_t length_bytes);
  uint8_t* bytes(uint32_t at);

  /// The field's own bits, shifted down.
  uint32_t fieldValue(const Field& field) const;

  /// Largest value that the field takes at this moment.
  uint32_t maximumOf(const Field& field) const;
  double floatMaximumOf(const Field& field) const;

 private:
  struct Region {
    uint32_t base;
    Bytes bytes;
  };
  const Region* regionOf(uint32_t at) const;
  const std::vector<const Field*>* fieldsAt(uint32_t at) const;
  void initialise(const Field& field);
  Status checkWord(uint32_t at, uint32_t value, bool locked) const;
  bool accepts(const Field& field, uint32_t value) const;
  void storeWord(uint32_t at, uint32_t value);

  std::vector<Region> regions_;
  std::unordered_map<uint32_t, std::vector<const Field*>> fields_by_word_;
  uint32_t xml_end_ = 0;
};

}  // namespace simulator
