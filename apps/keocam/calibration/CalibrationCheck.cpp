#include "apps/keocam/calibration/CalibrationCheck.h"

#include <algorithm>
#include <exception>
#include <map>
#include <stdexcept>

#include "apps/keocam/calibration/PointCheck.h"
#include "apps/keocam/calibration/RecordCheck.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "calibration/CalibrationText.h"

namespace keocam::cli {
namespace {

using Record = std::vector<KeyedValue>;

constexpr std::size_t kPointsOfVersion0 = 600;

bool allDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

int grammarOrLikely(const CalibrationToCheck& calibration, CalibrationFindings& findings) {
  const std::string likely = likelyVersion(calibration.text);
  int grammar = -1;
  try {
    grammar = calibrationGrammar(calibration.version);
  } catch (const std::exception&) {
    grammar = -1;
  }
  if (grammar >= 0) {
    if (!allDigits(calibration.version)) {
      findings.doubtful(std::nullopt, "The version " + inQuotes(calibration.version) + " is not only digits.");
    }
    return grammar;
  }
  findings.wrong(std::nullopt, "The version " + inQuotes(calibration.version) +
                                   " is no number from 0 on, such as \"03\"; the text looks like version " + likely +
                                   ".");
  return calibrationGrammar(likely);
}

// From version 3 on the camera's speed is read from its serial number: class letter, then a number.
void checkSerialNumber(const std::string& serial, CalibrationFindings& findings) {
  constexpr std::size_t kClass = 3;
  if (serial.size() <= kClass + 1 || !allDigits(serial.substr(kClass + 1, 7))) {
    findings.wrong(std::nullopt, "The serial number " + inQuotes(serial) +
                                     " must have three characters, a class letter and a number, like \"KEOD2001\".");
  } else if (std::string_view("CDE").find(serial[kClass]) == std::string_view::npos) {
    findings.doubtful(std::nullopt, "The class letter of the serial number " + inQuotes(serial) +
                                        " is none of C, D and E; it is taken for D.");
  }
}

std::vector<Record> recordsOf(const std::vector<KeyedValue>& values, CalibrationFindings& findings) {
  std::vector<Record> records;
  for (const KeyedValue& value : values) {
    if (value.key == CalibrationKey::Bb) records.emplace_back();
    if (records.empty()) {
      findings.wrong(value.key_offset, '"' + std::string(nameOf(value.key)) + "\" stands before any \"BB:\".");
    } else {
      records.back().push_back(value);
    }
  }
  return records;
}

void checkBegin(std::string_view text, const std::vector<KeyedValue>& values, CalibrationFindings& findings) {
  const std::string_view before = text.substr(0, values.empty() ? text.size() : values.front().key_offset);
  const std::size_t begin = before.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos || values.empty()) return;
  findings.doubtful(
      begin, std::to_string(withoutTrailingBlanks(before).size() - begin) + " characters stand before the first key.");
}

// A reader looks for "Data1500:" in all that follows a record's beginning.
void checkBorrowed1500(const std::vector<Record>& records, std::size_t index, CalibrationFindings& findings) {
  if (findValue(records[index], CalibrationKey::Data1500) != nullptr) return;
  for (std::size_t later = index + 1; later < records.size(); ++later) {
    const KeyedValue* const taken = findValue(records[later], CalibrationKey::Data1500);
    if (taken == nullptr) continue;
    findings.wrong(taken->key_offset, "It has no \"Data1500:\" of its own, so a reader takes that of lens " +
                                          std::to_string(later + 1) +
                                          " and passes over what is between. Put the lenses that have it first.");
    return;
  }
}

void checkRecords(const CalibrationToCheck& calibration, int grammar, CalibrationFindings& findings) {
  const std::vector<KeyedValue> values = keyedValues(calibration.text);
  checkBegin(calibration.text, values, findings);
  const std::vector<Record> records = recordsOf(values, findings);
  if (records.empty()) findings.wrong(std::nullopt, "There is no \"BB:\", so there is no lens.");
  std::map<std::string, std::size_t> seen;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const std::string name = lensNameOf(records[i]);
    findings.setSubject("Lens " + std::to_string(i + 1) + " (" + inQuotes(name) + ")");
    checkRecord(records[i], grammar, findings);
    if (grammar == 3) checkBorrowed1500(records, i, findings);
    const auto [earlier, first] = seen.emplace(name, i + 1);
    if (!first) {
      findings.doubtful(records[i].front().key_offset,
                        "Lens " + std::to_string(earlier->second) + " has the same name, and only that can be chosen.");
    }
  }
  findings.setSubject("");
}

std::string reasonOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const std::invalid_argument&) {
    return "what must be a number is none";
  } catch (const std::out_of_range&) {
    return "a value lies beyond the end";
  } catch (const std::length_error&) {
    return "a table is larger than its place";
  }
}

// Where the library's reader would stop: whatever the strict walk has made of the text.
void checkReading(const CalibrationToCheck& calibration, int grammar, CalibrationFindings& findings) {
  const std::string serial = calibration.serial_number.value_or("KEOD0000");
  const CalibrationLayout layout = readCalibrationLayout(calibration.text, grammar, serial, {});
  if (!layout.failure) return;
  findings.wrong(std::nullopt, "A reader gives up after " + std::to_string(layout.records.size()) +
                                   " lenses: " + reasonOf(layout.failure) + ".");
}

}  // namespace

CalibrationFindings checkCalibration(const CalibrationToCheck& calibration) {
  CalibrationFindings findings;
  const int grammar = grammarOrLikely(calibration, findings);
  if (calibration.serial_number && grammar == 3) checkSerialNumber(*calibration.serial_number, findings);
  if (calibration.text.empty()) {
    findings.wrong(std::nullopt, "The text is empty.");
  } else if (grammar == 0) {
    checkPoints({"version 0", 0, calibration.text, kPointsOfVersion0}, findings);
  } else {
    checkRecords(calibration, grammar, findings);
  }
  checkReading(calibration, grammar, findings);
  return findings;
}

std::string likelyVersion(std::string_view text) {
  const std::vector<KeyedValue> values = keyedValues(text);
  const auto has = [&values](CalibrationKey key) { return findValue(values, key) != nullptr; };
  if (!has(CalibrationKey::Bb)) return "00";
  return has(CalibrationKey::SffcLow) || has(CalibrationKey::SffcHigh) ? "03" : "01";
}

}  // namespace keocam::cli
