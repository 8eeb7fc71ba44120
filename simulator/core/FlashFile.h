// The core's flash kept in a file: its bytes and nothing else.
#pragma once

#include <string>

#include "simulator/core/FlashMemory.h"

namespace simulator {

/// Puts the file's contents into the flash. Where there is no such file, makes it from the flash's present contents, so
/// that a place that cannot be written shows at the start. Throws std::runtime_error with a text that names the file
/// and what to do.
void openFlashFile(const std::string& path, FlashMemory& flash);

/// Replaces the file as a whole. Throws std::runtime_error.
void saveFlashFile(const std::string& path, const FlashMemory& flash);

}  // namespace simulator
