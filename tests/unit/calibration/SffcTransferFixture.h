// What tests of switchSFFC1 and switchSFFC2 have in common: the two slots, and lists of what is sent and said.
#pragma once

#include <algorithm>
#include <string>

#include "tests/unit/calibration/LensTest.h"

class SffcTransferTest : public LensTest {
 protected:
  struct Slot {
    uint8_t number;
    int (CameraSerialSettings::*write)();
    std::string prefix;
    Bytes Lens::*table;
  };
  inline static const Slot kSlots[] = {
      {0, &CameraSerialSettings::switchSFFC1, "CameraSerialSettings::switchSFFC1(): ", &Lens::low},
      {1, &CameraSerialSettings::switchSFFC2, "CameraSerialSettings::switchSFFC2: ", &Lens::high},
  };

  int write(const Slot& slot) { return (core_.*slot.write)(); }

  static Log questions(const Slot& slot) {
    return requests({{214, {0x00, slot.number, 0x00, 0x11}}, {213, {0xFF, 0xFF}}});
  }
  static Log line(const std::string& text) { return {"err: " + text + "\\n"}; }
  static Log last(const Log& events, std::size_t count) {
    return {events.end() - static_cast<std::ptrdiff_t>(std::min(count, events.size())), events.end()};
  }
};
