// How options stand in the help. For .cpp files only.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace keocam::cli {

/// Option and argument alone: which others an option needs or excludes, and which variable serves in its place, its
/// explanation tells where it matters.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_option_opts(const CLI::Option* option) const override;
};

}  // namespace keocam::cli
