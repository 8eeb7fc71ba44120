// What the command line makes of arguments: the options of a verb, or a refusal.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

#include "apps/keocam/CommandLine.h"

namespace keocam::cli {

using Arguments = std::vector<std::string>;

/// The options of the verb that these arguments are to mean; fails the test if they mean something else.
template <typename Options>
Options optionsOf(const Arguments& arguments) {
  const auto parsed = parseCommandLine(arguments);
  if (const auto* const answer = std::get_if<Answer>(&parsed)) {
    ADD_FAILURE() << answer->text;
    return {};
  }
  const auto* const options = std::get_if<Options>(&std::get<Invocation>(parsed).command);
  if (options != nullptr) return *options;
  ADD_FAILURE() << "another verb was understood";
  return {};
}

/// What is said of arguments that are to be refused; fails the test if they are not.
inline std::string refusalOf(const Arguments& arguments) {
  const auto parsed = parseCommandLine(arguments);
  const auto* const answer = std::get_if<Answer>(&parsed);
  if (answer == nullptr) {
    ADD_FAILURE() << "there is something to run";
    return "";
  }
  EXPECT_EQ(answer->status, ExitStatus::Usage);
  return answer->text;
}

}  // namespace keocam::cli
