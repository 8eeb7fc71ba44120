// A camera's sections as a table and as JSON.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/keocam/info/InfoSection.h"

namespace keocam::cli {

/// Each section under its title, within `width` columns; long values go on in further lines.
std::string infoText(const std::vector<InfoSection>& sections, std::size_t width);

/// An object with an object per section, of the same keys whatever the camera's state. What is not known is null; why
/// it could not be read stands in "errors", under "section.key", which is left out where nothing went wrong.
std::string infoJson(const std::vector<InfoSection>& sections);

}  // namespace keocam::cli
