// The manifest of a calibration entry.
#include "calibration/CalibrationManifest.h"

#include <gtest/gtest.h>

namespace {

using keocam::CalibrationManifest;
using keocam::parseCalibrationManifest;

std::string problemOf(const std::string& text) {
  std::string problem;
  parseCalibrationManifest(text, problem);
  return problem;
}

TEST(CalibrationManifest, Parse_BothKeys_InAnyOrderAndSpacing) {
  std::string problem = "old";
  for (const char* const text :
       {"version = 03\nsize = 31457280\n", "size=31457280\nversion=03",
        "# a comment\r\n\r\n  version\t=  03  \r\n size =31457280\r\n", "version = 03\nsize = 31457280\nmaker = x\n"}) {
    const CalibrationManifest manifest = parseCalibrationManifest(text, problem);
    EXPECT_EQ(problem, "") << text;
    EXPECT_EQ(manifest.version, "03") << text;
    EXPECT_EQ(manifest.size_bytes, 31457280u) << text;
  }
}

TEST(CalibrationManifest, Parse_MissingKey_NamesIt) {
  EXPECT_EQ(problemOf(""), "gives no version");
  EXPECT_EQ(problemOf("size = 1\n"), "gives no version");
  EXPECT_EQ(problemOf("version =\nsize = 1\n"), "gives no version");
  EXPECT_EQ(problemOf("version = 03\n"), "gives no size");
}

TEST(CalibrationManifest, Parse_SizeThatIsNoNumber_SaysSo) {
  for (const char* const size : {"", "-1", "12x", "0x10", "1 2", "99999999999999999999999"}) {
    EXPECT_EQ(problemOf(std::string("version = 03\nsize = ") + size + "\n"),
              "gives a size that is not a number of bytes")
        << size;
  }
}

TEST(CalibrationManifest, Parse_LineWithoutEquals_SaysSo) {
  EXPECT_EQ(problemOf("version 03\n"), "has a line without '='");
  EXPECT_EQ(problemOf(std::string("\0\0\0", 3)), "has a line without '='");
}

}  // namespace
