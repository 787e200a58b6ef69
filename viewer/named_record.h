// Records and elements that a command or a dialog has named to its user. While a box is open, a
// host may change or delete anything; what was named is acted on only while it is still there,
// under its number and its name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/record_kind.h"

namespace quarvel::viewer {

struct NamedRecord {
  static NamedRecord Of(const model::ModelQueries& model, const model::RecordKind& kind,
                        std::int32_t number);
  bool IsIn(const model::ModelQueries& model) const;

  const model::RecordKind* kind = nullptr;
  std::int32_t number = 0;
  std::string name = {};
};

// The place in the row's list of its element at the column: the first one, as for every look-up of
// a coefficient; nothing without one. Walks that list.
std::optional<std::int32_t> PlaceInRow(const model::ModelQueries& model, std::int32_t row,
                                       std::int32_t column);

struct NamedElement {
  // The element that stands at `line` of a record's list; nothing when there is none.
  static std::optional<NamedElement> At(const model::ModelQueries& model,
                                        const model::RecordKind& kind, std::int32_t number,
                                        std::int32_t line);
  bool IsIn(const model::ModelQueries& model) const;
  const NamedRecord& Of(const model::RecordKind& kind) const {
    return &kind == &model::kRowKind ? row : column;
  }

  NamedRecord row;
  NamedRecord column;
  std::int32_t place = 0;  // in the row's list
};

// What is said when a record is needed and none is chosen, or the chosen one is gone.
std::string NoneSelectedText(const model::RecordKind& kind);

}  // namespace quarvel::viewer
