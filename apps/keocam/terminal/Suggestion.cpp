#include "apps/keocam/terminal/Suggestion.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Levenshtein distance: the insertions, deletions and replacements that turn one text into the other.
std::size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= from.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = diagonal + (lower(from[i - 1]) == lower(to[j - 1]) ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row.back();
}

}  // namespace

std::string nearest(std::string_view text, const std::vector<std::string>& candidates) {
  // A third of the characters wrong is a slip; more is another word.
  std::size_t least = std::max<std::size_t>(1, text.size() / 3) + 1;
  std::string best;
  for (const std::string& candidate : candidates) {
    const std::size_t distance = editDistance(text, candidate);
    if (distance < least) {
      least = distance;
      best = candidate;
    }
  }
  return best;
}

std::string didYouMean(std::string_view text, const std::vector<std::string>& candidates) {
  const std::string candidate = nearest(text, candidates);
  return candidate.empty() ? std::string() : "; did you mean " + inQuotes(candidate) + "?";
}

}  // namespace keocam::cli
