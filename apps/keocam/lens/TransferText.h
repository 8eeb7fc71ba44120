// The progress of a change of lenses, in words and as a bar.
#pragma once

#include <cstddef>
#include <string>

#include "apps/keocam/lens/TransferMeter.h"

namespace keocam::cli {

/// "low-range" or "middle-range": the core's two tables by the first range that each is for.
const char* wordFor(SffcTable table);

/// Phase, table, bar, percent, rate and the time left, within `columns`; the bar gives way first.
std::string transferBar(const TransferView& view, std::size_t columns);

/// The same as a line of a log, without the bar.
std::string transferLine(const TransferView& view);

/// "40 seconds" or "20 minutes", rounded as an expectation deserves.
std::string roughDuration(double duration_s);

/// "4:05" or "1:04:05".
std::string clockText(double duration_s);

}  // namespace keocam::cli
