#include "mps/fact_losses.h"

#include <cstdint>
#include <string>
#include <string_view>

#include "model/record_number.h"
#include "mps/exact_limits.h"
#include "mps/exact_writer.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

using model::ModelData;
using model::RowType;

void Add(Losses& losses, LossKind kind, const std::string& words) {
  losses.Add(kind, [&words] { return Loss{{}, 0, {}, words}; });
}

// The row that the component's file has as its first of type N.
std::int32_t FirstFreeWritten(const ModelData& data) {
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
    if (data.Rows[i].Type == RowType::kFree && data.Rows[i].ElementCount() > 0) return i;
  }
  return 0;
}

void AddObjectiveLoss(const ModelData& data, const FileFacts& facts, Losses& losses) {
  const std::int32_t objective = ObjectiveOf(data, facts);
  const std::int32_t written = FirstFreeWritten(data);
  if (written == 0 || written == objective) return;
  losses.Add(LossKind::kObjective, [&] {
    return Loss{
        "row", model::Public(written), data.Rows[written].Name,
        "is the first of type N in the file and would be taken for the objective, which is " +
            data.Rows[objective].Name};
  });
}

void AddSetLoss(const std::string& own, std::string_view written, Losses& losses) {
  if (own.empty() || own == written) return;
  losses.Add(LossKind::kSetName, [&] {
    return Loss{{}, 0, own, "the set " + own + " is called " + std::string(written)};
  });
}

void AddFreeSetLoss(const std::string& own, std::string_view usual, bool may_have_blanks,
                    Losses& losses) {
  if (!may_have_blanks && own.find(' ') != own.npos) AddSetLoss(own, usual, losses);
}

}  // namespace

void AddFactLosses(const model::ModelStore& store, const FileFacts& facts, FileLayout layout,
                   Losses& losses) {
  const ModelData& data = store.data();
  if (layout == FileLayout::kFree) {
    const bool blanks = NeedsFixedColumns(data);
    AddFreeSetLoss(facts.rhs_set, kRhsSet, blanks, losses);
    AddFreeSetLoss(facts.ranges_set, kRangesSet, blanks, losses);
    AddFreeSetLoss(facts.bounds_set, kBoundsSet, blanks, losses);
    return;
  }
  if (facts.sense == ObjectiveSense::kMaximize) {
    Add(losses, LossKind::kSense,
        "the objective is to be maximized, which the file does not say; --layout free does");
  }
  if (facts.objective_constant != 0) {
    Add(losses, LossKind::kConstant,
        "the objective's constant " + text::RoundTripText(facts.objective_constant) +
            " is left out; --layout free keeps it");
  }
  AddObjectiveLoss(data, facts, losses);
  AddSetLoss(facts.rhs_set, kRhsSet, losses);
  AddSetLoss(facts.ranges_set, kRangesSet, losses);
  AddSetLoss(facts.bounds_set, kBoundsSet, losses);
}

}  // namespace quarvel::mps
