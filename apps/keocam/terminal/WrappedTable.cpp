#include "apps/keocam/terminal/WrappedTable.h"

#include <algorithm>
#include <string_view>

#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kWrappedGap = 2;
// On a terminal too narrow for even that beside the other columns, lines are left to it to be broken.
constexpr std::size_t kLeastColumns = 8;

std::size_t columnsForLast(const TableRow& header, const std::vector<TableRow>& rows, std::size_t width) {
  if (width == kUnlimitedWidth) return width;
  std::size_t taken = 0;
  for (std::size_t column = 0; column + 1 < header.size(); ++column) {
    std::size_t widest = columnsOf(header[column]);
    for (const TableRow& row : rows) widest = std::max(widest, columnsOf(row[column]));
    taken += widest + kWrappedGap;
  }
  return std::max(width > taken ? width - taken : 0, kLeastColumns);
}

// Appends `word`, a piece to a line where it is longer than one.
void addLine(std::vector<std::string>& lines, std::string_view word, std::size_t columns) {
  while (columnsOf(word) > columns) {
    const std::string_view piece = firstColumns(word, columns);
    lines.emplace_back(piece);
    word.remove_prefix(piece.size());
  }
  lines.emplace_back(word);
}

std::vector<std::string> linesOf(std::string_view text, std::size_t columns) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    const std::string_view word = text.substr(start, end - start);
    if (!lines.empty() && columnsOf(lines.back()) + 1 + columnsOf(word) <= columns) {
      lines.back() += ' ';
      lines.back() += word;
    } else {
      addLine(lines, word, columns);
    }
    start = end + 1;
  }
  if (lines.empty()) lines.emplace_back();
  return lines;
}

}  // namespace

std::string wrappedTable(const TableRow& header, const std::vector<TableRow>& rows, std::size_t width) {
  if (header.empty()) return {};
  const std::size_t columns = columnsForLast(header, rows, width);
  std::vector<TableRow> lines;
  for (const TableRow& row : rows) {
    TableRow line = row;
    for (const std::string& text : linesOf(row.back(), columns)) {
      line.back() = text;
      lines.push_back(line);
      line.assign(row.size(), "");
    }
  }
  return formatTable(header, lines, kUnlimitedWidth);
}

}  // namespace keocam::cli
