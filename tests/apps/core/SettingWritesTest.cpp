// The order of writing, reading back and correcting, and what each way of failing says.
#include "apps/keocam/core/SettingWrites.h"

#include <gtest/gtest.h>

#include <map>

#include "serial/CoreSettings.h"

namespace keocam::cli {
namespace {

// A core that keeps what is written, apart from what a test takes from it, and notes what was asked.
class PretendedCore {
 public:
  std::string asked;
  std::map<std::string, ResponseStatuses> write_status;
  std::map<std::string, ResponseStatuses> read_status;
  std::map<std::string, int> stuck_at;
  ResponseStatuses correction_status = CAM_OK;

  SettingAccess access() {
    SettingAccess access;
    access.write = [this](const SettingRow& setting, int value) {
      note("write " + std::string(setting.name));
      values_[setting.name] = stuck_at.count(setting.name) != 0 ? stuck_at[setting.name] : value;
      return statusIn(write_status, setting);
    };
    access.read = [this](const SettingRow& setting) -> CoreValue<int> {
      note("read " + std::string(setting.name));
      return {statusIn(read_status, setting), values_[setting.name]};
    };
    access.correctFlatField = [this] {
      note("correct");
      return correction_status;
    };
    return access;
  }

 private:
  void note(const std::string& what) { asked += (asked.empty() ? "" : ", ") + what; }
  static ResponseStatuses statusIn(const std::map<std::string, ResponseStatuses>& statuses, const SettingRow& setting) {
    const auto found = statuses.find(setting.name);
    return found != statuses.end() ? found->second : CAM_OK;
  }

  std::map<std::string, int> values_;
};

const std::vector<Assignment> kThree = {{&settings::contrast, 40}, {&settings::palette, 3}, {&settings::ffcMode, 0}};

// The failure's text, which must be there.
std::string textOf(const SettingOutcome& outcome, ExitStatus status) {
  if (!outcome.failure) {
    ADD_FAILURE() << "nothing failed";
    return "";
  }
  EXPECT_EQ(outcome.failure->status(), status);
  return outcome.failure->what();
}

TEST(SettingWrites, EachSetting_IsWrittenAndReadBackBeforeTheNext) {
  PretendedCore core;
  const SettingOutcome outcome = writeSettings(kThree, core.access());
  EXPECT_FALSE(outcome.failure);
  EXPECT_EQ(core.asked, "write contrast, read contrast, write palette, read palette, write ffc-mode, read ffc-mode");
  ASSERT_EQ(outcome.done.size(), 3U);
  EXPECT_EQ(outcome.done[1].setting, &settings::palette);
  EXPECT_EQ(outcome.done[1].value.value, 3);
}

TEST(SettingWrites, RefusedValue_EndsTheWorkAndNamesWhatWasNotSent) {
  PretendedCore core;
  core.write_status["palette"] = CAM_RANGE_ERROR;
  const SettingOutcome outcome = writeSettings(kThree, core.access());
  EXPECT_EQ(core.asked, "write contrast, read contrast, write palette");
  EXPECT_EQ(outcome.done.size(), 1U);
  const std::string text = textOf(outcome, ExitStatus::Failure);
  EXPECT_EQ(text.rfind("palette=rainbow was not set: the core refuses the value (CAM_RANGE_ERROR).", 0), 0U) << text;
  EXPECT_NE(text.find("Not sent any more: ffc-mode=manual."), std::string::npos) << text;
}

TEST(SettingWrites, OtherValueReadBack_IsAFailureThatNamesBoth) {
  PretendedCore core;
  core.stuck_at["contrast"] = 7;
  const SettingOutcome outcome = writeSettings(kThree, core.access());
  EXPECT_EQ(core.asked, "write contrast, read contrast");
  ASSERT_EQ(outcome.done.size(), 1U);
  EXPECT_EQ(outcome.done[0].value.value, 7);
  const std::string text = textOf(outcome, ExitStatus::Failure);
  EXPECT_NE(text.find("contrast=40 was sent"), std::string::npos) << text;
  EXPECT_NE(text.find("now says 7."), std::string::npos) << text;
  EXPECT_NE(text.find("Not sent any more: palette=rainbow, ffc-mode=manual."), std::string::npos) << text;
}

TEST(SettingWrites, NoAnswer_IsStatus5) {
  PretendedCore core;
  core.write_status["ffc-mode"] = UNKNOWN_ERROR;
  const std::string text = textOf(writeSettings(kThree, core.access()), ExitStatus::LinkLost);
  EXPECT_EQ(text.find("Not sent"), std::string::npos) << text;
}

TEST(SettingWrites, FailedReadingBack_SaysThatTheValueWasSent) {
  PretendedCore core;
  core.read_status["ffc-mode"] = CAM_CHECKSUM_ERROR;
  const std::string text = textOf(writeSettings(kThree, core.access()), ExitStatus::Failure);
  EXPECT_NE(text.find("ffc-mode=manual was sent, but could not be read back"), std::string::npos) << text;
  EXPECT_NE(text.find("CAM_CHECKSUM_ERROR"), std::string::npos) << text;
}

TEST(SettingWrites, VideoStandard_IsFollowedByACorrection) {
  PretendedCore core;
  EXPECT_FALSE(writeSettings({{&settings::videoStandard, 1}, {&settings::contrast, 1}}, core.access()).failure);
  EXPECT_EQ(core.asked, "write video-standard, read video-standard, correct, write contrast, read contrast");
}

TEST(SettingWrites, VideoStandardNotReadBack_IsCorrectedAllTheSame) {
  PretendedCore core;
  core.read_status["video-standard"] = UNKNOWN_ERROR;
  textOf(writeSettings({{&settings::videoStandard, 1}}, core.access()), ExitStatus::LinkLost);
  EXPECT_EQ(core.asked, "write video-standard, read video-standard, correct");
}

TEST(SettingWrites, RefusedVideoStandard_IsNotFollowedByACorrection) {
  PretendedCore core;
  core.write_status["video-standard"] = CAM_RANGE_ERROR;
  textOf(writeSettings({{&settings::videoStandard, 1}}, core.access()), ExitStatus::Failure);
  EXPECT_EQ(core.asked, "write video-standard");
}

TEST(SettingWrites, FailedCorrection_IsAFailureAlthoughTheStandardIsSet) {
  PretendedCore core;
  core.correction_status = CAM_FEATURE_NOT_ENABLED;
  const SettingOutcome outcome = writeSettings({{&settings::videoStandard, 1}}, core.access());
  EXPECT_EQ(outcome.done.size(), 1U);
  const std::string text = textOf(outcome, ExitStatus::Failure);
  EXPECT_NE(text.find("flat-field correction"), std::string::npos) << text;
}

TEST(SettingWrites, AccessThatThrows_EndsTheWork) {
  PretendedCore core;
  SettingAccess access = core.access();
  access.read = [](const SettingRow& /*setting*/) -> CoreValue<int> {
    throw CommandFailure(ExitStatus::LinkLost, "gone");
  };
  EXPECT_THROW(writeSettings(kThree, access), CommandFailure);
  EXPECT_EQ(core.asked, "write contrast");
}

}  // namespace
}  // namespace keocam::cli
