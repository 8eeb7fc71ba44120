// When a core that was reset counts as back.
#include "apps/keocam/core/ResetWatch.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

using State = ResetWatch::State;

TEST(ResetWatch, AnswerAfterSilence_IsBack) {
  ResetWatch watch;
  EXPECT_EQ(watch.note(false, 500), State::Waiting);
  EXPECT_EQ(watch.note(false, 1000), State::Waiting);
  EXPECT_EQ(watch.note(true, 1100), State::Back);
}

TEST(ResetWatch, AnswersBeforeTheSilence_DoNotCount) {
  ResetWatch watch;
  EXPECT_EQ(watch.note(true, 10), State::Waiting);
  EXPECT_EQ(watch.note(true, 120), State::Waiting);
  EXPECT_EQ(watch.note(false, 700), State::Waiting);
  EXPECT_EQ(watch.note(true, 1500), State::Back);
}

TEST(ResetWatch, SilenceTooShortToBeSeen_EndsTheWaitToo) {
  ResetWatch watch;
  EXPECT_EQ(watch.note(true, ResetWatch::kGoingDown_ms - 1), State::Waiting);
  EXPECT_EQ(watch.note(true, ResetWatch::kGoingDown_ms), State::Back);
}

TEST(ResetWatch, SilenceForGood_IsGivenUp) {
  ResetWatch watch;
  EXPECT_EQ(watch.note(false, ResetWatch::kLongest_ms - 1), State::Waiting);
  EXPECT_EQ(watch.note(false, ResetWatch::kLongest_ms), State::GivenUp);
}

TEST(ResetWatch, LastAnswer_CountsHoweverLate) {
  ResetWatch watch;
  EXPECT_EQ(watch.note(true, ResetWatch::kLongest_ms + 500), State::Back);
}

}  // namespace
}  // namespace keocam::cli
