#include "hosts/edit_words.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "hosts/streams.h"
#include "text/encoding.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kCodeDigits = 4;

[[noreturn]] void RaiseBad(const char* text) { throw CommandError(kProblem, text); }

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// Appends the character whose code the digits are.
void AppendCode(std::string& word, std::string_view digits) {
  std::uint16_t code = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, code, 16);
  const bool half = code >= 0xD800 && code <= 0xDFFF;  // of a pair, and no character by itself
  if (digits.size() != kCodeDigits || error != std::errc() || stop != end || half) {
    RaiseBad("\\u needs the four hexadecimal digits of a character");
  }
  word += text::Utf16ToUtf8(std::u16string(1, static_cast<char16_t>(code)));
}

// Appends what stands for the escape whose letter is at `at`; gives the place behind it.
std::size_t TakeEscape(std::string& word, std::string_view line, std::size_t at) {
  if (line[at] == '"' || line[at] == '\\' || line[at] == 'n') {
    word += line[at] == 'n' ? '\n' : line[at];
    return at + 1;
  }
  if (line[at] != 'u') RaiseBad("in quotes only \\\" \\\\ \\n and \\u0000 are escapes");
  AppendCode(word, line.substr(at + 1, kCodeDigits));
  return at + 1 + kCodeDigits;
}

// Appends the rest of a quoted part to `word`; gives the place behind its closing quote.
std::size_t TakeQuoted(std::string& word, std::string_view line, std::size_t at) {
  while (at < line.size() && line[at] != '"') {
    if (line[at] == '\\' && at + 1 < line.size()) {
      at = TakeEscape(word, line, at + 1);
    } else {
      word += line[at++];
    }
  }
  if (at >= line.size()) RaiseBad("a quote is not closed");
  return at + 1;
}

bool NeedsQuotes(std::string_view word) {
  if (word.empty() || word.front() == '#') return true;
  while (!word.empty()) {
    const text::Character character = text::FirstCharacter(word);
    if (word.front() == '"' || IsBlank(word.front()) || text::IsSteering(character.code)) {
      return true;
    }
    word.remove_prefix(character.size);
  }
  return false;
}

void AppendQuoted(std::string& quoted, std::string_view character, char32_t code) {
  if (character == "\n") {
    quoted += "\\n";
  } else if (text::IsSteering(code)) {
    text::AppendCodeEscape(quoted, code);
  } else {
    if (character == "\"" || character == "\\") quoted += '\\';
    quoted += character;
  }
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view line) {
  std::vector<std::string> words;
  std::size_t at = 0;
  const auto skip_blanks = [&line, &at] {
    while (at < line.size() && IsBlank(line[at])) ++at;
  };
  for (skip_blanks(); at < line.size(); skip_blanks()) {
    if (words.empty() && line[at] == '#') break;
    std::string word;
    while (at < line.size() && !IsBlank(line[at])) {
      if (line[at] == '"') {
        at = TakeQuoted(word, line, at + 1);
      } else {
        word += line[at++];
      }
    }
    words.push_back(std::move(word));
  }
  return words;
}

std::string QuotedWord(std::string_view word) {
  if (!NeedsQuotes(word)) return std::string(word);
  std::string quoted = "\"";
  while (!word.empty()) {
    const text::Character character = text::FirstCharacter(word);
    AppendQuoted(quoted, word.substr(0, character.size), character.code);
    word.remove_prefix(character.size);
  }
  return quoted + '"';
}

}  // namespace quarvel::hosts
