// The core's statuses in words.
#include "apps/keocam/core/StatusText.h"

#include <gtest/gtest.h>

#include <set>

namespace keocam::cli {
namespace {

TEST(StatusText, EveryStatus_HasItsOwnNameWordsAndAdvice) {
  std::set<std::string> names;
  std::set<std::string> words;
  for (uint32_t status = CAM_OK; status <= UNKNOWN_ERROR; ++status) {
    const auto code = static_cast<ResponseStatuses>(status);
    names.insert(nameOf(code));
    words.insert(wordsFor(code));
    EXPECT_NE(wordsFor(code).find("(" + nameOf(code) + ")"), std::string::npos) << wordsFor(code);
    EXPECT_EQ(adviceOn(code).back(), '.') << nameOf(code);
  }
  EXPECT_EQ(names.size(), 11U);
  EXPECT_EQ(words.size(), 11U);
}

TEST(StatusText, RangeError_SaysThatTheCoreRefuses) {
  EXPECT_EQ(wordsFor(CAM_RANGE_ERROR), "the core refuses the value (CAM_RANGE_ERROR)");
}

TEST(StatusText, UnnamedStatus_IsAnUnknownError) {
  EXPECT_EQ(nameOf(static_cast<ResponseStatuses>(77)), "UNKNOWN_ERROR");
}

TEST(StatusText, ExitStatus_TellsSilenceFromRefusal) {
  EXPECT_EQ(exitStatusOf(UNKNOWN_ERROR), ExitStatus::LinkLost);
  for (uint32_t status = CAM_RANGE_ERROR; status < UNKNOWN_ERROR; ++status) {
    EXPECT_EQ(exitStatusOf(static_cast<ResponseStatuses>(status)), ExitStatus::Failure) << status;
  }
}

TEST(StatusText, WhatTheCoreRefuses_IsNotRepeated) {
  for (const ResponseStatuses status : {UNKNOWN_ERROR, CAM_CHECKSUM_ERROR, CAM_TIMEOUT_ERROR, CAM_BYTE_COUNT_ERROR}) {
    EXPECT_TRUE(isWorthRepeating(status)) << nameOf(status);
  }
  for (const ResponseStatuses status : {CAM_OK, CAM_RANGE_ERROR, CAM_UNDEFINED_PROCESS_ERROR,
                                        CAM_UNDEFINED_FUNCTION_ERROR, CAM_FEATURE_NOT_ENABLED, CAM_NOT_READABLE}) {
    EXPECT_FALSE(isWorthRepeating(status)) << nameOf(status);
  }
}

TEST(StatusText, NotRead_GroupsNamesByTheirStatus) {
  const CommandFailure refused =
      notRead({{"contrast", CAM_CHECKSUM_ERROR}, {"palette", CAM_TIMEOUT_ERROR}, {"lvds-mode", CAM_CHECKSUM_ERROR}});
  EXPECT_EQ(refused.status(), ExitStatus::Failure);
  const std::string text = refused.what();
  EXPECT_NE(text.find("(CAM_CHECKSUM_ERROR): contrast, lvds-mode."), std::string::npos) << text;
  EXPECT_NE(text.find("\nNot read, because"), std::string::npos) << text;
  EXPECT_NE(text.find("(CAM_TIMEOUT_ERROR): palette."), std::string::npos) << text;
}

TEST(StatusText, NotRead_OneThatWasNotAnsweredIsALostLink) {
  EXPECT_EQ(notRead({{"contrast", CAM_CHECKSUM_ERROR}, {"palette", UNKNOWN_ERROR}}).status(), ExitStatus::LinkLost);
}

}  // namespace
}  // namespace keocam::cli
