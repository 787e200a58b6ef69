// The differences of two models as text: a line each, with - for what A has, + for what B has, and ! for
// what both have differently.
#pragma once

#include <string>
#include <string_view>

#include "hosts/diff_report.h"

namespace quarvel::hosts {

class DiffText : public DiffReport {
 public:
  using DiffReport::DiffReport;

  void Begin() override;
  void End() override;

 protected:
  void Print(const inspect::Difference& difference) override;

 private:
  void PrintLine(std::string_view line);
  std::string LineOf(const inspect::Difference& difference) const;
};

}  // namespace quarvel::hosts
