// The progress window of one stage of a command: what is done, how far, and how fast. It goes with this
// object.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "mps/frm_progress.h"
#include "platform/desktop.h"

namespace quarvel::hosts {

class ProgressWindow {
 public:
  // `words`: "Reading plan.mps". The desktop must outlive this.
  ProgressWindow(platform::Desktop& desktop, std::string words);
  ~ProgressWindow();
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;

  // So many bytes are done, which is that part of all (0 to 1), if that is known. Lets events run; false
  // once the user has stopped the work.
  bool Update(std::uint64_t bytes, std::optional<double> part);
  bool stopped() const { return window_.StopRequested; }

 private:
  std::string Caption(std::uint64_t bytes, std::optional<double> part) const;

  platform::Desktop& desktop_;
  std::string words_;
  mps::frmProgress window_;
  std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
};

// What part of all it is; nothing where that is not known (0).
inline std::optional<double> PartOf(std::uint64_t done, std::uint64_t all) {
  if (all == 0) return std::nullopt;
  return static_cast<double>(done) / static_cast<double>(all);
}

// "34 MB", "1.5 GB": so many bytes, for people.
std::string BytesText(double bytes);

}  // namespace quarvel::hosts
