// What a frame asks of the core: pure, from the function table.
#pragma once

#include <cstdint>

#include "simulator/core/CoreFrame.h"
#include "simulator/core/CoreIdentity.h"
#include "simulator/core/FrameDecoder.h"
#include "simulator/core/FunctionTable.h"

namespace simulator {

enum class Operation { Get, Set, Command, Memory };

/// A request as the core understands it. `row` is null exactly where the status is not Ok.
struct CoreRequest {
  CoreStatus status = CoreStatus::Ok;
  const FunctionRow* row = nullptr;
  Operation operation = Operation::Get;
  SettingWords words{};  ///< to set; in range
};

/// Judges a piece of input that is to be answered (see Verdict). Where a frame has several flaws the first of these
/// counts: process, header check sum, function, byte count, frame check sum, feature, selector and range.
CoreRequest understand(const DecodedFrame& frame, const CoreAbilities& abilities);

}  // namespace simulator
