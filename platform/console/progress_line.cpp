#include "platform/console/progress_line.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "platform/console/console_controls.h"
#include "platform/console/console_system.h"
#include "platform/console/console_text.h"
#include "text/encoding.h"
#include "text/visible_text.h"

namespace quarvel::platform::console {
namespace {

constexpr std::size_t kColumns = 79;
constexpr std::size_t kBarColumns = 30;
constexpr std::int64_t kMillisecondsBetweenDraws = 50;

std::string BarText(const ProgressBar& bar) {
  const float range = bar.max() - bar.min();
  const float part = range > 0 ? (bar.value() - bar.min()) / range : 0;
  const auto done = static_cast<std::size_t>(part * static_cast<float>(kBarColumns));
  const std::size_t filled = std::min(done, kBarColumns);
  return '[' + std::string(filled, '#') + std::string(kBarColumns - filled, '.') + ']';
}

std::int64_t MillisecondsNow() {
  using std::chrono::duration_cast;
  using std::chrono::milliseconds;
  return duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

void ProgressLine::Draw(std::span<Form* const> shown) {
  if (!enabled_) return;
  const std::int64_t now = MillisecondsNow();
  if (columns_on_screen_ > 0 && now - last_draw_ms_ < kMillisecondsBetweenDraws) return;
  const auto drawn = std::find_if(shown.rbegin(), shown.rend(),
                                  [](const Form* form) { return VisibleBar(*form) != nullptr; });
  if (drawn == shown.rend()) return;
  const std::string words = text::VisibleText((*drawn)->caption());
  const std::string line = FirstCharacters(words + ' ' + BarText(*VisibleBar(**drawn)), kColumns);
  const std::size_t columns = text::CharacterCount(line);
  const std::size_t left_over = columns_on_screen_ > columns ? columns_on_screen_ - columns : 0;
  WriteError('\r' + line + std::string(left_over, ' '));
  columns_on_screen_ = columns + left_over;
  last_draw_ms_ = now;
}

void ProgressLine::Erase() {
  if (columns_on_screen_ == 0) return;
  WriteError('\r' + std::string(columns_on_screen_, ' ') + '\r');
  columns_on_screen_ = 0;
}

}  // namespace quarvel::platform::console
