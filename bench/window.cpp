// What a progress window adds to a read: bench_window FILE [RUNS]. Each run reads the file without
// a window and with one on the desktop of this system, one after the other; the medians and their
// ratio are printed.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "bench/bench_desktop.h"
#include "bench/stopwatch.h"
#include "component/lp_model.h"
#ifdef _WIN32
#include "hosts/viewer_desktop.h"
#else
#include "platform/qt/qt_desktop.h"
#endif

namespace quarvel::bench {
namespace {

constexpr int kRuns = 7;
constexpr double kMostTimes = 1.15;
#ifdef _WIN32
constexpr auto MakeDesktop = hosts::MakeViewerDesktop;
#else
constexpr auto MakeDesktop = platform::MakeQtDesktop;
#endif

// Shows the progress window on a real desktop, and nothing else.
class WindowDesktop : public BenchDesktop {
 public:
  explicit WindowDesktop(platform::Desktop& windows) : windows_(windows) {}

  int shown() const { return shown_; }
  void DoEvents() override { windows_.DoEvents(); }
  std::unique_ptr<platform::FormPeer> Draw(platform::Form& form, bool modal) override {
    if (!IsProgress(form)) return BenchDesktop::Draw(form, modal);
    ++shown_;
    return windows_.Draw(form, modal);
  }
  void PumpUntilClosed(const platform::Showing& showing) override {
    if (!IsProgress(*showing.form)) return BenchDesktop::PumpUntilClosed(showing);
    windows_.PumpUntilClosed(showing);
  }

 private:
  static bool IsProgress(const platform::Form& form) { return form.name() == "frmProgress"; }

  platform::Desktop& windows_;
  int shown_ = 0;
};

double Read(BenchDesktop& desktop, const std::string& file) {
  desktop.file = file;
  LPModel model(desktop);
  int status = 0;
  const double seconds = SecondsOf([&] { status = model.ReadMPSFile(); });
  if (status == -1) return seconds;
  std::fprintf(stderr, "bench_window: %s cannot be read\n", file.c_str());
  std::exit(1);
}

double Median(std::vector<double> seconds) {
  const auto middle = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
  std::nth_element(seconds.begin(), middle, seconds.end());
  return *middle;
}

int Measure(const std::string& file, int runs) {
  const std::unique_ptr<platform::Desktop> windows = MakeDesktop();
  if (windows == nullptr) {
    std::fprintf(stderr, "bench_window: there is no display to show a window on\n");
    return 1;
  }
  BenchDesktop plain;
  WindowDesktop shown(*windows);
  std::vector<double> without;
  std::vector<double> with;
  for (int run = 0; run < runs; ++run) {
    without.push_back(Read(plain, file));
    with.push_back(Read(shown, file));
  }
  if (shown.shown() != runs) {
    std::fprintf(stderr, "bench_window: the window was shown %d times\n", shown.shown());
    return 1;
  }
  const double ratio = Median(with) / Median(without);
  std::printf("without a window %.3f s, with %.3f s: %.2f times (mark: at most %.2f)\n",
              Median(without), Median(with), ratio, kMostTimes);
  return ratio <= kMostTimes ? 0 : 1;
}

}  // namespace
}  // namespace quarvel::bench

int main(int argc, char** argv) {
  const int runs = argc > 2 ? std::atoi(argv[2]) : quarvel::bench::kRuns;
  if (argc < 2 || runs < 1) {
    std::fprintf(stderr, "usage: bench_window FILE [RUNS]\n");
    return 2;
  }
  try {
    return quarvel::bench::Measure(argv[1], runs);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_window: %s\n", failure.what());
    return 1;
  }
}
