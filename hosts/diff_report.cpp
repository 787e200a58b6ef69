#include "hosts/diff_report.h"

#include "hosts/diff_json.h"
#include "hosts/diff_text.h"

namespace quarvel::hosts {
namespace {

// Large models may differ in each of their coefficients.
constexpr std::int64_t kDiffLimit = 20;

class NoReport : public DiffReport {
 public:
  using DiffReport::DiffReport;

  void Begin() override {}
  void End() override {}

 protected:
  void Print(const inspect::Difference&) override {}
};

}  // namespace

DiffReport::DiffReport(const DiffSides& sides)
    : sides_(sides),
      limit_((sides.a.arguments.used & kLimit) != 0 ? sides.a.arguments.limit : kDiffLimit) {}

void DiffReport::Add(const inspect::Difference& difference) {
  differences_.Add(difference);
  if (inspect::IsNote(difference.kind)) return;
  if (differences_.CountOf(difference.kind) > limit_) {
    ++unlisted_;
  } else if (sides_.a.KeepPrinting()) {
    Print(difference);
  }
}

std::unique_ptr<DiffReport> MakeDiffReport(const DiffSides& sides) {
  if (sides.a.arguments.quiet) return std::make_unique<NoReport>(sides);
  if (sides.a.arguments.json) return std::make_unique<DiffJson>(sides);
  return std::make_unique<DiffText>(sides);
}

}  // namespace quarvel::hosts
