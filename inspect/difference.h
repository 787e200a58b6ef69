// One difference of two models, A and B, as data, and the counts of all of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quarvel::inspect {

// In the order in which lists tell of them.
enum class DifferenceKind : std::uint8_t {
  kModelName,
  kDescription,
  kObjectiveSense,
  kObjective,  // another row is it
  kObjectiveConstant,

  kRowWent,  // A has it, B has not
  kRowCame,  // B has it, A has not
  kRowType,
  kRowLower,
  kRowUpper,

  kColumnWent,
  kColumnCame,
  kColumnType,
  kColumnLower,
  kColumnUpper,

  kElementWent,
  kElementCame,
  kElementValue,

  kRowOrder,
  kColumnOrder,
  kElementOrder,
};

inline constexpr std::size_t kDifferenceKinds =
    static_cast<std::size_t>(DifferenceKind::kElementOrder) + 1;

// A short name that stays when words change, such as "row-went". Each kind has its own.
std::string_view NameOf(DifferenceKind kind);
// A note tells of what makes no other model: in which order records and coefficients stand.
bool IsNote(DifferenceKind kind);

// The numbers of one record in A and in B, from 1; 0 where it is not.
struct RecordPair {
  std::int32_t a = 0;
  std::int32_t b = 0;
  bool operator==(const RecordPair&) const = default;
};

struct Difference {
  DifferenceKind kind;
  // Of what differs: a row, a column, or both for a coefficient.
  RecordPair row = {};
  RecordPair column = {};
  // The number in A and in B, 0 where there is none. Types and texts stand in the models and facts.
  double before = 0;
  double after = 0;
  bool operator==(const Difference&) const = default;
};

// Every difference is counted, the first few of each kind are kept.
class Differences {
 public:
  explicit Differences(std::size_t kept_of_each) : kept_of_each_(kept_of_each) {}

  void Add(const Difference& difference);

  std::int64_t CountOf(DifferenceKind kind) const { return OfKind(kind).count; }
  std::span<const Difference> FirstOf(DifferenceKind kind) const { return OfKind(kind).first; }
  // How many there are, notes left out.
  std::int64_t count() const { return count_; }
  // The models are the same but for what is noted.
  bool none() const { return count_ == 0; }

 private:
  struct Kind {
    std::int64_t count = 0;
    std::vector<Difference> first;
  };
  const Kind& OfKind(DifferenceKind kind) const { return kinds_[static_cast<std::size_t>(kind)]; }

  std::size_t kept_of_each_;
  std::int64_t count_ = 0;
  std::array<Kind, kDifferenceKinds> kinds_;
};

}  // namespace quarvel::inspect
