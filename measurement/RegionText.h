// Regions as a person writes them.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "measurement/Region.h"

namespace keocam {

struct NamedRegion {
  std::string name;  ///< empty if it was given none
  Region region;
};

/// Reads a region from text such as "box:100,80,40,30" or "bearing=spot:320,256". The shapes are
///
///     spot:X,Y[,RADIUS]
///     box:X,Y,WIDTH,HEIGHT
///     ellipse:X,Y,RADIUS_X,RADIUS_Y
///     line:X1,Y1,X2,Y2
///     polygon:X1,Y1,X2,Y2,X3,Y3[,...]
///
/// with whole numbers and no blanks; a name is of ASCII letters, digits, '-', '_' and '.'. On failure the result is a
/// sentence or two for a person that say what is wrong and what the right form is. It quotes parts of `text` as they
/// are: escape control characters before it goes to a terminal.
std::variant<NamedRegion, std::string> parseRegion(std::string_view text);

/// A region in that form. A mask, which has none, is "mask:WIDTHxHEIGHT".
std::string textOf(const Region& region);

}  // namespace keocam
