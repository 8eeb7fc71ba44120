// One log of everything that a unit under test does to the outside: calls of the seam, waits, and lines printed.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace scripted {

class EventLog {
 public:
  void add(std::string event);
  void clear() { events_.clear(); }
  const std::vector<std::string>& all() const { return events_; }

  /// Writes each event to the process' standard error as well: what a process that dies has done can be read there.
  void echo() { echo_ = true; }

  /// The events that begin with one of `prefixes`, in order.
  std::vector<std::string> of(const std::vector<std::string>& prefixes) const;

 private:
  std::vector<std::string> events_;
  bool echo_ = false;
};

/// The log of this test process.
EventLog& eventLog();

/// While it lives, standard output and standard error go to the log. What is printed to standard output becomes an
/// event "out: <text>" at each flush, so that a missing flush or a second line in one flush shows; standard error,
/// which flushes after every piece, becomes an event "err: <text>" at each newline. A newline in an event is written
/// "\n". Text never flushed becomes "out, not flushed: <text>".
class CapturedOutput {
 public:
  CapturedOutput();
  ~CapturedOutput();
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;

 private:
  class FlushBuffer;
  class LineBuffer;
  std::unique_ptr<FlushBuffer> out_;
  std::unique_ptr<LineBuffer> err_;
  std::streambuf* previous_out_;
  std::streambuf* previous_err_;
};

}  // namespace scripted
