// A stream's totals as text and as JSON.
#include "apps/keocam/StreamReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace keocam::cli {
namespace {

DeviceDetails camera() {
  DeviceDetails details;
  details.serial_number = "KEOD2001";
  details.model = "KEOsim-640";
  details.address = "192.0.2.11";
  return details;
}

StreamResult hundredFrames() {
  StreamResult result;
  result.end = StreamEnd::FramesReached;
  result.total.frames = 100;
  result.total.frames_lost = 25;
  result.total.frames_per_second = 25.0004;
  result.total.raw = {4, 29000, 7000, 7500};
  result.missing_block_ids = 25;
  result.duration_s = 4.0125;
  result.network.packets_received = 8300;
  result.network.packets_resent = 7;
  result.network.packets_missing = 3;
  result.packet_size_bytes = 8000;
  result.last_frame = {100, 0, 0, 0x01100025, 640, 512, 655360};
  return result;
}

TEST(StreamReport, Progress_IsOneLineWithin80Columns) {
  StreamPeriod second;
  second.frames = 60;
  second.frames_lost = 1;
  second.frames_per_second = 59.94;
  second.raw = {1, 16383, 10000, 16383};
  StreamPeriod all = second;
  all.frames_lost = 3;
  EXPECT_EQ(progressText(second, all),
            "59.9 frames/s, lost 1 (3 in all), raw min 10000, mean 16383.0, max 16383 counts");
  EXPECT_LE(progressText(second, all).size(), 79U);
  EXPECT_EQ(progressText({}, all), "- frames/s, lost 0 (3 in all), raw -");
}

TEST(StreamReport, Text_IsAligned) {
  EXPECT_EQ(streamText(camera(), hundredFrames()),
            "Camera          KEOD2001 at 192.0.2.11\n"
            "Frames          100 in 4.01 s\n"
            "Rate            25.0 frames/s\n"
            "Lost            25 of 125 frames (20.00 %)\n"
            "Packets         8300 received, 7 resent, 3 missing\n"
            "Packet size     8000 bytes\n"
            "Image           640 x 512, Mono14\n"
            "Raw             min 7000, mean 7250.0, max 7500 counts\n");
}

TEST(StreamReport, Json_HoldsTheFigures) {
  const auto json = nlohmann::json::parse(streamJson(camera(), hundredFrames()));
  EXPECT_EQ(json["serial_number"], "KEOD2001");
  EXPECT_EQ(json["ended_by"], "frames");
  EXPECT_EQ(json["frames"], 100);
  EXPECT_EQ(json["duration_s"], 4.013);
  EXPECT_EQ(json["frames_per_second"], 25.0);
  EXPECT_EQ(json["frames_lost"], 25);
  EXPECT_EQ(json["packets_resent"], 7);
  EXPECT_EQ(json["packet_size_bytes"], 8000);
  EXPECT_EQ(json["width"], 640);
  EXPECT_EQ(json["height"], 512);
  EXPECT_EQ(json["pixel_format"], "Mono14");
  EXPECT_EQ(json["raw_min"], 7000);
  EXPECT_EQ(json["raw_mean"], 7250.0);
  EXPECT_EQ(json["raw_max"], 7500);
}

TEST(StreamReport, Json_WithoutFrames_HasNullsForWhatIsNotKnown) {
  const auto json = nlohmann::json::parse(streamJson(camera(), {}));
  EXPECT_EQ(json["frames"], 0);
  EXPECT_EQ(json["frames_lost"], 0);
  for (const char* const key :
       {"frames_per_second", "width", "height", "pixel_format", "raw_min", "raw_mean", "raw_max"}) {
    EXPECT_TRUE(json.at(key).is_null()) << key;
  }
}

TEST(StreamReport, Text_WithoutFrames_HasDashes) {
  const std::string text = streamText(camera(), {});
  EXPECT_NE(text.find("Rate            - frames/s\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Image           -\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Raw             -\n"), std::string::npos) << text;
}

TEST(StreamReport, LimitOfTheSlowClass_IsToldWhereItMatters) {
  DeviceDetails slow = camera();
  slow.serial_number = "KEOC2001";
  StreamPeriod total = hundredFrames().total;
  const std::string text = libraryLimitText(slow, total);
  EXPECT_NE(text.find("KEOC2001 at 192.0.2.11 is of the slow class"), std::string::npos) << text;
  EXPECT_NE(text.find("at most 10 frames a second"), std::string::npos) << text;
  EXPECT_EQ(libraryLimitText(camera(), total), "");
  total.frames_per_second = 9.0;
  EXPECT_EQ(libraryLimitText(slow, total), "");
  total.frames_per_second.reset();
  EXPECT_EQ(libraryLimitText(slow, total), "");
}

TEST(StreamReport, Failure_TellsSilenceFromLossAndFromBrokenFrames) {
  StreamResult result;
  result.end = StreamEnd::NoFrames;
  EXPECT_NE(failureText(camera(), result, 5.0).find("firewall"), std::string::npos);
  result.network.packets_received = 10;
  EXPECT_NE(failureText(camera(), result, 5.0).find("10 packets"), std::string::npos);
  result.end = StreamEnd::CameraLost;
  EXPECT_NE(failureText(camera(), result, 5.0).find("lost"), std::string::npos);
}

}  // namespace
}  // namespace keocam::cli
