#include "bench/TableProgram.h"

#include <benchmark/benchmark.h>

#include <exception>
#include <iostream>
#include <ostream>

namespace bench {

int tableProgram(int argc, char** argv, const std::function<void(const std::function<void()>& run_all)>& body) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  std::ostream table(std::cout.rdbuf());
  std::cout.rdbuf(nullptr);
  try {
    body([&table] {
      benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
      reporter.SetOutputStream(&table);
      benchmark::RunSpecifiedBenchmarks(&reporter);
    });
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}

}  // namespace bench
