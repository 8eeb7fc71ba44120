#include "apps/keocam/lens/LensChangeText.h"

#include "apps/keocam/lens/TransferMeter.h"
#include "apps/keocam/lens/TransferText.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

// By TableState.
constexpr const char* kStates[] = {
    "untouched",
    "written",
    "written and verified",
    "only partly erased or written",
    "written, but it reads back differently",
    "written, but not verified to its end",
};

bool isDone(TableState state) { return state == TableState::Written || state == TableState::Verified; }

std::string tableLine(SffcTable table, TableState state) {
  return std::string("\nThe ") + wordFor(table) + " table: " + kStates[static_cast<std::size_t>(state)] + '.';
}

std::string nextStep(const LensChange& change) {
  if (change.low == TableState::Untouched && change.high == TableState::Untouched) {
    return "\nNothing has changed in the core.";
  }
  if (isDone(change.low) && isDone(change.high)) {
    return "\nThe core may not use the tables yet. Run it again; both tables are erased and written anew.";
  }
  return "\nThe core cannot correct with these tables. Run it again; each table is erased and written anew.";
}

}  // namespace

std::string beginText(const std::string& camera, const std::string& lens, uint32_t table_bytes,
                      Verification verification) {
  const bool verified = verification == Verification::ReadBack;
  return "Writing the two tables of the lens " + inQuotes(lens) + " into the core of " + camera + ".\nThey have " +
         std::to_string(table_bytes) + " bytes each" + (verified ? " and are read back" : "") + ", which takes about " +
         roughDuration(TransferMeter(table_bytes, verification).expected_s()) +
         ".\nKeep the camera powered and connected. Ctrl-C stops.";
}

std::string completeText(const std::string& lens, const LensChange& change) {
  if (change.low == TableState::Untouched && change.high == TableState::Untouched) {
    return "The lens " + inQuotes(lens) + " has no tables, so there is nothing to write; the core is as it was.";
  }
  const bool verified = change.low == TableState::Verified && change.high == TableState::Verified;
  return "The core now holds and uses the tables of the lens " + inQuotes(lens) +
         (verified ? ", written and verified." : ", written and not verified.");
}

std::string incompleteText(const std::string& lens, const LensChange& change) {
  const bool cancelled = change.end == LensChangeEnd::Cancelled;
  const std::string reason = cancelled ? "it was stopped." : printable(change.failure);
  return "The change to the lens " + inQuotes(lens) + " is not complete: " + reason +
         tableLine(SffcTable::Low, change.low) + tableLine(SffcTable::High, change.high) + nextStep(change);
}

}  // namespace keocam::cli
