// The differences of two models as text: a line each, with - for what A has, + for what B has, and ! for
// what both have differently.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "hosts/diff_report.h"
#include "hosts/screen.h"

namespace quarvel::hosts {

class DiffText : public DiffReport {
 public:
  explicit DiffText(const DiffSides& sides)
      : DiffReport(sides), pen_(sides.a.arguments.color, sides.a.streams.screen) {}

  void Begin() override;
  void End() override;

 protected:
  void Print(const inspect::Difference& difference) override;

 private:
  void PrintLine(std::string_view line, std::optional<Ink> ink = std::nullopt);
  std::string LineOf(const inspect::Difference& difference) const;

  Pen pen_;
};

}  // namespace quarvel::hosts
