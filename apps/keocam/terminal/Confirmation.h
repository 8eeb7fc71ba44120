// A question to the person at the terminal.
#pragma once

#include <string>

namespace keocam::cli {

/// Whether there is someone to ask: standard input and standard error are a terminal.
bool canAsk();

/// Shows `question` with " [y/N] " on standard error and waits for a line. True for "y" and "yes", upper or lower case;
/// false for all else, the end of the input among it.
bool confirmed(const std::string& question);

}  // namespace keocam::cli
