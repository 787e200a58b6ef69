#include "mps/line_source.h"

#include <utility>

#include "text/byte_block.h"

namespace quarvel::mps {
namespace {

const TokenKeys kNoKeys;

}  // namespace

void SourceLine::Split() {
  if (is_split()) return;
  tokens_.Split(read_);
  alone_.tokens = static_cast<const TokenList&>(tokens_);
  alone_is_split_ = true;
}

void SourceLine::NoteSmallLetters() {
  if (is_split()) return;
  std::size_t at = 0;
  for (const char c : text().substr(0, LineBatch::kLongest)) {
    alone_.small |= std::uint64_t{c >= 'a' && c <= 'z'} << at++;
  }
}

std::uint64_t SourceLine::CapitalLetters() const {
  const std::string_view text = split_text().substr(0, LineBatch::kLongest);
  std::uint64_t letters = 0;
  if (comes_in_batch()) {
    for (std::size_t at = 0; at < text.size(); at += text::kBlockSize) {
      const text::ByteBlock block(text.data() + at);
      letters |= std::uint64_t{block.AtLeast('A') ^ block.AtLeast('[')} << at;
    }
    letters &= (std::uint64_t{1} << text.size()) - 1;
  } else {
    std::size_t at = 0;
    for (const char c : text) letters |= std::uint64_t{c >= 'A' && c <= 'Z'} << at++;
  }
  return letters & ~small_letters();
}

std::uint64_t SourceLine::LettersOf(std::uint64_t letters, std::string_view part) const {
  const auto begin = static_cast<std::size_t>(part.data() - split_text().data());
  if (begin >= LineBatch::kLongest) return 0;
  const std::uint64_t bits = letters >> begin;
  const bool is_long = part.size() >= LineBatch::kLongest;
  return is_long ? bits : bits & ((std::uint64_t{1} << part.size()) - 1);
}

void SourceLine::Replace(const TokenList& tokens) {
  const std::string_view whole = split_text();
  if (comes_in_batch()) {
    alone_.text = whole.data();
    alone_.size = whole.size();
    alone_.small = line_->small;
    read_.ascii = true;
    too_long_ = false;
  }
  alone_.tokens = tokens;
  alone_is_split_ = true;
  line_ = &alone_;
  keys_ = &kNoKeys;
}

void LineSource::Open(const std::string& path) {
  Open(std::make_unique<platform::FileBytes>(platform::InputFile(path)));
}

void LineSource::Open(std::unique_ptr<platform::ByteSource> bytes) {
  reader_ = std::make_unique<LineReader>(std::move(bytes));
  file_size_ = reader_->file_size();
}

// Before ROWS lines are texts; batches would upper-case them.
bool LineSource::NextBatch(Section section) {
  if (section == Section::kStart || !reader_) return false;
  used_ = 0;
  batch_.Fill(*reader_);
  line_.is_simple_ = !reader_->has_tabs();
  keys_.Make(batch_, section, fill_);
  if (section != Section::kRows && section != Section::kBounds) batch_.MakeValues();
  return batch_.size() > 0;
}

bool LineSource::NextAlone() {
  Line& read = line_.read_;
  if (!reader_ || !reader_->Next(read)) return false;
  line_.line_ = &line_.alone_;
  line_.keys_ = &kNoKeys;
  line_.alone_.text = read.text;
  line_.alone_.size = read.size;
  line_.alone_.small = 0;
  line_.alone_is_split_ = false;
  line_.is_simple_ = false;
  line_.too_long_ = read.too_long;
  ++line_.number_;
  characters_read_ += read.characters;
  return true;
}

}  // namespace quarvel::mps
