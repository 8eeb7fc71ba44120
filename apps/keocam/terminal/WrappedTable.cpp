#include "apps/keocam/terminal/WrappedTable.h"

#include <algorithm>

#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kWrappedGap = 2;
// Narrower columns would have little more than one word to a line.
constexpr std::size_t kLeastColumns = 20;

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

// A word longer than a line stays whole.
std::vector<std::string> linesOf(const std::string& text, std::size_t columns) {
  std::vector<std::string> lines{""};
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    const std::string word = text.substr(start, end - start);
    std::string& line = lines.back();
    if (line.empty()) {
      line = word;
    } else if (columnsOf(line) + 1 + columnsOf(word) <= columns) {
      line += ' ' + word;
    } else {
      lines.push_back(word);
    }
    start = end + 1;
  }
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
  return formatTable(header, lines, width);
}

}  // namespace keocam::cli
