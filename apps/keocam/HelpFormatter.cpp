#include "apps/keocam/HelpFormatter.h"

namespace keocam::cli {

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
  if (!option->get_option_text().empty()) return ' ' + option->get_option_text();
  if (option->get_type_size() == 0) return {};
  const std::string type = option->get_type_name().empty() ? "" : ' ' + option->get_type_name();
  const bool many = option->get_expected_max() == CLI::detail::expected_max_vector_size;
  return type + (many ? " ..." : "") + (option->get_required() ? " REQUIRED" : "");
}

}  // namespace keocam::cli
