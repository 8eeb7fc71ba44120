#include "apps/keocam/terminal/PrintableText.h"

#include <cstdint>
#include <cstdio>

namespace keocam::cli {
namespace {

struct CodePointRange {
  uint32_t first;
  uint32_t last;
};

// Visible, one column wide and never combining. Left out on purpose: the soft hyphen, spacing modifiers, combining
// marks, right-to-left scripts and everything of double width.
constexpr CodePointRange kPlainRanges[] = {
    {0x0020, 0x007E}, {0x00A1, 0x00AC}, {0x00AE, 0x024F}, {0x0391, 0x03A1}, {0x03A3, 0x03FF}, {0x0400, 0x0482},
};

bool isPlain(uint32_t code_point) {
  for (const CodePointRange& range : kPlainRanges) {
    if (code_point >= range.first && code_point <= range.last) return true;
  }
  return false;
}

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// The bytes at the start of `text` that make one plain character; 0 if they do not. Two bytes are enough for every
// plain range, so longer sequences need not be decoded to be refused.
std::size_t plainCharacterAt(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return isPlain(lead) ? 1 : 0;
  if ((lead & 0xE0U) != 0xC0U || text.size() < 2 || !isContinuation(text[1])) return 0;
  const uint32_t code_point = ((lead & 0x1FU) << 6U) | (static_cast<unsigned char>(text[1]) & 0x3FU);
  return isPlain(code_point) && code_point >= 0x80 ? 2 : 0;
}

}  // namespace

std::string printable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = plainCharacterAt(text);
    if (length > 0) {
      result += text.substr(0, length);
      text.remove_prefix(length);
      continue;
    }
    char escaped[5];
    std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned int>(static_cast<unsigned char>(text[0])));
    result += escaped;
    text.remove_prefix(1);
  }
  return result;
}

std::string inQuotes(std::string_view text) { return '"' + printable(text) + '"'; }

std::size_t columnsOf(std::string_view printable_text) {
  std::size_t columns = 0;
  for (const char c : printable_text) columns += isContinuation(c) ? 0U : 1U;
  return columns;
}

std::string_view firstColumns(std::string_view printable_text, std::size_t columns) {
  std::size_t taken = 0;
  for (std::size_t i = 0; i < printable_text.size(); ++i) {
    if (!isContinuation(printable_text[i]) && taken++ == columns) return printable_text.substr(0, i);
  }
  return printable_text;
}

std::string fitted(std::string_view printable_text, std::size_t columns) {
  if (columnsOf(printable_text) <= columns) return std::string(printable_text);
  if (columns == 0) return {};
  return std::string(firstColumns(printable_text, columns - 1)) + '~';
}

}  // namespace keocam::cli
