// A program as a job of a shell on a terminal: in the background or the foreground, typed at, interrupted.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

/// Runs a program in a session with a terminal of its own, where a stand-in for the shell leads the session and keeps
/// the foreground until told otherwise. The program's standard output and error come back as one text.
class TerminalJob {
 public:
  /// `ignored_signal`, if not 0, is ignored when the program starts, as nohup(1) does.
  explicit TerminalJob(const std::vector<std::string>& command, int ignored_signal = 0);
  /// Kills the program if it still runs.
  ~TerminalJob();
  TerminalJob(const TerminalJob&) = delete;
  TerminalJob& operator=(const TerminalJob&) = delete;

  pid_t pid() const { return pid_; }
  void toForeground() { order('f'); }
  void toBackground() { order('b'); }
  /// As from the keyboard: "\x03" is Ctrl-C.
  void type(const std::string& keys) const;
  /// The other end of the terminal goes away.
  void hangUp();

  /// False when the text has not come within 5 seconds.
  bool prints(const std::string& text);
  /// True when it is stopped, as by SIGTTIN.
  bool stopped() const;
  /// The time that the program's first thread has spent on a processor.
  unsigned long long mainThreadCpuNs() const;
  /// The wait status of waitpid(2); -1 when the program has not ended within 5 seconds.
  int waitStatus();

 private:
  char order(char letter);

  int terminal_ = -1;  ///< the side of the person
  int orders_ = -1;    ///< one letter to the shell each
  int reports_ = -1;   ///< what the shell answers
  int output_ = -1;
  pid_t shell_ = -1;
  pid_t pid_ = -1;
  std::string printed_;
};
