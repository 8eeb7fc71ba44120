#include "apps/keocam/lens/LensReport.h"

#include <nlohmann/json.hpp>

#include "apps/keocam/Json.h"
#include "apps/keocam/calibration/TableCheck.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

std::string sensorCell(std::size_t table_bytes) {
  if (table_bytes == 0) return "-";
  const std::string sensor = sensorOfTable(table_bytes);
  return sensor.empty() ? "?" : sensor;
}

std::string ownerOf(const HeldTable& table, std::optional<std::size_t> lens, const std::vector<LensSummary>& lenses) {
  if (lens) return "that of the lens " + inQuotes(shownName(lenses[*lens].name));
  return isErased(table) ? "erased" : "of no lens of the calibration";
}

Json nameOrNull(std::optional<std::size_t> lens, const std::vector<LensSummary>& lenses) {
  return lens ? Json(lenses[*lens].name) : Json(nullptr);
}

}  // namespace

std::string lensTable(const std::vector<LensSummary>& lenses, std::size_t width) {
  std::vector<TableRow> rows;
  rows.reserve(lenses.size());
  for (const LensSummary& lens : lenses) {
    rows.push_back({shownName(lens.name), printable(lens.date), rangesText(lens), std::to_string(lens.low.size_bytes),
                    sensorCell(lens.low.size_bytes)});
  }
  return formatTable({"LENS", "DATE", "RANGES", "TABLE BYTES", "SENSOR"}, rows, width);
}

std::string lensJson(const CameraCalibration& calibration) {
  Json lenses = Json::array();
  for (const LensSummary& lens : calibration.lenses) {
    const std::string sensor = sensorOfTable(lens.low.size_bytes);
    lenses.push_back({{"name", lens.name},
                      {"date", lens.date},
                      {"ranges", rangesOf(lens)},
                      {"table_bytes", lens.low.size_bytes},
                      {"sensor", sensor.empty() ? Json(nullptr) : Json(sensor)}});
  }
  return jsonText(
      {{"camera", calibration.entry.serial_number}, {"version", calibration.entry.version}, {"lenses", lenses}});
}

std::string noHeldLensText(const HeldTables& held, const HeldLens& found, const std::vector<LensSummary>& lenses) {
  return "The core holds the tables of no lens of the calibration. The one for the low range is " +
         ownerOf(held.low, found.low, lenses) + ", the one for the middle and high range is " +
         ownerOf(held.middle, found.middle, lenses) + ". \"keocam lens set NAME\" writes those of a lens.";
}

std::string heldLensJson(const std::string& camera, const HeldLens& found, const std::vector<LensSummary>& lenses) {
  return jsonText({{"camera", camera},
                   {"lens", nameOrNull(found.lens, lenses)},
                   {"low_table_of", nameOrNull(found.lens ? found.lens : found.low, lenses)},
                   {"middle_table_of", nameOrNull(found.lens ? found.lens : found.middle, lenses)}});
}

}  // namespace keocam::cli
