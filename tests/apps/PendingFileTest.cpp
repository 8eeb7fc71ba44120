// Files that appear complete or not at all.
#include "apps/keocam/PendingFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "TemporaryFolder.h"
#include "apps/keocam/CommandFailure.h"

namespace keocam::cli {
namespace {

namespace fs = std::filesystem;

class PendingFileTest : public testing::Test {
 protected:
  std::string path(const char* name) const { return folder_.file(name); }
  std::ptrdiff_t files() const {
    return std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator());
  }
  static std::string contentsOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  TemporaryFolder folder_;
};

std::string reasonFor(const std::string& path) {
  try {
    const PendingFile file(path);
  } catch (const CommandFailure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Failure);
    return failure.what();
  }
  return "";
}

TEST_F(PendingFileTest, Commit_LeavesTheFileAlone) {
  PendingFile file(path("a.png"));
  file.commit({'a', 'b'});
  EXPECT_EQ(contentsOf(path("a.png")), "ab");
  EXPECT_EQ(files(), 1);
}

TEST_F(PendingFileTest, FinishedFile_IsAsReadableAsOthers) {
  std::ofstream(path("other")) << "x";
  PendingFile file(path("a.png"));
  file.commit({'a'});
  EXPECT_EQ(fs::status(path("a.png")).permissions(), fs::status(path("other")).permissions());
}

TEST_F(PendingFileTest, WithoutCommit_NothingRemainsAndAnOldFileStays) {
  std::ofstream(path("a.png")) << "old";
  { const PendingFile file(path("a.png")); }
  EXPECT_EQ(contentsOf(path("a.png")), "old");
  EXPECT_EQ(files(), 1);
}

TEST_F(PendingFileTest, Link_StaysAndItsTargetIsReplaced) {
  std::ofstream(path("target")) << "old";
  fs::create_symlink("target", path("link"));
  PendingFile file(path("link"));
  file.commit({'n', 'e', 'w'});
  EXPECT_TRUE(fs::is_symlink(path("link")));
  EXPECT_EQ(contentsOf(path("target")), "new");
}

TEST_F(PendingFileTest, UnusablePaths_AreRefusedAtOnceByName) {
  EXPECT_NE(reasonFor(path("missing/a.png")).find("missing/a.png"), std::string::npos);
  EXPECT_NE(reasonFor(folder_.path().string()).find("folder"), std::string::npos);
  EXPECT_NE(reasonFor("/dev/null").find("not a regular file"), std::string::npos);
  EXPECT_NE(reasonFor("").find("empty"), std::string::npos);
  std::ofstream(path("file")) << "x";
  EXPECT_NE(reasonFor(path("file/a.png")).find("Not a directory"), std::string::npos);
}

}  // namespace
}  // namespace keocam::cli
