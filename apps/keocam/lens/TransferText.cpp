#include "apps/keocam/lens/TransferText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace keocam::cli {
namespace {

constexpr const char* kPhases[] = {"Erasing", "Writing", "Verifying"};
constexpr std::size_t kLeastBar = 8;
constexpr std::size_t kMostBar = 40;

std::string phaseText(const TransferView& view) {
  return std::string(kPhases[static_cast<std::size_t>(view.phase)]) + " the " + wordFor(view.table) + " table";
}

// A phase counts as done only when it is.
int percentOf(const TransferView& view) { return static_cast<int>(std::floor(view.fraction * 100.0)); }

// Nothing, where nothing is known yet.
std::string rateText(double rate_bytes_s, const char* format) {
  if (rate_bytes_s < 1.0) return {};
  char text[48];
  std::snprintf(text, sizeof text, format, rate_bytes_s);
  return text;
}

std::string rightAligned(const std::string& text, std::size_t columns) {
  return std::string(columns - std::min(text.size(), columns), ' ') + text;
}

std::string bar(double fraction, std::size_t columns) {
  const std::size_t inner = columns - 2;
  const auto filled = static_cast<std::size_t>(std::floor(fraction * static_cast<double>(inner)));
  return '[' + std::string(std::min(filled, inner), '#') + std::string(inner - std::min(filled, inner), '.') + ']';
}

}  // namespace

const char* wordFor(SffcTable table) { return table == SffcTable::Low ? "low-range" : "middle-range"; }

std::string transferBar(const TransferView& view, std::size_t columns) {
  constexpr std::size_t kPhaseColumns = 32;  // as long as the longest, so that the bar stands still
  std::string text = phaseText(view);
  const std::string figures = rightAligned(std::to_string(percentOf(view)), 3) + "% " +
                              rightAligned(rateText(view.rate_bytes_s, "%.0f B/s"), 10) + ' ' +
                              rightAligned(clockText(view.left_s), 7) + " left";
  const std::size_t taken = kPhaseColumns + 1 + figures.size() + 1;
  if (columns < taken + kLeastBar) return text + ' ' + figures;
  text.resize(kPhaseColumns, ' ');
  return text + ' ' + bar(view.fraction, std::min(columns - taken, kMostBar)) + ' ' + figures;
}

std::string transferLine(const TransferView& view) {
  return phaseText(view) + ": " + std::to_string(percentOf(view)) + '%' +
         rateText(view.rate_bytes_s, ", %.0f bytes/s") + ", " + clockText(view.left_s) + " left";
}

std::string roughDuration(double duration_s) {
  constexpr double kTens = 10.0;
  if (duration_s < 100.0) {
    const auto seconds = static_cast<int>(std::max(1.0, std::ceil(duration_s / kTens)) * kTens);
    return std::to_string(seconds) + " seconds";
  }
  return std::to_string(static_cast<int>(std::round(duration_s / 60.0))) + " minutes";
}

std::string clockText(double duration_s) {
  constexpr double kLongest_s = 359'999.0;
  const auto seconds = static_cast<int>(std::clamp(std::ceil(duration_s), 0.0, kLongest_s));
  char text[32];
  if (seconds < 3600) {
    std::snprintf(text, sizeof text, "%d:%02d", seconds / 60, seconds % 60);
  } else {
    std::snprintf(text, sizeof text, "%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
  }
  return text;
}

}  // namespace keocam::cli
