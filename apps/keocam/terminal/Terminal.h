// What stands behind a file descriptor: a terminal or not, and what it can show.
#pragma once

#include <cstddef>

namespace keocam::cli {

struct Terminal {
  bool interactive = false;  ///< a terminal that understands control sequences
  bool colour = false;       ///< interactive, and the user has not set NO_COLOR
  std::size_t columns = 80;
};

/// Asks the system about `fd`. The width is the terminal's present one.
Terminal terminalOn(int fd);

}  // namespace keocam::cli
