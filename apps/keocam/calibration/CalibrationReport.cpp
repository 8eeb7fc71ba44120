#include "apps/keocam/calibration/CalibrationReport.h"

#include <nlohmann/json.hpp>

#include "apps/keocam/Json.h"
#include "apps/keocam/calibration/CalibrationKeys.h"
#include "apps/keocam/calibration/TableCheck.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

std::string calibrationLine(const std::string& label, const std::string& value) {
  constexpr std::size_t kLabelColumns = 9;
  std::string text = label;
  text.resize(kLabelColumns, ' ');
  return text + value + '\n';
}

std::string crcCell(const TableSummary& table) { return table.crc32 ? crcText(*table.crc32) : "-"; }

Json crcOrNull(const TableSummary& table) { return table.crc32 ? Json(crcText(*table.crc32)) : Json(nullptr); }

std::string versionText(const CalibrationReading& reading) {
  return printable(reading.version) + (reading.version_guessed ? " (as the text looks)" : "");
}

const char* wordFor(Severity severity) { return severity == Severity::Wrong ? "wrong" : "doubtful"; }

}  // namespace

std::string overviewText(const CalibrationOverview& overview, std::size_t width) {
  std::vector<TableRow> rows;
  for (const LensSummary& lens : overview.lenses) {
    rows.push_back({shownName(lens.name), printable(lens.date), rangesText(lens), std::to_string(lens.low.size_bytes),
                    crcCell(lens.low), crcCell(lens.middle), crcCell(lens.high)});
  }
  std::string text = calibrationLine("File", printable(overview.path));
  if (overview.reading.serial_number) text += calibrationLine("Camera", printable(*overview.reading.serial_number));
  text += calibrationLine("Version", versionText(overview.reading));
  text += calibrationLine("Size", std::to_string(overview.size_bytes) + " bytes");
  text += calibrationLine("CRC-32", crcText(overview.crc32));
  if (rows.empty()) return text + calibrationLine("Lenses", "none");
  return text + '\n' + formatTable({"LENS", "DATE", "RANGES", "BYTES", "CRC LOW", "CRC MID", "CRC HIGH"}, rows, width);
}

std::string overviewJson(const CalibrationOverview& overview) {
  Json lenses = Json::array();
  for (const LensSummary& lens : overview.lenses) {
    const std::string sensor = sensorOfTable(lens.low.size_bytes);
    lenses.push_back(
        {{"name", lens.name},
         {"date", lens.date},
         {"bb", lens.bb},
         {"ranges", rangesOf(lens)},
         {"table_bytes", lens.low.size_bytes},
         {"sensor", sensor.empty() ? Json(nullptr) : Json(sensor)},
         {"table_crc32",
          {{"low", crcOrNull(lens.low)}, {"middle", crcOrNull(lens.middle)}, {"high", crcOrNull(lens.high)}}}});
  }
  const CalibrationReading& reading = overview.reading;
  return jsonText({{"file", overview.path},
                   {"camera", reading.serial_number ? Json(*reading.serial_number) : Json(nullptr)},
                   {"version", reading.version},
                   {"version_guessed", reading.version_guessed},
                   {"size_bytes", overview.size_bytes},
                   {"manifest_size_bytes", reading.manifest ? Json(reading.manifest->size_bytes) : Json(nullptr)},
                   {"crc32", crcText(overview.crc32)},
                   {"lenses", lenses}});
}

std::string findingsText(const std::string& path, const std::vector<CalibrationFinding>& findings) {
  if (findings.empty()) return printable(path) + ": nothing is wrong.\n";
  std::string text;
  for (const CalibrationFinding& finding : findings) {
    const std::string place = finding.offset ? "byte " + std::to_string(*finding.offset) + ": " : "";
    text += std::string(wordFor(finding.severity)) + ": " + place + finding.text + '\n';
  }
  return text;
}

std::string findingsJson(const std::string& path, const std::vector<CalibrationFinding>& findings) {
  Json list = Json::array();
  bool wrong = false;
  for (const CalibrationFinding& finding : findings) {
    wrong = wrong || finding.severity == Severity::Wrong;
    list.push_back({{"severity", wordFor(finding.severity)},
                    {"offset", finding.offset ? Json(*finding.offset) : Json(nullptr)},
                    {"text", finding.text}});
  }
  return jsonText({{"file", path}, {"ok", !wrong}, {"findings", list}});
}

}  // namespace keocam::cli
