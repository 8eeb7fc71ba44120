// Verbs in two words, such as "core info": which ones there are, and what is said of wrong ones.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace keocam::cli {

/// The verb at the beginning of a command line, before any option of its own is understood.
struct VerbWords {
  std::string first;        ///< the first plain word; empty if there is none, or if it is empty
  bool any = false;         ///< there is a first word
  std::string group;        ///< the same, if other verbs stand behind it
  std::string member;       ///< the plain word behind the group; empty if there is none
  bool has_member = false;  ///< there is one
  bool adjacent = false;    ///< it stands directly behind the group
  std::size_t end = 0;      ///< index behind the last of these words
};

VerbWords verbWordsIn(const std::vector<std::string>& arguments);

/// What is wrong with the words, as a sentence that is fit for a terminal; empty if nothing is. `names` are the verbs
/// that can stand first. A word that is missing is not told here.
std::string complaintAbout(const VerbWords& words, const std::vector<std::string>& names);

/// What is missing, as a sentence; empty if no verb is.
std::string missingVerbText(const VerbWords& words);

}  // namespace keocam::cli
