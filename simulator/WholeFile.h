// Files that are read and written as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace simulator {

/// Empty where there is no such file. Throws std::runtime_error, with a text that names the file, for one that is no
/// regular file, has more than `most_bytes` or cannot be read.
std::optional<std::string> readWholeFile(const std::string& path, std::size_t most_bytes);

/// Puts a file in place: whatever happens, there is either what was there before or the new one. Throws
/// std::runtime_error with a text that names the file.
void writeWholeFile(const std::string& path, const void* data, std::size_t size);

}  // namespace simulator
