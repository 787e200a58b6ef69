#include "inspect/difference.h"

namespace quarvel::inspect {
namespace {

struct KindTraits {
  DifferenceKind kind;
  std::string_view name;
  bool note = false;
};

constexpr std::array<KindTraits, kDifferenceKinds> kKinds = {{
    {DifferenceKind::kModelName, "model-name"},
    {DifferenceKind::kDescription, "description"},
    {DifferenceKind::kObjectiveSense, "objective-sense"},
    {DifferenceKind::kObjective, "objective"},
    {DifferenceKind::kObjectiveConstant, "objective-constant"},
    {DifferenceKind::kRowWent, "row-went"},
    {DifferenceKind::kRowCame, "row-came"},
    {DifferenceKind::kRowType, "row-type"},
    {DifferenceKind::kRowLower, "row-lower"},
    {DifferenceKind::kRowUpper, "row-upper"},
    {DifferenceKind::kColumnWent, "column-went"},
    {DifferenceKind::kColumnCame, "column-came"},
    {DifferenceKind::kColumnType, "column-type"},
    {DifferenceKind::kColumnLower, "column-lower"},
    {DifferenceKind::kColumnUpper, "column-upper"},
    {DifferenceKind::kElementWent, "element-went"},
    {DifferenceKind::kElementCame, "element-came"},
    {DifferenceKind::kElementValue, "element-value"},
    {DifferenceKind::kRowOrder, "row-order", true},
    {DifferenceKind::kColumnOrder, "column-order", true},
    {DifferenceKind::kElementOrder, "element-order", true},
}};

const KindTraits& TraitsOf(DifferenceKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

}  // namespace

std::string_view NameOf(DifferenceKind kind) { return TraitsOf(kind).name; }

bool IsNote(DifferenceKind kind) { return TraitsOf(kind).note; }

void Differences::Add(const Difference& difference) {
  Kind& kind = kinds_[static_cast<std::size_t>(difference.kind)];
  if (kind.first.size() < kept_of_each_) kind.first.push_back(difference);
  ++kind.count;
  if (!IsNote(difference.kind)) ++count_;
}

}  // namespace quarvel::inspect
