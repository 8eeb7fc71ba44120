#include "apps/keocam/lens/TransferReporter.h"

#include <utility>

#include "apps/keocam/lens/TransferText.h"

namespace keocam::cli {
namespace {

constexpr int64_t kOnTerminal_ms = 100;
constexpr int64_t kElsewhere_ms = 10'000;

}  // namespace

TransferReporter::TransferReporter(std::ostream& out, std::function<Terminal()> look, const TransferMeter& meter)
    : line_(out, look), look_(std::move(look)), meter_(meter) {}

void TransferReporter::report(const TransferProgress& progress, int64_t now_ms) {
  const TransferView view = meter_.note(progress, now_ms);
  const Terminal terminal = look_();
  const bool new_phase = !shown_ || view.phase != last_shown_.phase || view.table != last_shown_.table;
  const bool done = terminal.interactive && progress.done_bytes == progress.total_bytes;
  const int64_t interval_ms = terminal.interactive ? kOnTerminal_ms : kElsewhere_ms;
  if (!new_phase && !done && now_ms - last_shown_ms_ < interval_ms) return;
  line_.show(terminal.interactive ? transferBar(view, terminal.columns - 1) : transferLine(view), ProgressMood::Normal);
  shown_ = true;
  last_shown_ = view;
  last_shown_ms_ = now_ms;
}

}  // namespace keocam::cli
