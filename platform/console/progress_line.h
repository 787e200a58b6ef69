// The one line of a terminal on which progress is redrawn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/form.h"

namespace quarvel::platform::console {

class ProgressLine {
 public:
  explicit ProgressLine(bool enabled) : enabled_(enabled) {}
  ~ProgressLine() { Erase(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  // False where a line cannot be redrawn: nothing is written then.
  bool enabled() const { return enabled_; }
  void set_enabled(bool enabled) { enabled_ = enabled; }

  // Caption and bar of the topmost of `shown` (which comes last) that has one. A call that comes too
  // soon after the last drawing does nothing.
  void Draw(std::span<Form* const> shown);
  // Makes room for other text.
  void Erase();

 private:
  bool enabled_;
  std::size_t columns_on_screen_ = 0;  // 0 when the line is not there
  std::int64_t last_draw_ms_ = 0;
};

}  // namespace quarvel::platform::console
