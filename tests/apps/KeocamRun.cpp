#include "KeocamRun.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

Arguments with(const char* program, const Arguments& arguments) {
  Arguments all{program};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return all;
}

}  // namespace

Arguments keocamWith(const Arguments& arguments) { return with(KEOCAM_PROGRAM, arguments); }

Ended ended(ChildProcess& process, std::chrono::milliseconds limit) {
  const int status = process.wait(limit);
  return {status, process.text(ChildProcess::Output), process.text(ChildProcess::Error)};
}

Ended keocam(const Arguments& arguments) {
  ChildProcess process(keocamWith(arguments));
  return ended(process);
}

Simulator::Simulator(const Arguments& arguments) : process_(with(KEOCAM_SIMULATOR_PROGRAM, arguments)) {
  if (!process_.waitFor(ChildProcess::Output, "ready\n", kPatience)) {
    ADD_FAILURE() << "the simulator did not become ready: " << process_.text(ChildProcess::Error);
  }
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace keocam::cli
