// How options stand in the help: within 79 columns. For .cpp files only.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace simulator {

/// Option and argument alone, without which others an option needs or excludes; a long explanation goes on in further
/// lines.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_option_opts(const CLI::Option* option) const override;
  std::string make_option_desc(const CLI::Option* option) const override;
};

}  // namespace simulator
