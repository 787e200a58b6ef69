#include "hosts/progress_window.h"

#include <array>
#include <cmath>
#include <utility>

#include "text/numbers.h"
#include "text/picture.h"

namespace quarvel::hosts {
namespace {

// Nobody has a rate before.
constexpr double kSecondsToRate = 0.5;

}  // namespace

ProgressWindow::ProgressWindow(platform::Desktop& desktop, std::string words)
    : desktop_(desktop), words_(std::move(words)), window_(desktop) {
  window_.Load();
  window_.set_caption(words_);
  window_.Show();
}

ProgressWindow::~ProgressWindow() {
  if (window_.IsLoaded()) window_.Finish();
}

bool ProgressWindow::Update(std::uint64_t bytes, std::optional<double> part) {
  window_.bar.set_range(0, 1);
  window_.bar.set_value(static_cast<float>(part.value_or(0)));
  window_.set_caption(Caption(bytes, part));
  desktop_.DoEvents();
  return !window_.StopRequested;
}

std::string ProgressWindow::Caption(std::uint64_t bytes, std::optional<double> part) const {
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begun_;
  const auto done = static_cast<double>(bytes);
  std::string caption = words_ + " (" + (part ? text::PercentText(*part) : BytesText(done));
  if (elapsed.count() >= kSecondsToRate) caption += ", " + BytesText(done / elapsed.count()) + "/s";
  return caption + ')';
}

std::string BytesText(double bytes) {
  constexpr std::array<const char*, 4> kUnits = {" bytes", " KB", " MB", " GB"};
  std::size_t unit = 0;
  while (bytes >= 999.5 && unit + 1 < kUnits.size()) {
    bytes /= 1000;
    ++unit;
  }
  const bool has_tenths = unit > 0 && bytes < 9.95;
  const double shown = has_tenths ? std::round(bytes * 10) / 10 : std::round(bytes);
  return text::GeneralText(shown) + kUnits[unit];
}

}  // namespace quarvel::hosts
