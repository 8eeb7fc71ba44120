// What requests do to the core's flash: payloads in, answers out.
#pragma once

#include <cstdint>

#include "simulator/Bytes.h"
#include "simulator/core/CoreFrame.h"
#include "simulator/core/FlashMemory.h"
#include "simulator/core/FunctionRow.h"

namespace simulator {

/// What a request has led to.
struct CoreAnswer {
  CoreStatus status = CoreStatus::Ok;
  Bytes payload;         ///< empty where the status is not Ok
  uint64_t busy_ns = 0;  ///< the answer comes so much later
};

/// Carries out a request for memory whose length its row allows. An erase keeps the core busy for `erase_ns`.
CoreAnswer performOnFlash(FlashMemory& flash, MemoryOperation operation, const Bytes& payload, uint64_t erase_ns);

/// The answers' payloads to the queries of the geometry and of a slot's region.
Bytes geometryAnswer(const FlashGeometry& geometry);
Bytes regionAnswer(const FlashRegion& region);

}  // namespace simulator
