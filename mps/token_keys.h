// The keys of the tokens that a batch of lines will look up as names.
//
// Rows come in any order, so that finding a row's name waits for memory longer than all else a line
// takes. When a batch has been taken apart, the keys of its names are made and the buckets where
// they are looked for are prefetched, all of them side by side; when the lines are used a moment
// later, the buckets are there. A name too long for its slot is compared with the record, so the
// record and then its text are prefetched too.
//
// All of this only hints. A line that a host's events change the meaning of, or a new section in
// the middle of a batch, finds its names where they are then. A token whose key has not been made
// has it made by NameKey::Of, which gives the same (tests/model/name_key_test.cpp); a read with
// prefetched keys and one without are compared line by line in tests/mps/line_source_test.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "model/model_fill.h"
#include "model/name_key.h"
#include "mps/line_batch.h"
#include "mps/section.h"

namespace quarvel::mps {

// What is known of the tokens of one line.
class TokenKeys {
 public:
  // The key of that token, null when it has not been made.
  const model::NameKey* Find(std::size_t token) const {
    return (known_ >> token & 1) != 0 ? &keys_[token - 1] : nullptr;
  }
  // True when the first token is that of the line before.
  bool goes_on() const { return (known_ & 1) != 0; }

  void Clear(bool goes_on) { known_ = unsigned{goes_on}; }
  void Set(std::size_t token, const model::NameKey& key) {
    known_ |= 1u << token;
    keys_[token - 1] = key;
  }

 private:
  std::array<model::NameKey, TokenList::kKept> keys_;
  unsigned known_ = 0;  // bit i stands for token i
};

class BatchKeys {
 public:
  // Makes the keys of a batch that stands in that section and prefetches what they lead to.
  void Make(const LineBatch& batch, Section section, const model::ModelFill& fill);

  const TokenKeys& operator[](std::size_t line) const { return keys_[line]; }

 private:
  void MakeRowKeys(const LineBatch& batch, const model::NameIndex& rows);
  void MakeColumnKeys(const LineBatch& batch, const model::NameIndex& columns);
  void MakeKey(std::size_t line, const TokenList& tokens, std::size_t token,
               const model::NameIndex& index);
  template <class Record>
  void PrefetchRecords(const model::NameIndex& index, const model::OneBased<Record>& records);

  // A key that is compared with a record, and that record's name once it is known.
  struct LongName {
    model::NameKey key;
    std::size_t size = 0;
    const model::NameText* found = nullptr;
  };

  std::array<TokenKeys, LineBatch::kMost> keys_;
  std::array<LongName, 2 * LineBatch::kMost> long_names_;
  std::size_t long_count_ = 0;
};

}  // namespace quarvel::mps
