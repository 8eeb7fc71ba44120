#include "apps/keocam/terminal/Table.h"

#include <unistd.h>

#include <algorithm>
#include <numeric>

#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Terminal.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kGap = 2;

using Widths = std::vector<std::size_t>;

Widths naturalWidths(const TableRow& header, const std::vector<TableRow>& rows) {
  Widths widths;
  for (std::size_t column = 0; column < header.size(); ++column) {
    std::size_t widest = columnsOf(header[column]);
    for (const TableRow& row : rows) widest = std::max(widest, columnsOf(row[column]));
    widths.push_back(widest);
  }
  return widths;
}

// Takes one column of text at a time from the widest column that still exceeds its heading.
void shrink(Widths& widths, const TableRow& header, std::size_t available) {
  while (std::accumulate(widths.begin(), widths.end(), std::size_t{0}) > available) {
    std::size_t* widest = nullptr;
    for (std::size_t column = 0; column < widths.size(); ++column) {
      const bool shrinkable = widths[column] > columnsOf(header[column]);
      if (shrinkable && (widest == nullptr || widths[column] > *widest)) widest = &widths[column];
    }
    if (widest == nullptr) return;
    --*widest;
  }
}

std::string formatRow(const TableRow& row, const Widths& widths) {
  std::string line;
  for (std::size_t column = 0; column < row.size(); ++column) {
    const std::string cell = fitted(row[column], widths[column]);
    line += cell;
    line.append(widths[column] - columnsOf(cell) + kGap, ' ');
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

}  // namespace

std::size_t widthOfOutput() { return isatty(STDOUT_FILENO) != 0 ? terminalOn(STDOUT_FILENO).columns : kUnlimitedWidth; }

std::string formatTable(const TableRow& header, const std::vector<TableRow>& rows, std::size_t width) {
  if (header.empty()) return {};
  Widths widths = naturalWidths(header, rows);
  const std::size_t gaps = kGap * (header.size() - 1);
  shrink(widths, header, width > gaps ? width - gaps : 0);
  std::string table = formatRow(header, widths);
  for (const TableRow& row : rows) table += formatRow(row, widths);
  return table;
}

}  // namespace keocam::cli
