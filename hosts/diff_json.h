// The differences of two models as JSON.
#pragma once

#include <string>

#include "hosts/diff_report.h"

namespace quarvel::hosts {

class DiffJson : public DiffReport {
 public:
  using DiffReport::DiffReport;

  void Begin() override;
  void End() override;

 protected:
  void Print(const inspect::Difference& difference) override;

 private:
  // The members of a difference behind its kind and names.
  void AppendValues(std::string& json, const inspect::Difference& difference) const;

  bool printed_ = false;
};

}  // namespace quarvel::hosts
