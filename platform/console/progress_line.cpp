#include "platform/console/progress_line.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>
#include <string_view>

#include "platform/console/console_controls.h"
#include "platform/console/console_system.h"
#include "platform/console/console_text.h"
#include "text/cell_width.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::platform::console {
namespace {

// A terminal shows "^C" where the cursor stands when Ctrl-C is pressed.
constexpr std::size_t kEchoColumns = 2;
constexpr std::size_t kMostColumns = 79;
constexpr std::size_t kBarColumns = 30;
constexpr std::size_t kLeastBarColumns = 8;
constexpr std::int64_t kMillisecondsBetweenDraws = 50;
// What so little of the work took says nothing about the rest.
constexpr double kLeastPart = 0.02;

double PartOf(const ProgressBar& bar) {
  const float range = bar.max() - bar.min();
  return range > 0 ? static_cast<double>((bar.value() - bar.min()) / range) : 0;
}

// As long as there is room for behind those words; empty where there is hardly any.
std::string BarBehind(const std::string& words, double part, std::size_t room) {
  const std::size_t taken = text::CellCount(words) + std::string_view(" []").size();
  if (taken + kLeastBarColumns > room) return {};
  const std::size_t columns = std::min(kBarColumns, room - taken);
  const auto done = static_cast<std::size_t>(part * static_cast<double>(columns));
  const std::size_t filled = std::min(done, columns);
  return " [" + std::string(filled, '#') + std::string(columns - filled, '.') + ']';
}

// Of the line. It must not reach the last cell of the terminal, behind which the next line begins.
std::size_t Room() {
  const std::size_t width = ErrorSize().width;
  const std::size_t columns = width == 0 ? kMostColumns : std::min(kMostColumns, width - 1);
  return columns > kEchoColumns ? columns - kEchoColumns : 0;
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
  Follow(**drawn, *VisibleBar(**drawn), now);
  if (now - work_.first_ms < delay_ms_) return;
  std::string words = text::VisibleText((*drawn)->caption());
  const std::string left = TimeLeft(now);
  if (!left.empty()) words += ", " + left;
  const std::size_t room = Room();
  const std::string line = text::CutToCells(words + BarBehind(words, work_.part, room), room);
  const std::size_t columns = text::CellCount(line);
  const std::size_t left_over = columns_on_screen_ > columns ? columns_on_screen_ - columns : 0;
  WriteError('\r' + line + std::string(left_over, ' '));
  columns_on_screen_ = columns + left_over;
  last_draw_ms_ = now;
}

void ProgressLine::Follow(const Form& form, const ProgressBar& bar, std::int64_t now) {
  const double part = PartOf(bar);
  const bool is_other = work_.form != &form;
  if (is_other) work_ = {.form = &form, .first_ms = now};
  if (is_other || part < work_.part) {
    work_.begun_ms = now;
    work_.part_at_begin = part;
  }
  work_.part = part;
}

std::string ProgressLine::TimeLeft(std::int64_t now) const {
  const double done = work_.part - work_.part_at_begin;
  const auto elapsed = static_cast<double>(now - work_.begun_ms);
  if (done < kLeastPart || elapsed < static_cast<double>(kUsualDelay)) return {};
  constexpr double kSecond = 1000;
  constexpr std::int64_t kMinute = 60;
  const double left = elapsed * (1 - work_.part) / done;
  const auto seconds = static_cast<std::int64_t>(std::ceil(left / kSecond));
  if (seconds < 2 * kMinute) return text::IntegerText(seconds) + " s left";
  return text::IntegerText((seconds + kMinute - 1) / kMinute) + " min left";
}

void ProgressLine::Erase() {
  if (columns_on_screen_ == 0) return;
  WriteError('\r' + std::string(columns_on_screen_ + kEchoColumns, ' ') + '\r');
  columns_on_screen_ = 0;
}

void ProgressLine::Expect(const Form& form) {
  const std::int64_t now = MillisecondsNow();
  work_ = {.form = &form, .first_ms = now, .begun_ms = now};
}

void ProgressLine::Forget(const Form& form) {
  Erase();
  if (work_.form == &form) work_ = {};
}

}  // namespace quarvel::platform::console
