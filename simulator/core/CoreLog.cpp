#include "simulator/core/CoreLog.h"

#include <iomanip>
#include <sstream>

namespace simulator {
namespace {

std::string hex(const Bytes& bytes) {
  std::ostringstream text;
  text << std::hex << std::setfill('0');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    text << (i == 0 ? "" : " ") << std::setw(2) << static_cast<unsigned>(bytes[i]);
  }
  return text.str();
}

}  // namespace

std::string_view verdictName(Verdict verdict) {
  switch (verdict) {
    case Verdict::Frame:
      return "frame";
    case Verdict::DamagedFrame:
      return "damaged frame";
    case Verdict::DamagedHeader:
      return "damaged header";
    case Verdict::UndefinedProcess:
      return "undefined process";
    case Verdict::TooLong:
      return "too long";
    case Verdict::Noise:
      return "noise";
    case Verdict::Partial:
      return "partial frame";
    case Verdict::WrongLine:
      return "wrong line settings";
    case Verdict::InReset:
      return "in reset";
  }
  return "unknown";
}

std::optional<uint8_t> CoreLogEntry::function() const {
  if (verdict >= Verdict::Noise || received.size() <= frame::kFunction) return std::nullopt;
  return received[frame::kFunction];
}

std::string describe(const CoreLogEntry& entry, uint64_t start_ns) {
  std::ostringstream text;
  const double time_s = static_cast<double>(entry.time_ns - start_ns) * 1e-9;
  text << std::fixed << std::setprecision(3) << std::setw(9) << time_s << " s  " << verdictName(entry.verdict) << ": "
       << hex(entry.received);
  if (entry.status) {
    text << " -> status 0x" << std::hex << std::setfill('0') << std::setw(2) << static_cast<unsigned>(*entry.status)
         << ": " << (entry.sent.empty() ? "nothing sent" : hex(entry.sent));
  }
  return text.str();
}

void CoreLog::add(CoreLogEntry entry) {
  entries_.push_back(std::move(entry));
  if (entries_.size() > limit_) entries_.pop_front();
}

}  // namespace simulator
