#include "apps/keocam/calibration/LensSummary.h"

#include <zlib.h>

#include <cstdio>

#include "apps/keocam/calibration/CalibrationKeys.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "calibration/HexText.h"

namespace keocam::cli {
namespace {

TableSummary tableOf(std::string_view digits, Checksums checksums) {
  TableSummary table{hexBytes(digits), std::nullopt};
  if (checksums == Checksums::None || table.size_bytes == 0) return table;
  std::vector<uint8_t> bytes(table.size_bytes);
  decodeHex(digits, bytes.data());
  table.crc32 = crc32Of(bytes.data(), bytes.size());
  return table;
}

}  // namespace

std::vector<LensSummary> summariesOf(const CalibrationLayout& layout, Checksums checksums) {
  std::vector<LensSummary> lenses;
  for (const CalibrationRecordText& record : layout.records) {
    LensSummary lens;
    lens.name = record.lens;
    lens.date = record.date;
    lens.bb = record.bb;
    lens.has_1500_range = record.has_1500_range;
    lens.low = tableOf(record.sffc_low, checksums);
    lens.middle = tableOf(record.sffc_high, checksums);
    lens.high = tableOf(record.sffc_1500, checksums);
    lenses.push_back(lens);
  }
  return lenses;
}

std::string shownName(const std::string& name) { return printable(withoutTrailingBlanks(name)); }

std::vector<std::string> rangesOf(const LensSummary& lens) {
  std::vector<std::string> ranges{"low", "middle"};
  if (lens.has_1500_range) ranges.emplace_back("high");
  return ranges;
}

std::string rangesText(const LensSummary& lens) { return lens.has_1500_range ? "low, middle, high" : "low, middle"; }

uint32_t crc32Of(const void* data, std::size_t size) {
  return static_cast<uint32_t>(::crc32_z(0, static_cast<const Bytef*>(data), size));
}

std::string crcText(uint32_t crc32) {
  char text[9];
  std::snprintf(text, sizeof text, "%08x", crc32);
  return text;
}

}  // namespace keocam::cli
