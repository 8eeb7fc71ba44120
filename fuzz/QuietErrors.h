// Standard error, silenced: the library tells of each bad reply there, and a fuzzer makes thousands a second.
#pragma once

#include <iostream>

namespace fuzz {

/// While it lives, what is printed to std::cerr is dropped unformatted.
class QuietErrors {
 public:
  QuietErrors() : previous_(std::cerr.rdbuf(nullptr)) {}
  ~QuietErrors() { std::cerr.rdbuf(previous_); }
  QuietErrors(const QuietErrors&) = delete;
  QuietErrors& operator=(const QuietErrors&) = delete;

 private:
  std::streambuf* previous_;
};

}  // namespace fuzz
