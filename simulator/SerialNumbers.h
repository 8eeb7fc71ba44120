// Serial numbers of several cameras.
#pragma once

#include <cstdint>
#include <string>

namespace simulator {

/// The serial number `steps` further on: "KEOD2001" and 2 give "KEOD2003". Throws std::invalid_argument for one that
/// does not end with a number when `steps` is not 0.
std::string nextSerial(const std::string& serial, uint32_t steps);

}  // namespace simulator
