#include "mps/loss.h"

#include <algorithm>
#include <array>

#include "text/numbers.h"
#include "text/shortened_text.h"

namespace quarvel::mps {
namespace {

struct KindTraits {
  LossKind kind;
  LossWeight weight;
  std::string_view name;
};

// In a sentence.
constexpr std::size_t kLongestName = 100;
constexpr std::size_t kLongestWords = 400;

using enum LossKind;
using enum LossWeight;
constexpr std::array<KindTraits, kLossKinds> kKinds = {{
    {kListsDiffer, kBreaks, "lists-differ"},
    {kEmptyName, kBreaks, "empty-name"},
    {kBlankInName, kBreaks, "blank-in-name"},
    {kLineEnd, kBreaks, "line-end"},
    {kNotUtf8, kBreaks, "not-utf-8"},
    {kNameTwice, kBreaks, "name-twice"},
    {kMarkerName, kBreaks, "marker-name"},
    {kNoRowType, kBreaks, "no-row-type"},
    {kNotFinite, kBreaks, "not-finite"},
    {kLongLine, kBreaks, "long-line"},
    {kRowLimits, kChanges, "row-limits"},
    {kColumnBounds, kChanges, "column-bounds"},
    {kReversed, kChanges, "reversed"},
    {kCommentName, kChanges, "comment-name"},
    {kLimitOfEmpty, kChanges, "limit-of-empty"},
    {kEmptied, kChanges, "emptied"},
    {kColumnType, kChanges, "column-type"},
    {kSense, kChanges, "sense"},
    {kConstant, kChanges, "constant"},
    {kObjective, kChanges, "objective"},
    {kEmptyRow, kNoted, "empty-row"},
    {kEmptyColumn, kNoted, "empty-column"},
    {kVanishes, kNoted, "vanishes"},
    {kDigits, kNoted, "digits"},
    {kColumnOrder, kNoted, "column-order"},
    {kElementOrder, kNoted, "element-order"},
    {kFreeRowLimits, kNoted, "free-row-limits"},
    {kRowType, kNoted, "row-type"},
    {kNameCase, kNoted, "name-case"},
    {kModelName, kNoted, "model-name"},
    {kDescription, kNoted, "description"},
    {kSetName, kNoted, "set-name"},
    {kControlCharacter, kNoted, "control-character"},
}};

// What is absent by being stored as `absent`; what is absent and another number stays in sight.
std::string BoundWord(double bound, double absent) {
  if (bound != absent) return text::RoundTripText(bound);
  return absent < 0 ? "-inf" : "inf";
}

// A kind is the place of its line.
constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (static_cast<std::size_t>(kKinds[i].kind) != i) return false;
  }
  return true;
}
static_assert(IsInOrder());

}  // namespace

LossWeight WeightOf(LossKind kind) { return kKinds[static_cast<std::size_t>(kind)].weight; }

std::string_view NameOf(LossKind kind) { return kKinds[static_cast<std::size_t>(kind)].name; }

std::string Loss::Sentence() const {
  if (what.empty()) return words;
  std::string sentence(what);
  sentence.append(" ")
      .append(text::Shortened(name, kLongestName))
      .append(" (number ")
      .append(text::IntegerText(number));
  return sentence.append(") ").append(text::Shortened(words, kLongestWords));
}

std::string IntervalText(const model::Bounds& bounds) {
  return '[' + BoundWord(bounds.LowerBound, -model::BoundLimit) + ", " +
         BoundWord(bounds.UpperBound, model::BoundLimit) + ']';
}

LossGroup& Losses::GroupOf(LossKind kind) {
  const auto place =
      std::lower_bound(groups_.begin(), groups_.end(), kind,
                       [](const LossGroup& group, LossKind wanted) { return group.kind < wanted; });
  if (place != groups_.end() && place->kind == kind) return *place;
  return *groups_.insert(place, LossGroup{kind, 0, {}});
}

std::int64_t Losses::CountOf(LossKind kind) const {
  const auto found = std::find_if(groups_.begin(), groups_.end(),
                                  [kind](const LossGroup& group) { return group.kind == kind; });
  return found == groups_.end() ? 0 : found->count;
}

bool Losses::Has(LossWeight weight) const {
  return std::any_of(groups_.begin(), groups_.end(),
                     [weight](const LossGroup& group) { return WeightOf(group.kind) == weight; });
}

}  // namespace quarvel::mps
