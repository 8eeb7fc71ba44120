// Lines on a terminal that are rewritten in place.
#pragma once

#include <cstddef>
#include <string>

namespace keocam::cli {

class LiveText {
 public:
  /// What to write so that `text`, whole lines that fit the terminal's width, takes the place of the text before it.
  std::string instead(const std::string& text);

 private:
  std::size_t lines_ = 0;
};

}  // namespace keocam::cli
