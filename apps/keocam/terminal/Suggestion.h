// "Did you mean ...?"
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace keocam::cli {

/// The candidate that `text` was probably meant to be, upper and lower case taken as equal; empty if none is near. Of
/// equally near ones the first.
std::string nearest(std::string_view text, const std::vector<std::string>& candidates);

/// `; did you mean "candidate"?` with the result of nearest(), or nothing.
std::string didYouMean(std::string_view text, const std::vector<std::string>& candidates);

}  // namespace keocam::cli
