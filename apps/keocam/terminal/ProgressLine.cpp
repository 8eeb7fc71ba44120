#include "apps/keocam/terminal/ProgressLine.h"

#include <utility>

#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

constexpr const char* kEraseToEnd = "\x1b[K";
constexpr const char* kYellow = "\x1b[33m";
constexpr const char* kPlain = "\x1b[0m";

std::string coloured(const std::string& text) { return kYellow + text + kPlain; }

}  // namespace

ProgressLine::ProgressLine(std::ostream& out, std::function<Terminal()> look) : out_(out), look_(std::move(look)) {}

ProgressLine::~ProgressLine() { finish(); }

void ProgressLine::show(const std::string& text, ProgressMood mood) {
  const Terminal terminal = look_();
  if (!terminal.interactive) {
    out_ << text << '\n' << std::flush;
    return;
  }
  // The last column stays free: a character there makes some terminals go to the next line.
  const std::string line = fitted(text, terminal.columns - 1);
  const bool highlighted = mood == ProgressMood::Trouble && terminal.colour;
  out_ << '\r' << (highlighted ? coloured(line) : line) << kEraseToEnd << std::flush;
  open_ = true;
}

void ProgressLine::finish() {
  if (open_) out_ << '\n' << std::flush;
  open_ = false;
}

}  // namespace keocam::cli
