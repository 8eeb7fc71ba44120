#include "apps/keocam/terminal/Confirmation.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace keocam::cli {

bool canAsk() { return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0; }

bool confirmed(const std::string& question) {
  std::cerr << question << " [y/N] " << std::flush;
  std::string answer;
  if (!std::getline(std::cin, answer)) {
    std::cerr << '\n';
    return false;
  }
  std::transform(answer.begin(), answer.end(), answer.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return answer == "y" || answer == "yes";
}

}  // namespace keocam::cli
