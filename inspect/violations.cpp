#include "inspect/violations.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace quarvel::inspect {
namespace {

// How far the value that was rounded to `digits` may be from this one.
double HalfUnit(double value, int digits) {
  if (digits == 0 || value == 0) return 0;
  return 0.5 * std::pow(10, std::floor(std::log10(std::fabs(value))) - digits + 1);
}

bool IsWorseViolation(const Violation& a, const Violation& b) {
  return std::tie(b.amount, a.kind, a.number) < std::tie(a.amount, b.kind, b.number);
}

double ValueOf(std::span<const double> values, std::int32_t column) {
  return values[static_cast<std::size_t>(column) - 1];
}

class ViolationSearch {
 public:
  ViolationSearch(const FeasibilityTolerance& tolerance, std::size_t kept)
      : tolerance_(tolerance), kept_(kept) {}

  // `rounding`: how far the value may be from what it was before it was rounded.
  void TryBounds(ViolationKind kind, std::int32_t number, const model::Bounds& bounds, double value,
                 double rounding) {
    if (model::HasLower(bounds.LowerBound)) {
      const double limit = bounds.LowerBound;
      Try({kind, number, value, limit, limit - value}, rounding);
    }
    if (model::HasUpper(bounds.UpperBound)) {
      const double limit = bounds.UpperBound;
      Try({kind, number, value, limit, value - limit}, rounding);
    }
  }

  void TryWhole(std::int32_t number, double value, double rounding) {
    const double whole = std::nearbyint(value);
    Try({ViolationKind::kIntegrality, number, value, whole, std::fabs(value - whole)}, rounding);
  }

  Violations Take() {
    std::sort_heap(found_.worst.begin(), found_.worst.end(), IsWorseViolation);
    return std::move(found_);
  }

 private:
  void Try(const Violation& violation, double rounding) {
    const double around = violation.kind == ViolationKind::kIntegrality
                              ? tolerance_.absolute
                              : tolerance_.Around(violation.limit);
    if (violation.amount <= around) return;
    if (violation.amount <= around + rounding) {
      ++found_.rounded;
      return;
    }
    ++Counter(violation.kind);
    Keep(violation);
  }

  std::int64_t& Counter(ViolationKind kind) {
    if (kind == ViolationKind::kRow) return found_.rows;
    return kind == ViolationKind::kBound ? found_.bounds : found_.integers;
  }

  // A heap with the least of them on top.
  void Keep(const Violation& violation) {
    std::vector<Violation>& worst = found_.worst;
    if (worst.size() == kept_) {
      if (kept_ == 0 || !IsWorseViolation(violation, worst.front())) return;
      std::pop_heap(worst.begin(), worst.end(), IsWorseViolation);
      worst.pop_back();
    }
    worst.push_back(violation);
    std::push_heap(worst.begin(), worst.end(), IsWorseViolation);
  }

  FeasibilityTolerance tolerance_;
  std::size_t kept_;
  Violations found_;
};

}  // namespace

double FeasibilityTolerance::Around(double limit) const {
  return std::max(absolute, relative * std::fabs(limit));
}

Violations FindViolations(const model::ModelStore& store, std::span<const double> values,
                          const FeasibilityTolerance& tolerance, int digits, std::size_t kept) {
  ViolationSearch search(tolerance, kept);
  const model::ModelData& data = store.data();
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    const model::RowRecord& row = data.Rows[r];
    double activity = 0;
    double rounding = 0;
    for (std::int32_t k = 1; k <= row.Elements.size(); ++k) {
      const model::ElementEntry& entry = row.Elements[k];
      const double value = ValueOf(values, entry.Index);
      activity += entry.Value * value;
      rounding += std::fabs(entry.Value) * HalfUnit(value, digits);
    }
    search.TryBounds(ViolationKind::kRow, r, row, activity, rounding);
  }
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    const model::ColumnRecord& column = data.Columns[c];
    const double value = ValueOf(values, c);
    const double rounding = HalfUnit(value, digits);
    search.TryBounds(ViolationKind::kBound, c, column, value, rounding);
    if (column.Type == model::ColumnType::kInteger || column.Type == model::ColumnType::kBinary) {
      search.TryWhole(c, value, rounding);
    }
  }
  return search.Take();
}

RowTerms TermsOf(const model::ModelStore& store, std::int32_t row, std::span<const double> values,
                 std::size_t most) {
  RowTerms result;
  const model::ElementList& elements = store.data().Rows[row].Elements;
  std::vector<std::pair<double, std::int32_t>>
      sizes;  // with the entry's place, negative: first first
  for (std::int32_t k = 1; k <= elements.size(); ++k) {
    const double size = std::fabs(elements[k].Value * ValueOf(values, elements[k].Index));
    if (size == 0) {
      ++result.zeros;
    } else {
      sizes.emplace_back(size, -k);
    }
  }
  std::sort(sizes.begin(), sizes.end(), std::greater<>());
  const std::size_t shown = std::min(most, sizes.size());
  std::sort(sizes.begin(), sizes.begin() + static_cast<std::ptrdiff_t>(shown),
            [](const auto& a, const auto& b) { return a.second > b.second; });
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const model::ElementEntry& entry = elements[-sizes[i].second];
    const double value = ValueOf(values, entry.Index);
    if (i < shown) {
      result.terms.push_back({entry.Index, entry.Value, value});
    } else {
      ++result.others;
      result.sum_of_others += entry.Value * value;
    }
  }
  return result;
}

}  // namespace quarvel::inspect
