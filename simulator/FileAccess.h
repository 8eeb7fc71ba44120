// File access to the serial port: carries out the operation that the file access registers describe.
#pragma once

#include <cstdint>

#include "simulator/RegisterEntries.h"
#include "simulator/RegisterMap.h"
#include "simulator/Uart.h"

namespace simulator {

class FileAccess {
 public:
  FileAccess(RegisterMap& registers, Uart& uart) : registers_(registers), uart_(uart) {}

  /// Carries out the selected operation; its status and result are in the registers afterwards.
  void execute(uint64_t now_ns);

  /// The host is gone: closes the port and forgets what waited for it.
  void abandon(uint64_t now_ns);

  bool isOpen() const { return open_; }

 private:
  /// Result of an operation: bytes moved, or none where it failed.
  struct Outcome {
    FileStatus status;
    uint32_t result;
  };
  Outcome open();
  Outcome close();
  Outcome read(uint64_t now_ns);
  Outcome write(uint64_t now_ns);
  Outcome discard(uint64_t now_ns);

  RegisterMap& registers_;
  Uart& uart_;
  bool open_ = false;
  FileOpenMode mode_ = FileOpenMode::ReadWrite;
};

}  // namespace simulator
