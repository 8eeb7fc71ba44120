#include "simulator/HelpFormatter.h"

#include <sstream>

namespace simulator {
namespace {

constexpr std::size_t kColumns = 79;

}  // namespace

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
  const std::string& text = option->get_option_text();
  return text.empty() ? text : ' ' + text;
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
  const std::size_t columns = kColumns - get_column_width();
  std::string text;
  std::size_t taken = 0;
  std::istringstream words(option->get_description());
  for (std::string word; words >> word;) {
    const bool fits = taken + 1 + word.size() <= columns;
    if (!text.empty()) text += fits ? ' ' : '\n';
    taken = fits && !text.empty() ? taken + 1 + word.size() : word.size();
    text += word;
  }
  return text;
}

}  // namespace simulator
