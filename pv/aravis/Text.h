// Between the seam's texts and strings.
#pragma once

#include <string>

#include "PvString.h"

namespace keocam {

/// The text, or an empty one if it is absent.
inline std::string textOf(const PvString& text) { return text.GetAscii() != nullptr ? text.GetAscii() : ""; }

}  // namespace keocam
