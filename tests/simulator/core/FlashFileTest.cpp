// The flash's contents from one run to the next, and what is said about files that do not serve.
#include "simulator/core/FlashFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "FlashBench.h"
#include "ScratchFolder.h"

namespace {

using namespace core_test;
using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

class FlashInAFile : public ::testing::Test {
 protected:
  simulator::CoreOptions options() const {
    simulator::CoreOptions options = FlashBench::quietOptions();
    options.flash.file = path;
    return options;
  }
  std::string errorOf(simulator::FlashGeometry geometry = smallGeometry()) const {
    try {
      FlashBench bench(geometry, options());
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }
  ScratchFolder scratch;
  std::string path = scratch.path() + "/flash.bin";
};

TEST_F(FlashInAFile, NewFile_HoldsTheWholeErasedFlash) {
  const FlashBench bench(smallGeometry(), options());
  EXPECT_EQ(contentsOf(path), std::string(320, '\xFF'));
}

TEST_F(FlashInAFile, Contents_OutliveTheCore) {
  {
    FlashBench bench(smallGeometry(), options());
    ASSERT_TRUE(bench.transfer(1, table(100)));
  }
  FlashBench again(smallGeometry(), options());
  EXPECT_EQ(again.core.lensTable(1), table(100));
  EXPECT_EQ(again.core.lensTable(0), Bytes(100, 0xFF));
  EXPECT_EQ(again.core.flashCounters().writes, 0U);
}

TEST_F(FlashInAFile, Save_WritesAtOnceAndLeavesNoOtherFile) {
  FlashBench bench(smallGeometry(), options());
  ASSERT_EQ(bench.write(0x1000, {'k', 'e', 'o'}), kOk);
  bench.core.saveFlash();
  EXPECT_EQ(contentsOf(path).substr(0, 4), "keo\xFF");
  bench.core.setLensTable(1, table(100));
  bench.core.saveFlash();
  const Bytes kept = table(100);
  EXPECT_EQ(contentsOf(path).substr(0xC0, 100), std::string(kept.begin(), kept.end()));
  EXPECT_EQ(scratch.entries(), std::vector<std::string>{"flash.bin"});
}

TEST_F(FlashInAFile, FactoryTables_YieldToTheFile) {
  simulator::CoreOptions with_tables = options();
  with_tables.flash.tables[0] = table(100, 1);
  {
    FlashBench bench(smallGeometry(), with_tables);
    EXPECT_EQ(bench.core.lensTable(0), table(100, 1));
    ASSERT_TRUE(bench.transfer(0, table(100, 2)));
  }
  FlashBench again(smallGeometry(), with_tables);
  EXPECT_EQ(again.core.lensTable(0), table(100, 2));
}

TEST_F(FlashInAFile, OtherSize_IsRefusedWithBothSizesAndLeftAlone) {
  std::ofstream(path) << "short";
  const std::string error = errorOf();
  EXPECT_NE(error.find(path), std::string::npos) << error;
  EXPECT_NE(error.find("has 5 bytes"), std::string::npos) << error;
  EXPECT_NE(error.find("has 320"), std::string::npos) << error;
  EXPECT_EQ(contentsOf(path), "short");
}

TEST_F(FlashInAFile, FolderPipeAndPlaceThatDoesNotExist_AreErrorsAtTheStart) {
  std::filesystem::create_directory(path);
  EXPECT_NE(errorOf().find("no regular file"), std::string::npos);
  std::filesystem::remove(path);
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_NE(errorOf().find("no regular file"), std::string::npos);
  path = scratch.path() + "/nowhere/flash.bin";
  EXPECT_NE(errorOf().find("cannot write '" + path + "': No such file"), std::string::npos);
}

TEST_F(FlashInAFile, PlaceThatIsGoneAtTheEnd_IsReportedAndEndsNothing) {
  std::filesystem::create_directory(scratch.path() + "/folder");
  path = scratch.path() + "/folder/flash.bin";
  CaptureStderr();
  {
    FlashBench bench(smallGeometry(), options());
    ASSERT_EQ(bench.write(0x1000, {0}), kOk);
    std::filesystem::remove_all(scratch.path() + "/folder");
    EXPECT_THROW(bench.core.saveFlash(), std::runtime_error);
    ASSERT_EQ(bench.write(0x1001, {0}), kOk);
  }
  EXPECT_NE(GetCapturedStderr().find("cannot write '" + path + "'"), std::string::npos);
}

TEST_F(FlashInAFile, Unchanged_IsNotWrittenAgain) {
  FlashBench bench(smallGeometry(), options());
  std::filesystem::remove(path);
  bench.core.saveFlash();
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
