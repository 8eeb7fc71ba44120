// What the benchmark programs that print Google Benchmark's own table share.
#pragma once

#include <functional>

namespace bench {

/// The whole of main: `body` makes what is measured, registers benchmarks, and calls its argument to run them while all
/// that is still there. What the library prints meanwhile is not part of the table. Returns the program's exit status:
/// 2 for options that are unknown, 1 with the message on standard error if `body` throws.
int tableProgram(int argc, char** argv, const std::function<void(const std::function<void()>& run_all)>& body);

}  // namespace bench
