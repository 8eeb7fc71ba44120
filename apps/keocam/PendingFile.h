// A file that appears under its name only when it is complete.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace keocam::cli {

/// Takes a place beside the target at once, so that a path that cannot be written is known before any work is done. A
/// target that exists keeps its contents until commit() replaces it; without commit() nothing remains.
class PendingFile {
 public:
  /// Throws CommandFailure, with the path and the reason, if no file can be made there, or if something other than a
  /// regular file has that name.
  explicit PendingFile(const std::string& path);
  ~PendingFile();
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  /// Writes the contents and gives the file its name. Call it once. Throws CommandFailure.
  void commit(const std::vector<uint8_t>& contents);

 private:
  std::string path_;
  std::string temporary_path_;
  int fd_ = -1;
};

}  // namespace keocam::cli
