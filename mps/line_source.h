// Where the lines of a read come from: one after the other, taken apart, with the keys of their
// names where those are known ahead.
//
// From ROWS on plain lines come out of batches (LineBatch), whose names are prefetched (BatchKeys);
// any other line is read and taken apart alone (LineReader, Tokens). Both ways give the same lines:
// tests/mps/line_batch_test.cpp holds the batches to it, tests/mps/line_source_test.cpp the source.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "model/model_fill.h"
#include "mps/line_batch.h"
#include "mps/line_reader.h"
#include "mps/section.h"
#include "mps/token_keys.h"
#include "mps/tokens.h"
#include "text/padded_number.h"

namespace quarvel::mps {

// The line at hand. What it gives out is valid until the next one.
class SourceLine {
 public:
  std::int64_t number() const { return number_; }
  bool too_long() const { return line_ == &alone_ && too_long_; }
  // As it stands in the file, or in upper case; the first character is the same kind in both.
  std::string_view text() const { return {line_->text, line_->size}; }

  // A line out of a batch is split, one that comes alone is not: Split makes its tokens, which are
  // in upper case. Before that the text is that of the file.
  bool is_split() const { return line_ != &alone_ || alone_is_split_; }
  void Split();
  // Of a line that is split. Tokens are numbered from 1; those beyond TokenList::kKept are counted
  // only.
  std::size_t token_count() const { return line_->tokens.count(); }
  std::string_view operator[](std::size_t token) const { return line_->tokens[token]; }
  model::NameKey Key(std::size_t token) const {
    const model::NameKey* const key = KnownKey(token);
    return key != nullptr ? *key : model::NameKey::Of(line_->tokens[token]);
  }
  // Null when it has not been made. What may be long at hand is not copied in the busiest place.
  const model::NameKey* KnownKey(std::size_t token) const { return keys_->Find(token); }
  // The number that the token is, ahead of its use or now; false when it is none.
  bool Number(std::size_t token, double& value) const {
    return line_->FindValue(token, value) || text::ParsePaddedNumber(line_->tokens[token], value);
  }
  // True only when the first token is that of the line before.
  bool goes_on() const { return keys_->goes_on(); }

  // The line came out of a batch; `inside` has a bit for each of its bytes that is not a space.
  bool comes_in_batch() const { return line_ != &alone_; }
  std::uint64_t inside() const { return line_->inside; }
  // The bits of its first bytes that are small letters of ASCII in the file; of a line that comes alone only
  // if that was asked for before it was split.
  std::uint64_t small_letters() const { return line_->small; }
  void NoteSmallLetters();
  // The same of capital letters, of a line that is split. Takes a look at each of these bytes.
  std::uint64_t CapitalLetters() const;
  // The bits of such letters that are of a part of split_text(), from its first byte on.
  std::uint64_t LettersOf(std::uint64_t letters, std::string_view part) const;
  std::uint64_t SmallLettersOf(std::string_view part) const {
    return LettersOf(small_letters(), part);
  }
  // It came out of a batch, and there is no tab in it; of a source that watches tabs. Sometimes false
  // for such a line.
  bool is_simple() const { return is_simple_; }
  // Of a line that is split: the text that the tokens are parts of, in upper case.
  std::string_view split_text() const {
    return comes_in_batch() || read_.ascii ? text() : tokens_.text();
  }
  // Gives a line that is split other tokens, each a part of split_text() or of a text that stays.
  void Replace(const TokenList& tokens);

 private:
  friend class LineSource;

  const PlainLine* line_ = &alone_;
  const TokenKeys* keys_ = nullptr;
  std::int64_t number_ = 0;
  // Of a line that comes alone.
  PlainLine alone_;
  bool alone_is_split_ = false;
  bool too_long_ = false;
  bool is_simple_ = false;
  Line read_;
  Tokens tokens_;
};

class LineSource {
 public:
  // `fill`: the model whose names are prefetched; nothing else of it is touched. Must outlive the
  // source.
  explicit LineSource(const model::ModelFill& fill) : fill_(fill) {}

  // Raises what opening the file raises; there are no lines then.
  void Open(const std::string& path);
  void Open(std::unique_ptr<platform::ByteSource> bytes);
  // Raises what is wrong with the bytes behind the last line given out; there are no lines after it.
  void SkipRest() {
    used_ = batch_.size();
    reader_->SkipRest();
  }
  // Has the lines tell whether they may have tabs. Call after Open.
  void WatchTabs() { reader_->WatchTabs(); }
  void Close() { reader_.reset(); }

  std::uint64_t file_size() const { return file_size_; }
  // Of the lines given out, line ends not counted.
  std::uint64_t characters_read() const { return characters_read_; }
  // About so many bytes of the file are done; line ends of one byte are taken for granted.
  std::uint64_t bytes_read() const {
    return characters_read_ + static_cast<std::uint64_t>(line_.number_);
  }

  // Goes to the next line, which stands in that section; false at the end. Raises what the file
  // raises, after which it is at its end.
  bool Next(Section section) {
    if (used_ == batch_.size() && !NextBatch(section)) [[unlikely]]
      return NextAlone();
    line_.line_ = &batch_[used_];
    line_.keys_ = &keys_[used_];
    ++used_;
    ++line_.number_;
    characters_read_ += line_.line_->size;
    return true;
  }
  SourceLine& line() { return line_; }

 private:
  // False when the next line comes alone.
  bool NextBatch(Section section);
  bool NextAlone();

  model::ModelFill fill_;
  std::unique_ptr<LineReader> reader_;
  std::uint64_t file_size_ = 0;
  std::uint64_t characters_read_ = 0;
  SourceLine line_;
  LineBatch batch_;
  BatchKeys keys_;
  std::size_t used_ = 0;  // lines of the batch that are given out
};

}  // namespace quarvel::mps
