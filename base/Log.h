// Lines on standard output and standard error.
#pragma once

#include <iostream>
#include <string>

namespace keocam {

/// Prints `text` and a newline in one piece, so that lines of cameras on different threads do not mix, and flushes.
inline void printLine(const std::string& text) { std::cout << text + '\n' << std::flush; }

/// The same on standard error.
inline void printErrorLine(const std::string& text) { std::cerr << text + '\n' << std::flush; }

}  // namespace keocam
