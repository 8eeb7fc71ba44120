// What a check of a calibration has found.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace keocam::cli {

enum class Severity {
  Doubtful,  ///< a reader copes, but it is hardly meant
  Wrong,     ///< a reader fails, or makes of it what nobody meant
};

struct CalibrationFinding {
  Severity severity;
  std::optional<std::size_t> offset;  ///< in bytes from the text's beginning, the first is 0
  std::string text;                   ///< a sentence, fit for a terminal
};

/// Collects findings in the order in which they are made.
class CalibrationFindings {
 public:
  void wrong(std::optional<std::size_t> offset, const std::string& text) { add(Severity::Wrong, offset, text); }
  void doubtful(std::optional<std::size_t> offset, const std::string& text) { add(Severity::Doubtful, offset, text); }

  /// Whose findings follow, such as "Lens 1"; empty for none's.
  void setSubject(std::string subject) { subject_ = std::move(subject); }

  const std::vector<CalibrationFinding>& all() const { return all_; }
  bool anyWrong() const {
    for (const CalibrationFinding& finding : all_) {
      if (finding.severity == Severity::Wrong) return true;
    }
    return false;
  }

 private:
  void add(Severity severity, std::optional<std::size_t> offset, const std::string& text) {
    all_.push_back({severity, offset, subject_.empty() ? text : subject_ + ": " + text});
  }

  std::string subject_;
  std::vector<CalibrationFinding> all_;
};

}  // namespace keocam::cli
