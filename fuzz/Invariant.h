// What must hold whatever the input is.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace fuzz {

/// Ends the process, with `invariant` on standard error, unless it holds: a fuzzer then keeps the input.
inline void require(bool holds, const char* invariant) {
  if (holds) return;
  std::fprintf(stderr, "Broken invariant: %s\n", invariant);
  std::abort();
}

}  // namespace fuzz
