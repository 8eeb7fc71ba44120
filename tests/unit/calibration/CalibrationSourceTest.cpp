// The folder of calibrations: complete entries are read, everything else is named and does no harm.
#include "calibration/CalibrationSource.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "camera/CameraCenter.h"
#include "tests/unit/ScriptedTest.h"

namespace {

using keocam::CalibrationEntry;
using keocam::CalibrationSource;
using keocam::canNameCalibrationEntry;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class CalibrationSourceTest : public ScriptedTest {
 protected:
  CalibrationSourceTest() {
    std::string pattern = (fs::temp_directory_path() / "keocam-calibrations-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = pattern;
  }
  ~CalibrationSourceTest() override { fs::remove_all(folder_); }

  void write(const std::string& relative_path, const std::string& contents) const {
    const fs::path path = folder_ / relative_path;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << contents;
  }

  void writeEntry(const std::string& serial, const std::string& text, const std::string& version) const {
    write(serial + "/calibration.txt", text);
    write(serial + "/manifest.txt", "version = " + version + "\nsize = " + std::to_string(text.size()) + "\n");
  }

  /// Looks up and expects the defaults and one line that gives this reason.
  void expectNone(const std::string& serial, const std::string& reason) const {
    const CalibrationEntry entry = CalibrationSource(folder_).lookUp(serial);
    EXPECT_EQ(entry.text, "");
    EXPECT_EQ(entry.version, "00");
    EXPECT_EQ(entry.serial_number, serial);
    EXPECT_THAT(takePrinted(), ElementsAre("err: CalibrationSource: No calibration for serial number \"" + serial +
                                           "\": " + reason + ".\\n"));
  }

  std::string pathOf(const std::string& relative_path) const { return "'" + (folder_ / relative_path).string() + "'"; }

  fs::path folder_;
};

TEST_F(CalibrationSourceTest, LookUp_CompleteEntry_GivesTextAndVersionByteForByte) {
  const std::string text("binary\0safe\r\n\xFF", 13);
  writeEntry("KEOD2001", text, "03");
  const CalibrationEntry entry = CalibrationSource(folder_).lookUp("KEOD2001");
  EXPECT_EQ(entry.text, text);
  EXPECT_EQ(entry.version, "03");
  EXPECT_EQ(entry.serial_number, "KEOD2001");
  EXPECT_THAT(takePrinted(), IsEmpty());
}

TEST_F(CalibrationSourceTest, LookUp_EmptyText_IsComplete) {
  writeEntry("KEOD2001", "", "01");
  EXPECT_EQ(CalibrationSource(folder_).lookUp("KEOD2001").version, "01");
  EXPECT_THAT(takePrinted(), IsEmpty());
}

TEST_F(CalibrationSourceTest, LookUp_MissingEntry_NamesTheFile) {
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " does not exist");
}

TEST_F(CalibrationSourceTest, LookUp_MissingFolder_NamesTheFile) {
  fs::remove_all(folder_);
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " does not exist");
}

TEST_F(CalibrationSourceTest, LookUp_NoLocation_SaysSo) {
  CalibrationSource("").lookUp("KEOD2001");
  EXPECT_THAT(takePrinted(), ElementsAre("err: CalibrationSource: No calibration for serial number \"KEOD2001\": no "
                                         "calibration folder was given.\\n"));
}

TEST_F(CalibrationSourceTest, LookUp_TextWithoutManifest_IsHalfWritten) {
  write("KEOD2001/calibration.txt", "text");
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " does not exist");
}

TEST_F(CalibrationSourceTest, LookUp_ManifestWithoutText_IsHalfWritten) {
  write("KEOD2001/manifest.txt", "version = 03\nsize = 4\n");
  expectNone("KEOD2001", pathOf("KEOD2001/calibration.txt") + " does not exist");
}

TEST_F(CalibrationSourceTest, LookUp_TextCutShortOrTooLong_IsHalfWritten) {
  for (const char* const text : {"tex", "texts"}) {
    write("KEOD2001/calibration.txt", text);
    write("KEOD2001/manifest.txt", "version = 03\nsize = 4\n");
    expectNone("KEOD2001", pathOf("KEOD2001/calibration.txt") + " has " + std::to_string(std::string(text).size()) +
                               " bytes, but its manifest says 4; copy the entry again");
  }
}

TEST_F(CalibrationSourceTest, LookUp_MalformedManifest_SaysWhatIsWrong) {
  write("KEOD2001/calibration.txt", "text");
  write("KEOD2001/manifest.txt", "version = 03\n");
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " gives no size");
}

TEST_F(CalibrationSourceTest, LookUp_OverlongManifest_IsRefused) {
  write("KEOD2001/manifest.txt", std::string(5000, '#'));
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " has 5000 bytes; at most 4096 are read");
}

TEST_F(CalibrationSourceTest, LookUp_FolderInPlaceOfAFile_IsRefused) {
  fs::create_directories(folder_ / "KEOD2001" / "manifest.txt");
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " is not a regular file");
}

TEST_F(CalibrationSourceTest, LookUp_PipeInPlaceOfAFile_IsRefusedWithoutWaiting) {
  fs::create_directories(folder_ / "KEOD2001");
  ASSERT_EQ(mkfifo((folder_ / "KEOD2001" / "manifest.txt").c_str(), 0600), 0);
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " is not a regular file");
}

TEST_F(CalibrationSourceTest, LookUp_EntryThatIsAFile_SaysWhy) {
  write("KEOD2001", "not a folder");
  expectNone("KEOD2001", pathOf("KEOD2001/manifest.txt") + " cannot be opened: Not a directory");
}

TEST_F(CalibrationSourceTest, LookUp_UnreadableFile_SaysWhy) {
  writeEntry("KEOD2001", "text", "03");
  fs::permissions(folder_ / "KEOD2001" / "calibration.txt", fs::perms::none);
  // The superuser reads everything: the case then does not arise, and the entry is complete.
  if (geteuid() == 0) {
    EXPECT_EQ(CalibrationSource(folder_).lookUp("KEOD2001").text, "text");
  } else {
    expectNone("KEOD2001", pathOf("KEOD2001/calibration.txt") + " cannot be opened: Permission denied");
  }
}

TEST_F(CalibrationSourceTest, LookUp_SerialThatCannotNameAnEntry_OpensNothing) {
  write("outside/manifest.txt", "version = 99\nsize = 6\n");
  write("outside/calibration.txt", "secret");
  fs::create_directories(folder_ / "inside");
  const CalibrationSource source(folder_ / "inside");
  for (const std::string& serial :
       {std::string("../outside"), std::string("/outside"), std::string(".."), std::string("."), std::string(""),
        std::string("a/b"), std::string("a\\b"), std::string("a.b"), std::string("a\nb"), std::string("a\0b", 3),
        std::string("\x1B[2J"), std::string("k\xC3\xA4se"), std::string("a b"), std::string(65, 'A')}) {
    EXPECT_FALSE(canNameCalibrationEntry(serial));
    const CalibrationEntry entry = source.lookUp(serial);
    EXPECT_EQ(entry.text, "");
    EXPECT_EQ(entry.version, "00");
    EXPECT_EQ(entry.serial_number, serial);
    const Log printed = takePrinted();
    ASSERT_EQ(printed.size(), 1u);
    EXPECT_THAT(printed[0],
                testing::EndsWith("\": an entry's name has 1 to 64 letters, digits, '-' or '_' and nothing else.\\n"));
    for (const char c : printed[0]) EXPECT_TRUE(c >= 0x20 && c < 0x7F) << "untrusted bytes reached the terminal";
  }
}

TEST_F(CalibrationSourceTest, CanNameCalibrationEntry_LongestName_IsAllowed) {
  EXPECT_TRUE(canNameCalibrationEntry(std::string(64, 'A')));
  EXPECT_TRUE(canNameCalibrationEntry("az-AZ_09"));
}

TEST_F(CalibrationSourceTest, CameraCenter_GivesEachCameraItsOwnCalibration) {
  writeEntry("KEOD2001", "one", "01");
  writeEntry("KEOD2002", "two", "02");
  scripted::network().interfaces = {
      scripted::Interface{makeDevice("KEOD2002"), makeDevice("../KEOD2001"), makeDevice("KEOD2001")}};
  const CameraCenter center(folder_);
  ASSERT_EQ(center.cameras.size(), 3u);
  EXPECT_EQ(center.cameras[0]->calibrationText, "two");
  EXPECT_EQ(center.cameras[0]->calibrationVersion, "02");
  EXPECT_EQ(center.cameras[1]->calibrationText, "");
  EXPECT_EQ(center.cameras[1]->calibrationVersion, "00");
  EXPECT_EQ(center.cameras[1]->serialNumber, "../KEOD2001");
  EXPECT_EQ(center.cameras[2]->calibrationText, "one");
}

}  // namespace
