#include "apps/keocam/temperature/SnapshotColours.h"

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"

namespace keocam::cli {
namespace {

const Palette& paletteNamed(const std::string& name) {
  if (name.empty()) return thermalPalette();
  if (const Palette* const palette = findPalette(name)) return *palette;
  std::string all;
  for (const std::string& known : paletteNames()) all += (all.empty() ? "" : ", ") + known;
  const std::string suggestion = didYouMean(name, paletteNames());
  throw CommandFailure(ExitStatus::Usage, "There is no palette " + inQuotes(name) +
                                              (suggestion.empty() ? "." : suggestion) + " There are: " + all + ".");
}

TemperatureSpan spanIn(const std::vector<std::string>& words) {
  constexpr double kLeastWidth = 0.1;
  constexpr double kMost = 10'000.0;
  const std::optional<double> low = numberIn(words.front());
  const std::optional<double> high = numberIn(words.back());
  const bool sound =
      words.size() == 2 && low && high && *low >= -kMost && *high <= kMost && *high - *low >= kLeastWidth;
  if (sound) return {*low, *high};
  throw CommandFailure(ExitStatus::Usage,
                       "--span takes two temperatures, the lower one first and at least 0.1 degrees apart, such as "
                       "--span 20 80.");
}

}  // namespace

SnapshotColours coloursFor(const SnapshotFormat& format, const std::string& palette,
                           const std::vector<std::string>& span) {
  if (!format.coloured && !(palette.empty() && span.empty())) {
    throw CommandFailure(ExitStatus::Usage,
                         "--palette and --span colour a picture: give the file a name that ends in .png, or leave them "
                         "out.");
  }
  SnapshotColours colours{&paletteNamed(palette), {}};
  if (!span.empty()) colours.span = spanIn(span);
  return colours;
}

}  // namespace keocam::cli
