#include "apps/keocam/temperature/Snapshot.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/temperature/SnapshotEncoders.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/WrappedTable.h"

namespace keocam::cli {
namespace {

constexpr SnapshotFormat kFormats[] = {
    {{".tiff", ".tif"}, "floating-point temperatures, with all parameters in its tags", false, encodeTiffOf},
    {{".png", nullptr}, "a picture with a scale bar", true, encodePngOf},
    {{".csv", nullptr}, "temperatures, a line per row of pixels; empty where there is none", false, encodeCsvOf},
    {{".raw", nullptr}, "the raw values, 16 bits each, little endian, row by row", false, encodeRawOf},
};

std::string extensionOf(const std::string& path) {
  std::string extension = std::filesystem::path(path).extension().string();
  for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return extension;
}

std::string extensionsText(const SnapshotFormat& format) {
  return std::string(format.extensions[0]) +
         (format.extensions[1] != nullptr ? std::string(", ") + format.extensions[1] : "");
}

bool has(const SnapshotFormat& format, const std::string& extension) {
  return std::any_of(std::begin(format.extensions), std::end(format.extensions),
                     [&](const char* own) { return own != nullptr && extension == own; });
}

}  // namespace

const SnapshotFormat& formatOf(const std::string& path) {
  const std::string extension = extensionOf(path);
  std::string all;
  for (const SnapshotFormat& format : kFormats) {
    if (has(format, extension)) return format;
    all += (all.empty() ? "" : ", ") + extensionsText(format);
  }
  throw CommandFailure(ExitStatus::Usage,
                       "The name " + inQuotes(path) + " tells no format: let it end in one of " + all + ".");
}

std::string snapshotFormats() {
  constexpr std::size_t kHelpColumns = 74;
  std::vector<TableRow> rows;
  for (const SnapshotFormat& format : kFormats) rows.push_back({"", extensionsText(format), format.meaning});
  return wrappedTable({"", "FILE", "HOLDS"}, rows, kHelpColumns);
}

}  // namespace keocam::cli
