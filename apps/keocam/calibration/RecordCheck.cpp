#include "apps/keocam/calibration/RecordCheck.h"

#include <algorithm>

#include "apps/keocam/calibration/PointCheck.h"
#include "apps/keocam/calibration/TableCheck.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

using Record = std::vector<KeyedValue>;

constexpr std::size_t kPoints = 600;
constexpr std::size_t k1500Points = 300;

struct KeyRow {
  int first_grammar;
  CalibrationKey key;
  bool optional;
};

constexpr KeyRow kRows[] = {
    {1, CalibrationKey::Date, false},    {1, CalibrationKey::Lens, false},    {1, CalibrationKey::Data, false},
    {3, CalibrationKey::Data1500, true}, {2, CalibrationKey::SffcLow, false}, {2, CalibrationKey::SffcHigh, false},
    {3, CalibrationKey::Sffc1500, true},
};

struct FixedText {
  CalibrationKey key;
  const char* what;
  std::size_t characters;
};

constexpr FixedText kFixedTexts[] = {
    {CalibrationKey::Bb, "digit", 1}, {CalibrationKey::Date, "date", 10}, {CalibrationKey::Lens, "name", 5}};

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }

void checkPresence(const Record& record, int grammar, CalibrationFindings& findings) {
  const std::size_t begin = record.front().key_offset;
  for (const KeyRow& row : kRows) {
    const KeyedValue* const found = findValue(record, row.key);
    if (found != nullptr && grammar < row.first_grammar) {
      findings.doubtful(found->key_offset,
                        quoted(row.key) + " is not read in version 0" + std::to_string(grammar) + ".");
    } else if (found == nullptr && !row.optional && grammar >= row.first_grammar) {
      findings.wrong(begin, quoted(row.key) + " is missing, and something else is taken for its value.");
    }
  }
  if (grammar < 3) return;
  const KeyedValue* const points = findValue(record, CalibrationKey::Data1500);
  const KeyedValue* const table = findValue(record, CalibrationKey::Sffc1500);
  if (points != nullptr && table == nullptr) {
    findings.wrong(points->key_offset,
                   "There is \"Data1500:\", but \"Sffc1500Range:\", which belongs to it, is missing.");
  } else if (points == nullptr && table != nullptr) {
    findings.doubtful(table->key_offset, "Without \"Data1500:\" the table \"Sffc1500Range:\" is not read.");
  }
}

void checkOrder(const Record& record, CalibrationFindings& findings) {
  CalibrationKey latest = record.front().key;
  for (const KeyedValue& value : record) {
    if (findValue(record, value.key) != &value) {
      findings.doubtful(value.key_offset, quoted(value.key) + " stands there again; only the first one counts.");
    } else if (value.key < latest) {
      const std::string text = quoted(value.key) + " stands behind " + quoted(latest) + "; it belongs before it.";
      if (value.key >= CalibrationKey::SffcLow) {
        findings.wrong(value.key_offset, text);
      } else {
        findings.doubtful(value.key_offset, text);
      }
    }
    latest = std::max(latest, value.key);
  }
}

void checkFixedText(const KeyedValue& found, const FixedText& row, CalibrationFindings& findings) {
  const std::string_view taken = found.value.substr(0, row.characters);
  const auto control = std::find_if(taken.begin(), taken.end(), isControl);
  if (found.value.size() < row.characters || control != taken.end()) {
    const auto characters = static_cast<std::size_t>(control - taken.begin());
    findings.wrong(found.offset, "The " + std::string(row.what) + " behind " + quoted(row.key) + " has " +
                                     std::to_string(characters) + " of " + std::to_string(row.characters) +
                                     " characters; what follows is taken for the rest of it. Fill it up with blanks.");
    return;
  }
  if (withoutTrailingBlanks(taken).empty())
    findings.doubtful(found.offset, "The " + std::string(row.what) + " is blank.");
  const std::string_view all = withoutTrailingBlanks(found.value);
  if (all.size() > row.characters) {
    findings.doubtful(found.offset + row.characters, std::to_string(all.size() - row.characters) +
                                                         " characters behind the " + row.what + " of " +
                                                         quoted(row.key) + " are never read.");
  }
}

void checkDigit(const KeyedValue& bb, CalibrationFindings& findings) {
  const bool digit = !bb.value.empty() && bb.value.front() >= '0' && bb.value.front() <= '9';
  if (digit) return checkFixedText(bb, kFixedTexts[0], findings);
  findings.wrong(bb.offset, "\"BB:\" is not followed by a digit; reading ends here.");
}

void checkTables(const Record& record, int grammar, CalibrationFindings& findings) {
  TableSizes sizes;
  const auto check = [&](CalibrationKey key, std::optional<std::size_t>& bytes) {
    if (const KeyedValue* const table = findValue(record, key)) bytes = checkTable(*table, findings);
  };
  check(CalibrationKey::SffcLow, sizes.low_bytes);
  check(CalibrationKey::SffcHigh, sizes.middle_bytes);
  if (grammar == 3 && findValue(record, CalibrationKey::Data1500) != nullptr) {
    check(CalibrationKey::Sffc1500, sizes.high_bytes);
  }
  if (const KeyedValue* const low = findValue(record, CalibrationKey::SffcLow)) {
    checkTableSizes(sizes, low->offset, findings);
  }
}

}  // namespace

const KeyedValue* findValue(const Record& record, CalibrationKey key) {
  const auto found =
      std::find_if(record.begin(), record.end(), [key](const KeyedValue& value) { return value.key == key; });
  return found == record.end() ? nullptr : &*found;
}

std::string lensNameOf(const Record& record) {
  const KeyedValue* const lens = findValue(record, CalibrationKey::Lens);
  if (lens == nullptr) return {};
  return std::string(withoutTrailingBlanks(lens->value.substr(0, kFixedTexts[2].characters)));
}

void checkRecord(const Record& record, int grammar, CalibrationFindings& findings) {
  checkPresence(record, grammar, findings);
  checkOrder(record, findings);
  checkDigit(record.front(), findings);
  for (const FixedText& row : kFixedTexts) {
    const KeyedValue* const found = findValue(record, row.key);
    if (found != nullptr && row.key != CalibrationKey::Bb) checkFixedText(*found, row, findings);
  }
  if (const KeyedValue* const data = findValue(record, CalibrationKey::Data)) {
    const PointText points{"Data:", data->offset, data->value, kPoints};
    checkPoints(points, findings);
    if (grammar == 3) checkSlopes(points, findings);
  }
  const KeyedValue* const data_1500 = findValue(record, CalibrationKey::Data1500);
  if (data_1500 != nullptr && grammar == 3) {
    checkPoints({"Data1500:", data_1500->offset, data_1500->value, k1500Points}, findings);
  }
  if (grammar >= 2) checkTables(record, grammar, findings);
}

}  // namespace keocam::cli
