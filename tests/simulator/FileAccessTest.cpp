// The serial port's data through the file access registers: as one block, and register by register.
#include <gtest/gtest.h>

#include "DeviceBench.h"

namespace {

using namespace simulator;
using gvcp::Bytes;

enum Operation : uint32_t { kOpen = 0, kClose = 1, kRead = 2, kWrite = 3, kDelete = 4 };
constexpr uint32_t kFailure = 1;

class FileAccess : public ::testing::Test {
 protected:
  FileAccess() {
    bench.takeControl();
    bench.write(address::kBulkLoopback, 1);
  }

  /// One write of memory; returns the status and result that one read of memory then gives.
  std::pair<uint32_t, uint32_t> operate(Operation operation, uint32_t length = 0, const Bytes& data = {}) {
    Bytes padded = data;
    while (padded.size() % 4 != 0) padded.push_back(0xEE);
    const Bytes block = gvcp::join({gvcp::u32(operation), gvcp::u32(0), gvcp::u32(length), gvcp::u32(1), padded});
    EXPECT_EQ(bench.writeBlock(address::kFileOperation, block), 0);
    outcome = bench.readBlock(address::kFileBlock, address::kFileBlockBytes);
    return {gvcp::u32At(outcome, 4), gvcp::u32At(outcome, 8)};
  }
  uint32_t waiting() { return bench.read(address::kFileSize); }
  Bytes buffer(std::size_t size) const {
    return Bytes(outcome.begin() + 0x1C, outcome.begin() + 0x1C + static_cast<std::ptrdiff_t>(size));
  }

  DeviceBench bench{nullptr, false};
  Bytes outcome;
};

using Outcome = std::pair<uint32_t, uint32_t>;

TEST_F(FileAccess, Block_WriteThenRead_EchoesTheBytesOfTheLengthRegister) {
  EXPECT_EQ(operate(kOpen), (Outcome{0, 0}));
  EXPECT_EQ(operate(kWrite, 5, {1, 2, 3, 4, 5}), (Outcome{0, 5}));
  EXPECT_EQ(gvcp::u32At(outcome, 0), 5U) << "the queue's length comes with the outcome";
  EXPECT_EQ(operate(kRead, 484), (Outcome{0, 5}));
  EXPECT_EQ(buffer(5), (Bytes{1, 2, 3, 4, 5}));
  EXPECT_EQ(gvcp::u32At(outcome, 0), 0U);
  EXPECT_EQ(gvcp::u32At(outcome, 0x18), 0U) << "the execute register reads as done";
}

TEST_F(FileAccess, Block_FullBuffer_FitsOneMessageEachWay) {
  operate(kOpen);
  Bytes data(484);
  for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<uint8_t>(i * 7);
  EXPECT_EQ(operate(kWrite, 484, data), (Outcome{0, 484}));
  EXPECT_EQ(operate(kRead, 484), (Outcome{0, 484}));
  EXPECT_EQ(buffer(484), data);
}

TEST_F(FileAccess, Read_TakesAtMostTheLengthAndLeavesTheRest) {
  operate(kOpen);
  operate(kWrite, 5, {1, 2, 3, 4, 5});
  EXPECT_EQ(operate(kRead, 2), (Outcome{0, 2}));
  EXPECT_EQ(buffer(2), (Bytes{1, 2}));
  EXPECT_EQ(waiting(), 3U);
  EXPECT_EQ(operate(kRead, 484), (Outcome{0, 3}));
  EXPECT_EQ(operate(kRead, 484), (Outcome{0, 0})) << "nothing yet is no failure";
}

TEST_F(FileAccess, NotOpen_FailsByStatusNotByError) {
  EXPECT_EQ(operate(kRead, 4), (Outcome{kFailure, 0}));
  EXPECT_EQ(operate(kWrite, 4, {1, 2, 3, 4}), (Outcome{kFailure, 0}));
  EXPECT_EQ(operate(kClose), (Outcome{kFailure, 0}));
  EXPECT_EQ(waiting(), 0U);
}

TEST_F(FileAccess, OpenTwice_FailsTheSecondTimeAndStaysOpen) {
  EXPECT_EQ(operate(kOpen).first, 0U);
  EXPECT_EQ(operate(kOpen).first, kFailure);
  EXPECT_EQ(operate(kWrite, 1, {9}), (Outcome{0, 1}));
  EXPECT_EQ(operate(kClose).first, 0U);
  EXPECT_EQ(operate(kWrite, 1, {9}).first, kFailure);
}

TEST_F(FileAccess, OpenMode_LimitsTheDirection) {
  bench.write(address::kFileOpenMode, 0);
  operate(kOpen);
  EXPECT_EQ(operate(kWrite, 1, {9}).first, kFailure);
  EXPECT_EQ(operate(kRead, 4).first, 0U);
  operate(kClose);
  bench.write(address::kFileOpenMode, 1);
  operate(kOpen);
  EXPECT_EQ(operate(kRead, 4).first, kFailure);
  EXPECT_EQ(operate(kWrite, 1, {9}).first, 0U);
}

TEST_F(FileAccess, Delete_EmptiesTheReceiveQueue) {
  operate(kOpen);
  operate(kWrite, 4, {1, 2, 3, 4});
  EXPECT_EQ(waiting(), 4U);
  EXPECT_EQ(operate(kDelete).first, 0U);
  EXPECT_EQ(waiting(), 0U);
}

TEST_F(FileAccess, ControlLost_ClosesThePortAndForgetsItsBytes) {
  operate(kOpen);
  operate(kWrite, 4, {1, 2, 3, 4});
  bench.pass(3000);
  bench.takeControl();
  EXPECT_EQ(waiting(), 0U);
  EXPECT_EQ(operate(kRead, 4).first, kFailure);
  EXPECT_EQ(operate(kOpen).first, 0U);
}

TEST_F(FileAccess, RepeatedWrite_ReachesTheLineOnce) {
  operate(kOpen);
  const Bytes write = gvcp::writeMemory(
      address::kFileOperation,
      gvcp::join({gvcp::u32(kWrite), gvcp::u32(0), gvcp::u32(4), gvcp::u32(1), gvcp::u32(0x01020304)}), 900);
  EXPECT_EQ(bench.send(write), bench.send(write));
  EXPECT_EQ(waiting(), 4U);
}

TEST_F(FileAccess, OneByOne_AsAnyGenicamHostDoes_MovesTheSameBytes) {
  const auto execute = [this](Operation operation) {
    EXPECT_EQ(bench.write(address::kFileSelector, 0), 0);
    EXPECT_EQ(bench.write(address::kFileOperation, operation), 0);
    EXPECT_EQ(bench.write(address::kFileExecute, 1), 0);
    EXPECT_EQ(bench.read(address::kFileExecute), 0U);
    return bench.read(address::kFileStatus);
  };
  EXPECT_EQ(execute(kOpen), 0U);
  EXPECT_EQ(bench.write(address::kFileOffset, 0), 0);
  EXPECT_EQ(bench.write(address::kFileLength, 3), 0);
  EXPECT_EQ(bench.writeBlock(address::kFileBuffer, Bytes(484, 0x5A)), 0);
  EXPECT_EQ(execute(kWrite), 0U);
  EXPECT_EQ(bench.read(address::kFileResult), 3U);
  EXPECT_EQ(bench.write(address::kFileLength, 484), 0);
  EXPECT_EQ(execute(kRead), 0U);
  EXPECT_EQ(bench.read(address::kFileResult), 3U);
  EXPECT_EQ(bench.readBlock(address::kFileBuffer, 4), (Bytes{0x5A, 0x5A, 0x5A, 0x5A}));
  EXPECT_EQ(execute(kClose), 0U);
}

TEST_F(FileAccess, BlockRegister_IsReadOnlyAsAWhole) {
  EXPECT_EQ(bench.writeBlock(address::kFileBlock, Bytes(512)), 0x8004);
}

TEST_F(FileAccess, BulkModeOff_LosesTheBytes) {
  bench.write(address::kBulkMode, 0);
  operate(kOpen);
  EXPECT_EQ(operate(kWrite, 2, {1, 2}), (Outcome{0, 2}));
  EXPECT_EQ(waiting(), 0U);
}

}  // namespace
