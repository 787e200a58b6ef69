#include "mps/batch_names.h"

#include <string>
#include <string_view>

#include "text/prefetch.h"

namespace quarvel {
namespace {

static_assert(LineBatch::kReadable >= NameKey::kReadable);

// Which tokens of a line are names of rows, if there are so many.
constexpr std::size_t kFirstRow = 2;
constexpr std::size_t kSecondRow = 4;
// Which is a column's name, in COLUMNS and in BOUNDS.
constexpr std::size_t kColumn = 1;
constexpr std::size_t kBoundedColumn = 3;

}  // namespace

inline void BatchNames::Announce(std::size_t line, const TokenList& tokens, std::size_t token,
                                 const NameIndex& index) {
  const NameKey key = NameKey::OfPadded(tokens[token]);
  index.Prefetch(key);
  names_[line].Set(token, key);
  long_names_ = long_names_ || key.is_long();
}

void BatchNames::Announce(const LineBatch& batch, Section section, const ModelData& data) {
  long_names_ = false;
  switch (section) {
    case Section::kStart:
      break;
    case Section::kColumns:
      AnnounceColumns(batch, data.column_names);
      AnnounceRows(batch, data.row_names);
      break;
    case Section::kRows:
    case Section::kRhs:
    case Section::kRanges:
      for (std::size_t i = 0; i < batch.size(); ++i) names_[i].Clear(false);
      AnnounceRows(batch, data.row_names);
      break;
    case Section::kBounds:
      for (std::size_t i = 0; i < batch.size(); ++i) {
        names_[i].Clear(false);
        if (batch[i].tokens.count() >= kBoundedColumn) {
          Announce(i, batch[i].tokens, kBoundedColumn, data.column_names);
        }
      }
      break;
  }
  if (!long_names_) return;
  if (section == Section::kBounds) {
    AnnounceRecords(batch, data.column_names, data.Columns);
  } else {
    AnnounceRecords(batch, data.row_names, data.Rows);
  }
}

void BatchNames::AnnounceRows(const LineBatch& batch, const NameIndex& rows) {
  for (std::size_t i = 0; i < batch.size(); ++i) {
    const TokenList& tokens = batch[i].tokens;
    if (tokens.count() < kFirstRow) continue;
    Announce(i, tokens, kFirstRow, rows);
    if (tokens.count() > kSecondRow) Announce(i, tokens, kSecondRow, rows);
  }
}

// Most lines go on with the column of the line before.
void BatchNames::AnnounceColumns(const LineBatch& batch, const NameIndex& columns) {
  std::string_view before;
  for (std::size_t i = 0; i < batch.size(); ++i) {
    const TokenList& tokens = batch[i].tokens;
    const std::string_view name = tokens.count() < kColumn ? std::string_view() : tokens[kColumn];
    const bool goes_on = !name.empty() && NameKey::AreSamePadded(name, before);
    names_[i].Clear(goes_on);
    if (!goes_on && !name.empty()) Announce(i, tokens, kColumn, columns);
    before = name;
  }
}

template <class Record>
void BatchNames::AnnounceRecords(const LineBatch& batch, const NameIndex& index,
                                 const OneBased<Record>& records) const {
  std::array<const std::string*, LineBatch::kMost> found{};
  // Numbers may be out of date when the index is; such records need not be there.
  if (index.stale()) return;
  const auto record_of = [&](std::size_t line, std::size_t token) -> const std::string* {
    const NameKey* const key = names_[line].Find(token);
    if (key == nullptr || !key->is_long()) return nullptr;
    const std::int32_t number = index.Candidate(*key);
    return number < 1 || number > records.size() ? nullptr : &records[number].Name;
  };
  for (const std::size_t token : {kFirstRow, kBoundedColumn, kSecondRow}) {
    for (std::size_t i = 0; i < batch.size(); ++i) {
      found[i] = record_of(i, token);
      if (found[i] != nullptr) text::Prefetch(found[i]);
    }
    for (std::size_t i = 0; i < batch.size(); ++i) {
      if (found[i] != nullptr) text::Prefetch(found[i]->data());
    }
  }
}

}  // namespace quarvel
