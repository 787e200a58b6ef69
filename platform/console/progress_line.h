// The one line of a terminal on which progress is redrawn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/basic_controls.h"
#include "platform/form.h"

namespace quarvel::platform::console {

class ProgressLine {
 public:
  static constexpr std::int64_t kUsualDelay = 500;

  explicit ProgressLine(bool enabled) : enabled_(enabled) {}
  ~ProgressLine() { Erase(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  // False where a line cannot be redrawn: nothing is written then.
  bool enabled() const { return enabled_; }
  void set_enabled(bool enabled) { enabled_ = enabled; }
  // In milliseconds: what takes less than that shows nothing.
  void set_delay(std::int64_t delay) { delay_ms_ = delay; }

  // Caption and bar of the topmost of `shown` (which comes last) that has one, between them how long it will
  // take yet once that can be said. A call that comes too soon, after the form was shown or after the last
  // drawing, does nothing.
  void Draw(std::span<Form* const> shown);
  // A form is shown: its work begins.
  void Expect(const Form& form);
  // Makes room for other text.
  void Erase();
  // The same for good, as that form goes; another one may have its place in memory.
  void Forget(const Form& form);

 private:
  // The work whose progress is shown: that of a form, a stage until its bar goes back.
  struct Work {
    const Form* form = nullptr;
    std::int64_t first_ms = 0;
    std::int64_t begun_ms = 0;  // of the stage
    double part_at_begin = 0;
    double part = 0;
  };
  void Follow(const Form& form, const ProgressBar& bar, std::int64_t now);
  // "12 s left"; empty while nobody can say.
  std::string TimeLeft(std::int64_t now) const;

  bool enabled_;
  std::int64_t delay_ms_ = kUsualDelay;
  Work work_;
  std::size_t columns_on_screen_ = 0;  // 0 when the line is not there
  std::int64_t last_draw_ms_ = 0;
};

}  // namespace quarvel::platform::console
