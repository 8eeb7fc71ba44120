// One line of progress: rewritten in place on a terminal, a line per report elsewhere.
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "apps/keocam/terminal/Terminal.h"

namespace keocam::cli {

enum class ProgressMood { Normal, Trouble };

/// Writes to `out`, which must outlive it. `look` is asked before every report, because a window changes its size. On a
/// terminal the line stays within the width, so that rewriting it never leaves rests behind; the destructor ends it.
class ProgressLine {
 public:
  ProgressLine(std::ostream& out, std::function<Terminal()> look);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// Shows `text`, a result of printable(), instead of what was shown before. Trouble is coloured where colour is
  /// wanted; the text must say it as well.
  void show(const std::string& text, ProgressMood mood);

  /// Ends the line, so that other text can follow. The next show() begins a new one.
  void finish();

 private:
  std::ostream& out_;
  std::function<Terminal()> look_;
  bool open_ = false;
};

}  // namespace keocam::cli
