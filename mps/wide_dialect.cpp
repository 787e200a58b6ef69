#include "mps/wide_dialect.h"

#include <optional>
#include <utility>

namespace quarvel::mps {
namespace {

using enum FileProblemCode;

std::string LinesText(std::int64_t count) {
  return std::to_string(count) + (count == 1 ? " line passed over" : " lines passed over");
}

// Of a text that has one.
std::string_view LastWord(std::string_view text) {
  text = text.substr(0, text.find_last_not_of(" \t") + 1);
  return text.substr(text.find_last_of(" \t") + 1);
}

}  // namespace

WideDialect::WideDialect(WideOptions options, ModelSink& sink, FileFacts& facts,
                         GivenValues& values, NameSpellings& spellings, const HearProblem& hear)
    : options_(std::move(options)),
      sink_(sink),
      facts_(facts),
      values_(values),
      hear_(hear),
      sense_(sink),
      data_(options_, sink, facts, values, spellings, hear),
      headers_(hear),
      said_columns_(options_.columns),
      columns_(said_columns_) {
  Settle();
}

WideDialect::Verdict WideDialect::LookCloser(SourceLine& line, Section section) {
  if (line.too_long()) return Verdict::kLine;
  if (section == Section::kStart && line.text().starts_with('*')) return Verdict::kLine;
  line.NoteSmallLetters();
  line.Split();
  const bool decided = columns_ == FileColumns::kFree || line.comes_in_batch();
  if (decided && !HasTab(line.split_text()) && IsPlain(line, section)) return Verdict::kLine;
  const TokenList words = WordsOf(line.split_text());
  if (words.count() == 0) return Verdict::kNothing;
  const char first = line.split_text()[0];
  if (first == '*') return Comment(line);
  if (first != ' ' && first != '\t') {
    if (!IsDataInFirstColumn(words, section)) return UseHeader(line, words, section);
    has_data_in_first_column_ = true;
  }
  if (own_ != Own::kNone) return UseOwn(line, words);
  if (section != Section::kStart) return UseData(line, words, section);
  if (BeginsComment(words)) return Comment(line);
  Tell(kBeforeRows, line, {});
  return Verdict::kNothing;
}

bool WideDialect::IsDataInFirstColumn(const TokenList& words, Section section) const {
  if (section == Section::kStart || own_ != Own::kNone || words.count() < 2) return false;
  if (has_data_in_first_column_ && FindWideHeader(words[1]) == WideHeader::kUnknown) return true;
  return sense_.FitFree(words, section).has_value();
}

WideDialect::Verdict WideDialect::UseOwn(const SourceLine& line, const TokenList& words) {
  if (own_ == Own::kSense && BeginsComment(words)) return Comment(line);
  if (own_ == Own::kPassedOver) {
    ++passed_lines_;
  } else {
    UseWord(line, words, 1);
  }
  return Verdict::kNothing;
}

// Of OBJSENSE or OBJNAME.
void WideDialect::UseWord(const SourceLine& line, const TokenList& words, std::size_t place) {
  const std::string_view word = words[place];
  if (own_ == Own::kSense) {
    UseSense(line, word, SenseOf(word));
  } else {
    data_.NameObjective(line, word);
  }
  Enter(Own::kNone);
  TellRest(line, words, place);
}

void WideDialect::TellRest(const SourceLine& line, const TokenList& words, std::size_t used) const {
  if (words.count() <= used) return;
  Tell(kHeaderText, line, words[used + 1], std::string(words[1]), "passed over");
}

WideDialect::Verdict WideDialect::UseHeader(SourceLine& line, const TokenList& words,
                                            Section section) {
  const WideHeader header = FindWideHeader(words[1]);
  const bool wants_word = own_ == Own::kSense || own_ == Own::kObjectiveName;
  if (header == WideHeader::kUnknown && wants_word) return UseOwn(line, words);
  LeaveOwn();
  if (header != WideHeader::kUnknown) TellHeader(line, words[1], header);
  switch (header) {
    case WideHeader::kUnknown:
      if (section == Section::kStart) {
        Tell(kBeforeRows, line, {});
      } else {
        PassOver(kUnknownSection, line, words[1]);
      }
      break;
    case WideHeader::kName:
      return UseName(line, words);
    case WideHeader::kPlain:
      return UsePlainHeader(line, words);
    case WideHeader::kSense:
    case WideHeader::kObjectiveName:
      EnterWord(line, words, header);
      break;
    case WideHeader::kMaximize:
      UseSense(line, words[1], ObjectiveSense::kMaximize);
      TellRest(line, words, 1);
      break;
    case WideHeader::kMinimize:
      UseSense(line, words[1], ObjectiveSense::kMinimize);
      TellRest(line, words, 1);
      break;
    case WideHeader::kMoreRows:
      return UseMoreRows(line, words);
    case WideHeader::kNotLinear:
      PassOver(kNotLinear, line, words[1]);
      break;
  }
  return Verdict::kNothing;
}

void WideDialect::TellHeader(const SourceLine& line, std::string_view word, WideHeader header) {
  if (line.SmallLettersOf(word) != 0) {
    Tell(kSmallHeader, line, word, std::string(word), "the same as in capitals");
  }
  headers_.Use(line, word, header);
}

void WideDialect::EnterWord(const SourceLine& line, const TokenList& words, WideHeader header) {
  const bool is_sense = header == WideHeader::kSense;
  Enter(is_sense ? Own::kSense : Own::kObjectiveName);
  own_header_ = ProblemOf(is_sense ? kSenseUnknown : kObjectiveUnnamed, line, words[1],
                          std::string(words[1]), "passed over");
  if (words.count() > 1) UseWord(line, words, 2);
}

WideDialect::Verdict WideDialect::UsePlainHeader(SourceLine& line, const TokenList& words) {
  if (words[1] == "RHS") data_.BeginRhs();
  if (words[1] == "COLUMNS") columns_ = said_columns_;
  Settle();
  TellRest(line, words, 1);
  if (HasTab(line.split_text())) line.Replace(words);
  return Verdict::kLine;
}

// The line is no data line of its section, as it would be to the sections.
WideDialect::Verdict WideDialect::UseName(const SourceLine& line, const TokenList& words) {
  if (words.count() > 1) sink_.SetModelName(words[2]);
  if (words.count() <= 2) return Verdict::kNothing;
  if (LastWord(line.split_text()) == "FREE" && columns_ == FileColumns::kByLine) {
    said_columns_ = FileColumns::kFree;
    columns_ = said_columns_;
  } else {
    TellRest(line, words, 2);
  }
  return Verdict::kNothing;
}

WideDialect::Verdict WideDialect::UseMoreRows(SourceLine& line, const TokenList& words) {
  static constexpr std::string_view kRows = "ROWS";
  Tell(kMoreRows, line, words[1], std::string(words[1]), "rows like those of ROWS");
  TellRest(line, words, 1);
  TokenList rows;
  rows.Keep(kRows.data(), kRows.data() + kRows.size());
  line.Replace(rows);
  return Verdict::kLine;
}

void WideDialect::UseSense(const SourceLine& line, std::string_view word, ObjectiveSense sense) {
  if (sense == ObjectiveSense::kNotSaid) {
    return Tell(kSenseUnknown, line, word, std::string(word), "passed over");
  }
  facts_.sense = sense;
  values_.NoteSense(line, sense);
  const bool maximize = sense == ObjectiveSense::kMaximize;
  sense_told_ = ProblemOf(kObjectiveSense, line, word, {},
                          maximize ? "the objective is maximized" : "the objective is minimized");
}

void WideDialect::PassOver(FileProblemCode code, const SourceLine& line, std::string_view word) {
  Enter(Own::kPassedOver);
  passed_lines_ = 0;
  own_header_ = ProblemOf(code, line, word, std::string(word));
}

void WideDialect::LeaveOwn() {
  if (own_ == Own::kPassedOver) own_header_.made = LinesText(passed_lines_);
  if (own_ != Own::kNone) hear_(std::move(own_header_));
  Enter(Own::kNone);
}

WideDialect::Verdict WideDialect::UseData(SourceLine& line, const TokenList& words,
                                          Section section) {
  const bool has_tab = HasTab(line.split_text());
  const bool is_marker = section == Section::kColumns && IsMarker(words);
  if (columns_ == FileColumns::kFixed && !has_tab && !is_marker) {
    return UseFixed(line, words, section);
  }
  const std::optional<FreeWords> fitting = sense_.FitFree(words, section);
  if (columns_ == FileColumns::kByLine && !has_tab && !is_marker) {
    Decide(line, words, section, fitting.has_value());
    if (columns_ == FileColumns::kFixed) return UseFixed(line, words, section);
  }
  return fitting ? UseFitting(line, words, *fitting, section) : UseOdd(line, words, section);
}

void WideDialect::Decide(const SourceLine& line, const TokenList& words, Section section,
                         bool fits_free) {
  const bool fits_fixed = sense_.FitFixed(line.split_text(), section).has_value();
  if (fits_free == fits_fixed || (fits_fixed && BeginsComment(words))) return;
  columns_ = fits_fixed ? FileColumns::kFixed : FileColumns::kFree;
  Settle();
  if (fits_fixed) {
    const bool rows = section == Section::kRows;
    Tell(kFixedColumns, line, {}, {},
         rows ? "it and the rest of ROWS are read by fixed columns"
              : "it and all lines behind it are read by fixed columns");
  }
}

WideDialect::Verdict WideDialect::UseFitting(SourceLine& line, const TokenList& words,
                                             const FreeWords& fitting, Section section) {
  const bool has_tab = HasTab(line.split_text());
  if (has_tab) Tell(kTab, line, {}, {}, "blanks");
  if (fitting.comment != 0) Tell(kEndComment, line, words[fitting.comment], {}, "passed over");
  if (fitting.is_nameless) Tell(kNamelessSet, line, {}, {}, "a line of the first set");
  const bool changed = has_tab || fitting.comment != 0 || fitting.is_nameless;
  return UseWords(line, fitting.words, changed, section, true);
}

WideDialect::Verdict WideDialect::UseOdd(SourceLine& line, const TokenList& words,
                                         Section section) {
  if (BeginsComment(words)) return Comment(line);
  const bool has_tab = HasTab(line.split_text());
  if (has_tab) Tell(kTab, line, {}, {}, "blanks");
  return UseWords(line, words, has_tab, section, false);
}

WideDialect::Verdict WideDialect::UseFixed(SourceLine& line, const TokenList& words,
                                           Section section) {
  const FixedFields fields(line.split_text());
  const TokenList fixed = WordsOf(fields, section);
  const std::string_view between = TextBetween(fields, section);
  const bool fits = between.empty() && fixed.count() != 0 && sense_.Fits(fixed, section);
  if (!fits && BeginsComment(words)) return Comment(line);
  if (fits && IsNameless(fixed, section))
    Tell(kNamelessSet, line, {}, {}, "a line of the first set");
  if (!between.empty()) {
    Tell(kBetweenFields, line, between);
    return Verdict::kNothing;
  }
  if (section == Section::kColumns && (fixed.count() == 0 || fixed[1].empty())) {
    Tell(kTokens, line, {});
    return Verdict::kNothing;
  }
  if (!fields.behind().empty()) Tell(kBehindFields, line, fields.behind(), {}, "passed over");
  return UseWords(line, fixed, true, section, fits);
}

WideDialect::Verdict WideDialect::UseWords(SourceLine& line, const TokenList& words, bool changed,
                                           Section section, bool fits) {
  const bool used = data_.Use(line, words, section, fits);
  if (changed) line.Replace(words);
  return used ? Verdict::kUsed : Verdict::kData;
}

WideDialect::Verdict WideDialect::Comment(const SourceLine& line) {
  Tell(kComment, line, {}, {}, "passed over");
  return Verdict::kNothing;
}

bool WideDialect::IsTextBehindEnd(SourceLine& line) const {
  if (!line.too_long() && line.text().find_first_not_of(" \t\x1A") == std::string_view::npos) {
    return false;
  }
  line.Split();
  Tell(kTextBehindEnd, line, {}, {}, "nothing behind ENDATA is read");
  return true;
}

void WideDialect::Finish() {
  LeaveOwn();
  if (facts_.sense != ObjectiveSense::kNotSaid) hear_(std::move(sense_told_));
  data_.Finish();
}

}  // namespace quarvel::mps
