#include "apps/keocam/DataOutput.h"

#include <cerrno>
#include <cstring>
#include <iostream>

#include "apps/keocam/CommandFailure.h"

namespace keocam::cli {

DataOutput::DataOutput(bool show_library_lines)
    : original_(std::cout.rdbuf(show_library_lines ? std::cerr.rdbuf() : &discard_)), data_(original_) {}

DataOutput::~DataOutput() { std::cout.rdbuf(original_); }

void DataOutput::write(const std::string& data) {
  errno = 0;
  data_ << data << std::flush;
  if (data_ || errno == EPIPE) return;
  throw CommandFailure(ExitStatus::Failure, std::string("Standard output cannot be written: ") +
                                                (errno != 0 ? std::strerror(errno) : "unknown reason") + ".");
}

}  // namespace keocam::cli
