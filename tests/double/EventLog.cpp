#include "tests/double/EventLog.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <sstream>

namespace scripted {
namespace {

std::string visible(const std::string& text) {
  std::string result;
  for (const char c : text) result += c == '\n' ? std::string("\\n") : std::string(1, c);
  return result;
}

}  // namespace

EventLog& eventLog() {
  static EventLog log;
  return log;
}

void EventLog::add(std::string event) {
  if (echo_) {
    const std::string line = event + '\n';
    if (write(STDERR_FILENO, line.data(), line.size()) < 0) return;
  }
  events_.push_back(std::move(event));
}

std::vector<std::string> EventLog::of(const std::vector<std::string>& prefixes) const {
  std::vector<std::string> matching;
  std::copy_if(events_.begin(), events_.end(), std::back_inserter(matching), [&](const std::string& event) {
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](const std::string& prefix) { return event.compare(0, prefix.size(), prefix) == 0; });
  });
  return matching;
}

class CapturedOutput::FlushBuffer : public std::stringbuf {
 public:
  ~FlushBuffer() override {
    if (!str().empty()) eventLog().add("out, not flushed: " + visible(str()));
  }

 protected:
  int sync() override {
    if (str().empty()) return 0;  // standard error flushes standard output before each piece
    eventLog().add("out: " + visible(str()));
    str("");
    return 0;
  }
};

class CapturedOutput::LineBuffer : public std::stringbuf {
 public:
  ~LineBuffer() override {
    if (!str().empty()) eventLog().add("err, no newline: " + visible(str()));
  }

 protected:
  int sync() override {
    const std::string text = str();
    const auto end = text.rfind('\n');
    if (end == std::string::npos) return 0;
    eventLog().add("err: " + visible(text.substr(0, end + 1)));
    const std::string rest = text.substr(end + 1);
    str("");
    sputn(rest.data(), static_cast<std::streamsize>(rest.size()));
    return 0;
  }
};

CapturedOutput::CapturedOutput()
    : out_(std::make_unique<FlushBuffer>()),
      err_(std::make_unique<LineBuffer>()),
      previous_out_(std::cout.rdbuf(out_.get())),
      previous_err_(std::cerr.rdbuf(err_.get())) {}

CapturedOutput::~CapturedOutput() {
  std::cout.rdbuf(previous_out_);
  std::cerr.rdbuf(previous_err_);
  std::cout.clear();
  std::cerr.clear();
}

}  // namespace scripted
