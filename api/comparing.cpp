#include "api/parts.h"
#include "inspect/compare.h"
#include "mps/exact_limits.h"
#include "quarvel/compare.h"

namespace quarvel {
namespace {

// With the objective by its name also where the first free row is it.
mps::FileFacts FactsOf(const ModelParts& parts) {
  mps::FileFacts facts = parts.facts;
  const model::ModelData& data = parts.store.data();
  const std::int32_t objective = mps::ObjectiveOf(data, facts);
  facts.objective = objective == 0 ? std::string() : data.Rows[objective].Name;
  return facts;
}

Difference PublicDifference(const inspect::Difference& difference) {
  return {.kind = inspect::NameOf(difference.kind),
          .is_note = inspect::IsNote(difference.kind),
          .row_in_a = model::Public(difference.row.a),
          .row_in_b = model::Public(difference.row.b),
          .column_in_a = model::Public(difference.column.a),
          .column_in_b = model::Public(difference.column.b),
          .before = difference.before,
          .after = difference.after};
}

}  // namespace

std::int64_t Compare(const Model& a, const Model& b, const Tolerance& tolerance,
                     const std::function<void(const Difference&)>& visit) {
  // Also when it is not a number.
  if (!(tolerance.absolute >= 0 && tolerance.relative >= 0)) {
    throw Error(ErrorCode::kValue, "A tolerance is negative");
  }
  const ModelParts& of_a = ModelAccess::Of(a);
  const ModelParts& of_b = ModelAccess::Of(b);
  const inspect::Tolerance inner = {tolerance.absolute, tolerance.relative};
  std::int64_t count = 0;
  const auto hear = [&](const inspect::Difference& difference) {
    if (!inspect::IsNote(difference.kind)) ++count;
    if (visit) visit(PublicDifference(difference));
  };
  api::Translated([&] {
    inspect::CompareFacts(FactsOf(of_a), FactsOf(of_b), inner, hear);
    inspect::Compare(of_a.store, of_b.store, inner, hear);
  });
  return count;
}

}  // namespace quarvel
