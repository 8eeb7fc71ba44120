#include "apps/keocam/terminal/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace keocam::cli {
namespace {

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool isDumb() {
  const char* const term = std::getenv("TERM");
  return term == nullptr || std::string_view(term) == "dumb";
}

}  // namespace

Terminal terminalOn(int fd) {
  Terminal terminal;
  if (isatty(fd) == 0) return terminal;
  terminal.interactive = !isDumb();
  terminal.colour = terminal.interactive && !isSet("NO_COLOR");
  winsize size{};
  if (ioctl(fd, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) terminal.columns = size.ws_col;
  return terminal;
}

}  // namespace keocam::cli
