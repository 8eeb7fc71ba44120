// keocam calibration: made, shown, checked, spoilt and checked again.
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "../KeocamRun.h"
#include "../TemporaryFolder.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

// A calibration of two lenses for KEOD2001.
class KeocamCalibration : public testing::Test {
 protected:
  KeocamCalibration() {
    const Ended made = keocam({"calibration", "make", "--folder", folder_.path().string(), "--serial", "KEOD2001",
                               "--lenses", "2", "--with-1500", "1", "--sensor", "160x128"});
    EXPECT_EQ(made.status, 0) << made.error;
    EXPECT_TRUE(contains(made.output, "KEOD2001")) << made.output;
  }

  std::string text() const { return (folder_.path() / "KEOD2001" / "calibration.txt").string(); }

  const TemporaryFolder folder_;
};

TEST_F(KeocamCalibration, WhatWasMade_IsShownAndFaultless) {
  const Ended show = keocam({"calibration", "show", text()});
  EXPECT_EQ(show.status, 0) << show.error;
  EXPECT_EQ(show.error, "");
  EXPECT_TRUE(contains(show.output, "Camera   KEOD2001\nVersion  03\n")) << show.output;
  EXPECT_TRUE(contains(show.output, "L25mm  2026-03-02  low, middle, high  81920  ")) << show.output;
  const Ended check = keocam({"calibration", "check", text()});
  EXPECT_EQ(check.status, 0) << check.output;
  EXPECT_EQ(check.output, text() + ": nothing is wrong.\n");
  EXPECT_EQ(json::parse(keocam({"calibration", "check", "--json", text()}).output)["ok"], true);
}

TEST_F(KeocamCalibration, Checksum_IsThatOfOtherTools) {
  const json object = json::parse(keocam({"calibration", "show", "--json", text()}).output);
  ChildProcess gzip({"sh", "-c", "gzip -c \"$0\" | tail -c 8 | od -An -N4 -tx4 --endian=little", text()});
  EXPECT_TRUE(contains(ended(gzip).output, object["crc32"])) << object;
  EXPECT_EQ(object["size_bytes"], std::filesystem::file_size(text()));
  EXPECT_EQ(object["manifest_size_bytes"], object["size_bytes"]);
}

TEST_F(KeocamCalibration, CutText_IsStatus1WithItsPlaces) {
  std::filesystem::resize_file(text(), 100'000);
  const Ended check = keocam({"calibration", "check", text()});
  EXPECT_EQ(check.status, 1);
  EXPECT_TRUE(contains(check.output, "wrong: The manifest says that the text has ")) << check.output;
  EXPECT_TRUE(contains(check.output, "wrong: byte 100000: Lens 1 (\"L25mm\"): The table \"SffcLowRange:\" has no"))
      << check.output;
  EXPECT_TRUE(contains(check.error, "the first is 0")) << check.error;
}

TEST_F(KeocamCalibration, TextThatCannotBeReadToItsEnd_IsShownAsFarAsItGoes) {
  std::fstream file(text(), std::ios::in | std::ios::out);
  const std::string contents((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  file.seekp(static_cast<std::streamoff>(contents.rfind("BB:") + 3));
  file << 'x';
  file.close();
  const Ended show = keocam({"calibration", "show", text()});
  EXPECT_EQ(show.status, 1);
  EXPECT_TRUE(contains(show.output, "L25mm")) << show.output;
  EXPECT_FALSE(contains(show.output, "L13mm")) << show.output;
  EXPECT_TRUE(contains(show.error, "keocam calibration check ")) << show.error;
}

TEST_F(KeocamCalibration, VersionAndSerialNumber_CanBeGiven) {
  const Ended first = keocam({"calibration", "show", text(), "--version", "01"});
  EXPECT_EQ(first.status, 0) << first.error;
  EXPECT_TRUE(contains(first.output, "Version  01\n")) << first.output;
  EXPECT_EQ(keocam({"calibration", "show", text(), "--version", "x"}).status, 1);
  const Ended serial = keocam({"calibration", "check", text(), "--serial", "KEO"});
  EXPECT_EQ(serial.status, 1);
  EXPECT_TRUE(contains(serial.output, "The serial number \"KEO\" must have")) << serial.output;
}

TEST_F(KeocamCalibration, WrongUse_IsToldByTheProgramThatWasMeant) {
  EXPECT_EQ(keocam({"calibration", "make"}).status, 2);
  const Ended help = keocam({"calibration", "make", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(contains(help.output, "--folder")) << help.output;
  const Ended missing = keocam({"calibration", "show", text() + ".none"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_TRUE(contains(missing.error, "cannot be opened: No such file")) << missing.error;
}

}  // namespace
}  // namespace keocam::cli
