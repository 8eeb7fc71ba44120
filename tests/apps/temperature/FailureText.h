// The failure that an action ends in.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "apps/keocam/CommandFailure.h"

namespace keocam::cli {

/// Its text; fails the test if there is none, or one of another status.
template <typename Action>
std::string failureTextOf(ExitStatus status, const Action& action) {
  try {
    action();
  } catch (const CommandFailure& failure) {
    EXPECT_EQ(failure.status(), status) << failure.what();
    return failure.what();
  }
  ADD_FAILURE() << "nothing failed";
  return "";
}

inline bool mentions(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace keocam::cli
