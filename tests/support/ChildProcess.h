// A program run by a test: what it writes, and how it ends.
#pragma once

#include <sys/types.h>

#include <array>
#include <chrono>
#include <string>
#include <vector>

namespace test_support {

/// Ended by its destructor if it still runs, and by the system if the test dies first. Every wait has a deadline.
class ChildProcess {
 public:
  enum Stream { Output = 0, Error = 1 };
  enum class Written { Kept, Discarded };

  /// `arguments` begin with the program's path, or its name to be found on PATH. Its standard input is a pipe for
  /// send(). A program that writes and is not read from must have what it writes discarded, or it stalls. Throws
  /// std::runtime_error if the program cannot be started. The program ends with the thread that started it.
  explicit ChildProcess(const std::vector<std::string>& arguments, Written written = Written::Kept);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Reads until `text` has appeared on the stream. False if it does not within `limit`, or if the program ends.
  bool waitFor(Stream stream, const std::string& text, std::chrono::milliseconds limit);

  /// Reads until the program has ended, and returns its exit status, or 128 plus the signal that ended it. One that
  /// runs longer than `limit` is killed, and the result is kTooLong.
  int wait(std::chrono::milliseconds limit);
  static constexpr int kTooLong = -1;

  /// Whether the program has not ended yet.
  bool running() const;

  void send(const std::string& line);
  void signal(int number) const;
  /// Goes away as a reader: what the program writes there from now on meets a closed pipe.
  void stopReading(Stream stream);

  const std::string& text(Stream stream) const { return texts_[stream]; }

 private:
  bool readSome(std::chrono::steady_clock::time_point deadline);
  void reap();
  void end();

  mutable pid_t pid_ = -1;  // -1 once its end was seen.
  int input_ = -1;
  std::array<int, 2> pipes_ = {-1, -1};
  std::array<std::string, 2> texts_;
  mutable int status_ = 0;
};

}  // namespace test_support
