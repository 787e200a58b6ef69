// The ways in which the wide dialect takes a data line apart, and whether what comes out makes sense.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "mps/fixed_fields.h"
#include "mps/model_sink.h"
#include "mps/section.h"
#include "mps/tokens.h"

namespace quarvel::mps {

// Codes of bounds that the sections do not know.
enum class WideBound : std::uint8_t {
  kBinary,
  kIntegerLower,
  kIntegerUpper,
  kSemiContinuous,
  kSemiInteger,
};
std::optional<WideBound> FindWideBound(std::string_view letters);

enum class BoundValue : std::uint8_t { kIgnored, kOptional, kNeeded };
// What becomes of a value behind a code of the sections or one of those; nothing for another text.
std::optional<BoundValue> ValueOfBound(std::string_view code);

// The word is an infinity (INF or INFINITY, with a sign or without) that says of a bound of that code
// that there is none.
bool IsNoBound(std::string_view code, std::string_view word);

// The runs of characters other than blanks and tabs.
TokenList WordsOf(std::string_view text);
// The fields that the section uses, without the empty ones at the end.
TokenList WordsOf(const FixedFields& fields, Section section);

// The first text that stands where the section has no field, but for what is behind the last one; or the
// word that the end of that one cuts.
std::string_view TextBetween(const FixedFields& fields, Section section);

// A line of COLUMNS that is a marker: name, 'MARKER' and what it marks.
bool IsMarker(const TokenList& words);
bool BeginsComment(const TokenList& words);
// The words, which make sense in the section, have an empty one for the name of the set.
bool IsNameless(const TokenList& words, Section section);

// What was left out, or put in, so that words between blanks make sense.
struct FreeWords {
  TokenList words;
  std::size_t comment = 0;   // the word with which a comment at the end begins; 0 for none
  bool is_nameless = false;  // the set's name was not there; it is the empty one in `words`
};

class WordSense {
 public:
  // The sink must outlive this.
  explicit WordSense(const ModelSink& sink) : sink_(sink) {}

  // Whether these are words as a data line of the section has them: as many as there must be, with
  // names that are known and numbers that are some.
  bool Fits(const TokenList& words, Section section) const;
  // The first that makes sense of: all words; those before a word that begins with a dollar sign;
  // either with a nameless set in RHS, RANGES and BOUNDS.
  std::optional<FreeWords> FitFree(const TokenList& words, Section section) const;
  // The words by fixed columns, when nothing stands beside the fields and they make sense.
  std::optional<TokenList> FitFixed(std::string_view text, Section section) const;

 private:
  bool FitsPairs(const TokenList& words) const;
  bool FitsBound(const TokenList& words) const;

  const ModelSink& sink_;
};

}  // namespace quarvel::mps
