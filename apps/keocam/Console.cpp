#include "apps/keocam/Console.h"

#include <iostream>

namespace keocam::cli {
namespace {

// One write for the whole line, so that lines of two programs on one terminal do not mix.
void print(const char* kind, const std::string& text) { std::cerr << std::string("keocam: ") + kind + text + '\n'; }

}  // namespace

void Console::detail(const std::string& text) const {
  if (verbosity_ == Verbosity::Verbose) print("", text);
}

void Console::note(const std::string& text) const {
  if (verbosity_ != Verbosity::Quiet) print("", text);
}

void Console::warning(const std::string& text) const {
  if (verbosity_ != Verbosity::Quiet) print("warning: ", text);
}

void Console::error(const std::string& text) const { print("error: ", text); }

}  // namespace keocam::cli
