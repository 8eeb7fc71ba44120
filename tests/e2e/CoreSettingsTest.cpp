// Every setting of the thermal core, written and read through the bridged serial port while frames stream.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "serial/CoreSettings.h"
#include "tests/e2e/CoreCamera.h"
#include "tests/e2e/SettingMembers.h"

namespace {

using e2e::SettingCase;
using e2e::SettingMembers;
using keocam::SettingRow;

void expectHeld(e2e::CoreCamera& camera, const SettingMembers& members, const SettingCase& wanted) {
  EXPECT_EQ(e2e::bitsOf(camera.simulatedCore(), members.place), wanted.bits) << "the core holds something else";
  EXPECT_EQ(members.get(camera.core()), members.seen != nullptr ? members.seen(wanted.value) : wanted.value);
  const keocam::CoreValue<int> read = readSetting(camera.core(), members.setting);
  EXPECT_EQ(read.status, CAM_OK);
  EXPECT_EQ(read.value, wanted.value);
}

TEST(CoreSettings, Members_AreAllThere) {
  std::size_t next = 0;
  for (const SettingRow* const setting : keocam::allSettings()) {
    ASSERT_LT(next, e2e::settingMembers().size());
    const SettingMembers& members = e2e::settingMembers()[next++];
    EXPECT_STREQ(members.setting.name, setting->name);
    // All choices that the core has, and both ends of numbers but those that the core bounds more narrowly.
    for (const keocam::SettingChoice& choice : setting->choices) {
      const bool there = std::any_of(members.cases.begin(), members.cases.end(),
                                     [&](const SettingCase& one) { return one.value == choice.value; });
      EXPECT_EQ(there, choice.wire != keocam::kNotOnTheWire) << setting->name << " " << choice.name;
    }
  }
  EXPECT_EQ(next, e2e::settingMembers().size());
}

TEST(CoreSettings, EverySetterWhileStreaming_IsReadBackAndNoFrameIsLost) {
  e2e::CoreCamera camera;
  e2e::BackgroundFrames frames(camera);
  std::size_t exchanges = 0;
  for (const SettingMembers& members : e2e::settingMembers()) {
    for (const SettingCase& wanted : members.cases) {
      SCOPED_TRACE(members.setting.name + (" = " + std::to_string(wanted.value)));
      members.set(camera.core(), wanted.value);
      expectHeld(camera, members, wanted);
      exchanges += 3;
    }
  }
  EXPECT_TRUE(frames.finish(50));
  EXPECT_TRUE(camera.coreGotSoundFramesOnly(exchanges));
}

TEST(CoreSettings, EveryWriteSettingWhileStreaming_IsReadBackAndNoFrameIsLost) {
  e2e::CoreCamera camera;
  e2e::BackgroundFrames frames(camera);
  std::size_t exchanges = 0;
  for (const SettingMembers& members : e2e::settingMembers()) {
    for (const SettingCase& wanted : members.cases) {
      SCOPED_TRACE(members.setting.name + (" = " + std::to_string(wanted.value)));
      EXPECT_EQ(writeSetting(camera.core(), members.setting, wanted.value), CAM_OK);
      expectHeld(camera, members, wanted);
      exchanges += 3;
    }
  }
  EXPECT_TRUE(frames.finish(50));
  EXPECT_TRUE(camera.coreGotSoundFramesOnly(exchanges));
}

TEST(CoreSettings, OneOfEachAt57600Baud_IsReadBackAndNoFrameIsLost) {
  e2e::CoreCameraOptions options;
  options.pacing = true;
  e2e::CoreCamera camera(options);
  e2e::BackgroundFrames frames(camera);
  for (const SettingMembers& members : e2e::settingMembers()) {
    SCOPED_TRACE(members.setting.name);
    members.set(camera.core(), members.cases.front().value);
    expectHeld(camera, members, members.cases.front());
  }
  EXPECT_TRUE(frames.finish(20));
  EXPECT_TRUE(camera.coreGotSoundFramesOnly(3 * e2e::settingMembers().size()));
}

TEST(CoreSettings, NeighboursInOneValue_KeepTheirs) {
  e2e::CoreCamera camera;
  CameraSerialSettings& core = camera.core();
  core.SetInvertVideo(true);
  core.SetRevertVideo(true);
  core.SetInvertVideo(false);
  EXPECT_FALSE(core.GetInvertVideo());
  EXPECT_TRUE(core.GetRevertVideo());

  core.SetIsothermThresholdUnit(ThresholdUnits::Percent);
  EXPECT_EQ(core.SetIsothermThresholdLower(-5), CAM_OK);
  EXPECT_EQ(core.SetIsothermThresholdMiddle(-300), CAM_OK);
  EXPECT_EQ(core.SetIsothermThresholdUpper(300), CAM_OK);
  core.SetIsothermThresholdUnit(ThresholdUnits::Celsius);
  EXPECT_EQ(core.GetIsothermThresholdLower(), -5);
  EXPECT_EQ(core.GetIsothermThresholdMiddle(), -300);
  EXPECT_EQ(core.GetIsothermThresholdUpper(), 300);
  EXPECT_EQ(writeSetting(core, keocam::settings::isothermUnit, ThresholdUnits::Percent), CAM_OK);
  EXPECT_EQ(core.GetIsothermThresholdLower(), -5);
  EXPECT_EQ(core.GetIsothermThresholdMiddle(), -300);
  EXPECT_EQ(core.GetIsothermThresholdUpper(), 300);
}

TEST(CoreSettings, OutOfTheCoresBounds_IsRefusedAndChangesNothing) {
  e2e::CoreCamera camera;
  CameraSerialSettings& core = camera.core();
  ASSERT_EQ(core.SetDDEGain(17), CAM_OK);
  EXPECT_EQ(core.SetDDEGain(256), CAM_RANGE_ERROR) << "the core's refusal: the library does not check it";
  EXPECT_EQ(core.GetDDEGain(), 17);
  const std::size_t asked = camera.simulatedCore().log().size();
  EXPECT_EQ(core.SetContrast(256), CAM_RANGE_ERROR);
  EXPECT_EQ(camera.simulatedCore().log().size(), asked) << "the library's refusal sends nothing";
}

}  // namespace
