// What a file would not give back of a model, as data, and the one place that puts it into words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/bounds.h"

namespace quarvel::mps {

// What it leads to, the worst first.
enum class LossWeight : std::uint8_t {
  kBreaks,   // the file is no model any more, or one of other records
  kChanges,  // limits or bounds read back as others, or reading stops at them
  kNoted,    // the model is the same to whoever solves it, but for digits
};

enum class LossKind : std::uint8_t {
  kListsDiffer,
  kEmptyName,
  kBlankInName,
  kLineEnd,
  kNotUtf8,
  kNameTwice,
  kMarkerName,
  kNoRowType,
  kNotFinite,
  kLongLine,

  kRowLimits,
  kColumnBounds,
  kReversed,
  kCommentName,
  kLimitOfEmpty,
  kEmptied,
  kColumnType,
  kSense,
  kConstant,
  kObjective,

  kEmptyRow,
  kEmptyColumn,
  kVanishes,
  kDigits,
  kColumnOrder,
  kElementOrder,
  kFreeRowLimits,
  kRowType,
  kNameCase,
  kModelName,
  kDescription,
  kSetName,
  kControlCharacter,
};

inline constexpr std::size_t kLossKinds = static_cast<std::size_t>(LossKind::kControlCharacter) + 1;

LossWeight WeightOf(LossKind kind);
// A short name that stays when the words change, such as "row-limits". Each kind has its own.
std::string_view NameOf(LossKind kind);

struct Loss {
  std::string_view what;    // "row", "column"; empty for the model as a whole
  std::int32_t number = 0;  // of that row or column, from 0
  std::string name;         // its name
  std::string words;        // what is so, as the end of a sentence

  // "row R1 (number 0) ..."
  std::string Sentence() const;
};

// All losses of one kind: every one is counted, the first few are named.
struct LossGroup {
  static constexpr std::size_t kNamed = 3;

  LossKind kind;
  std::int64_t count = 0;
  std::vector<Loss> named;
};

// "[0, inf]"
std::string IntervalText(const model::Bounds& bounds);

class Losses {
 public:
  // `make` gives the loss and is called only when it will be named.
  template <class Make>
  void Add(LossKind kind, const Make& make) {
    LossGroup& group = GroupOf(kind);
    if (group.named.size() < LossGroup::kNamed) group.named.push_back(make());
    ++group.count;
  }

  // Those that there are, in the order of the kinds, the worst first.
  const std::vector<LossGroup>& groups() const { return groups_; }
  std::int64_t CountOf(LossKind kind) const;
  bool Has(LossWeight weight) const;

 private:
  LossGroup& GroupOf(LossKind kind);

  std::vector<LossGroup> groups_;
};

}  // namespace quarvel::mps
