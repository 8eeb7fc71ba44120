// Messages to the person at the terminal: on standard error, a line each.
#pragma once

#include <string>

namespace keocam::cli {

enum class Verbosity { Quiet, Normal, Verbose };

/// Every text is fit for a terminal already: quote what came from elsewhere with printable().
class Console {
 public:
  explicit Console(Verbosity verbosity) : verbosity_(verbosity) {}

  Verbosity verbosity() const { return verbosity_; }

  void detail(const std::string& text) const;   ///< only with --verbose
  void note(const std::string& text) const;     ///< not with --quiet
  void warning(const std::string& text) const;  ///< not with --quiet
  void error(const std::string& text) const;    ///< always

 private:
  Verbosity verbosity_;
};

}  // namespace keocam::cli
