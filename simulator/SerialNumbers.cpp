#include "simulator/SerialNumbers.h"

#include <stdexcept>

namespace simulator {

std::string nextSerial(const std::string& serial, uint32_t steps) {
  if (steps == 0) return serial;
  const std::size_t digits = serial.find_last_not_of("0123456789") + 1;
  if (digits == serial.size() || serial.size() - digits > 9) {
    throw std::invalid_argument("'" + serial +
                                "' cannot be counted upwards: several cameras need a serial number that "
                                "ends with at most nine digits");
  }
  std::string number = std::to_string(std::stoul(serial.substr(digits)) + steps);
  const std::size_t width = serial.size() - digits;
  if (number.size() < width) number.insert(0, width - number.size(), '0');
  return serial.substr(0, digits) + number;
}

}  // namespace simulator
