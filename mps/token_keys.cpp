#include "mps/token_keys.h"

#include <string_view>

#include "text/prefetch.h"

namespace quarvel::mps {
namespace {

static_assert(LineBatch::kReadable >= model::NameKey::kReadable);

// Which tokens of a line are names of rows, if there are so many.
constexpr std::size_t kFirstRow = 2;
constexpr std::size_t kSecondRow = 4;
// Which is a column's name, in COLUMNS and in BOUNDS.
constexpr std::size_t kColumn = 1;
constexpr std::size_t kBoundedColumn = 3;

}  // namespace

inline void BatchKeys::MakeKey(std::size_t line, const TokenList& tokens, std::size_t token,
                               const model::NameIndex& index) {
  const model::NameKey key = model::NameKey::OfPadded(tokens[token]);
  index.Prefetch(key);
  keys_[line].Set(token, key);
  if (key.is_long()) long_names_[long_count_++] = {key, tokens[token].size(), nullptr};
}

void BatchKeys::Make(const LineBatch& batch, Section section, const model::ModelFill& fill) {
  long_count_ = 0;
  switch (section) {
    case Section::kStart:
      break;
    case Section::kColumns:
      MakeColumnKeys(batch, fill.column_names());
      long_count_ = 0;  // most of these columns are new
      MakeRowKeys(batch, fill.row_names());
      break;
    case Section::kRows:
    case Section::kRhs:
    case Section::kRanges:
      for (std::size_t i = 0; i < batch.size(); ++i) keys_[i].Clear(false);
      MakeRowKeys(batch, fill.row_names());
      break;
    case Section::kBounds:
      for (std::size_t i = 0; i < batch.size(); ++i) {
        keys_[i].Clear(false);
        if (batch[i].tokens.count() >= kBoundedColumn) {
          MakeKey(i, batch[i].tokens, kBoundedColumn, fill.column_names());
        }
      }
      break;
  }
  if (section == Section::kBounds) {
    PrefetchRecords(fill.column_names(), fill.data().Columns);
  } else {
    PrefetchRecords(fill.row_names(), fill.data().Rows);
  }
}

void BatchKeys::MakeRowKeys(const LineBatch& batch, const model::NameIndex& rows) {
  for (std::size_t i = 0; i < batch.size(); ++i) {
    const TokenList& tokens = batch[i].tokens;
    if (tokens.count() < kFirstRow) continue;
    MakeKey(i, tokens, kFirstRow, rows);
    if (tokens.count() > kSecondRow) MakeKey(i, tokens, kSecondRow, rows);
  }
}

// Most lines go on with the column of the line before.
void BatchKeys::MakeColumnKeys(const LineBatch& batch, const model::NameIndex& columns) {
  std::string_view before;
  for (std::size_t i = 0; i < batch.size(); ++i) {
    const TokenList& tokens = batch[i].tokens;
    const std::string_view name = tokens.count() < kColumn ? std::string_view() : tokens[kColumn];
    const bool goes_on = !name.empty() && model::NameKey::AreSamePadded(name, before);
    keys_[i].Clear(goes_on);
    if (!goes_on && !name.empty()) MakeKey(i, tokens, kColumn, columns);
    before = name;
  }
}

template <class Record>
void BatchKeys::PrefetchRecords(const model::NameIndex& index,
                                const model::OneBased<Record>& records) {
  // Numbers may be out of date when the index is; such records need not be there.
  if (index.stale()) return;
  for (std::size_t i = 0; i < long_count_; ++i) {
    LongName& name = long_names_[i];
    const std::int32_t number = index.Candidate(name.key);
    if (number < 1 || number > records.size()) continue;
    name.found = &records[number].Name;
    text::Prefetch(name.found, sizeof(model::NameText));
  }
  for (std::size_t i = 0; i < long_count_; ++i) {
    const LongName& name = long_names_[i];
    if (name.found != nullptr) text::Prefetch(name.found->data(), name.size);
  }
}

}  // namespace quarvel::mps
