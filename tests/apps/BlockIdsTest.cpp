// Loss by block identifiers.
#include "apps/keocam/frames/BlockIds.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace keocam::cli {
namespace {

uint64_t missingIn(std::initializer_list<uint64_t> ids) {
  BlockIds block_ids;
  for (const uint64_t id : ids) block_ids.note(id);
  return block_ids.missing();
}

TEST(BlockIds, Consecutive_MissNone) { EXPECT_EQ(missingIn({1, 2, 3, 4}), 0U); }

TEST(BlockIds, FirstFrame_SaysNothingOfThoseBefore) { EXPECT_EQ(missingIn({17, 18}), 0U); }

TEST(BlockIds, Gaps_AddUp) { EXPECT_EQ(missingIn({1, 3, 4, 8}), 1U + 3U); }

TEST(BlockIds, WrapFrom65535To1_MissesNone) { EXPECT_EQ(missingIn({65534, 65535, 1, 2}), 0U); }

TEST(BlockIds, GapAcrossTheWrap_LeavesZeroOut) { EXPECT_EQ(missingIn({65533, 2}), 3U); }  // 65534, 65535, 1

TEST(BlockIds, SameIdAgain_MissesNone) { EXPECT_EQ(missingIn({5, 5, 6}), 0U); }

TEST(BlockIds, DeviceThatCountsAnew_IsNoLoss) {
  EXPECT_EQ(missingIn({40000, 1, 2}), 25535U) << "a short way round cannot be told from a loss";
  EXPECT_EQ(missingIn({1000, 1, 2}), 0U);
  EXPECT_EQ(missingIn({5, 4, 5}), 0U);
}

TEST(BlockIds, ExtendedIds_GoOnBeyond16Bits) {
  EXPECT_EQ(missingIn({65535, 65536, 65538}), 1U);
  EXPECT_EQ(missingIn({100000, 5}), 0U);
}

}  // namespace
}  // namespace keocam::cli
