#include "apps/keocam/temperature/RangeText.h"

#include "apps/keocam/core/StatusText.h"
#include "apps/keocam/temperature/RangeNames.h"

namespace keocam::cli {
namespace {

struct EndRow {
  RangeChangeEnd end;
  bool by_core;  // the status says why
  const char* how_it_stands;
  const char* what_to_do;
};

constexpr const char* kAgain = "Run it again: that repairs what was left undone.";

constexpr EndRow kRangeEnds[] = {
    {RangeChangeEnd::Changed, false, "nothing is left to do", ""},
    {RangeChangeEnd::UnknownRange, false, "there is no such range; nothing was sent", ""},
    {RangeChangeEnd::LensLacksRange, false, "the lens is not calibrated for it; nothing was sent",
     "\"keocam lens list\" tells the lenses that are."},
    {RangeChangeEnd::GainNotSet, true, "the core stays in the range that it is in", ""},
    {RangeChangeEnd::TableNotUsed, true, "the gain is set, but the core may still correct with another range's table",
     kAgain},
    {RangeChangeEnd::ResolutionNotSet, true,
     "the gain is set, but the core's own temperatures may have another range's resolution", kAgain},
    {RangeChangeEnd::FlatFieldNotDone, true, "the range is set, but the flat field is that of the range before",
     "Make the correction with \"keocam ffc\"."},
};

const EndRow& rowOf(RangeChangeEnd end) {
  for (const EndRow& row : kRangeEnds) {
    if (row.end == end) return row;
  }
  return kRangeEnds[0];
}

}  // namespace

std::string rangesByGain(bool low) { return low ? "low" : "middle or high"; }

std::optional<CommandFailure> rangeFailure(RangeModes range, const RangeChangeResult& result) {
  if (result.end == RangeChangeEnd::Changed) return std::nullopt;
  const EndRow& row = rowOf(result.end);
  std::string text = "The change to the " + rangeName(range) + " range is not complete: " + row.how_it_stands;
  if (row.by_core) text += ", because " + wordsFor(result.status);
  text += '.';
  const std::string advice = row.what_to_do[0] != '\0' ? row.what_to_do : row.by_core ? adviceOn(result.status) : "";
  return CommandFailure(row.by_core ? exitStatusOf(result.status) : ExitStatus::Failure,
                        advice.empty() ? text : text + ' ' + advice);
}

std::string rangeDoneText(RangeModes range) {
  const std::string text = "The core is in the " + rangeName(range) + " range";
  if (range != CameraSerialSettings::HighRange) return text + ".";
  return text + ". Say --range high when you measure: its gain is that of the middle range too.";
}

}  // namespace keocam::cli
