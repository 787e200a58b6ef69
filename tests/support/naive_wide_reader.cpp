#include "tests/support/naive_wide_reader.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "mps/exact_writer.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace quarvel::testing {
namespace {

using mps::FileColumns;
using mps::ObjectiveSense;

bool IsIn(const std::string& word, const NaiveWords& words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsNotLinear(const std::string& word) {
  return IsIn(word, {"QUADOBJ", "QMATRIX", "QSECTION", "QUADS", "QCMATRIX", "CSECTION", "SOS",
                     "SOS1", "SOS2", "SETS", "INDICATORS", "GENCONS", "PWLOBJ", "PWLNAM", "PWLCON",
                     "MULTOBJ", "SCENARIOS"});
}

bool IsHeader(const std::string& word) {
  return IsNotLinear(word) ||
         IsIn(word, {"NAME", "ROWS", "COLUMNS", "RHS", "RANGES", "BOUNDS", "ENDATA", "OBJSENSE",
                     "OBJSENS", "OBJSENSEMAX", "OBJSENSEMIN", "OBJNAME", "LAZYCONS", "USERCUTS"});
}

// The mark of UTF-16, of either order, read as Windows-1252; or of the first two characters, in UTF-8, one is 0.
bool IsOfTwoBytesEach(const std::string& first_line) {
  if (first_line.starts_with("\xC3\xBF\xC3\xBE")) return true;
  if (first_line.starts_with("\xC3\xBE\xC3\xBF")) return true;
  std::string beginnings;  // the first byte of each character
  for (const char c : first_line) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80 || byte >= 0xC0 || beginnings.empty()) beginnings += c;
  }
  return beginnings.size() > 1 && (beginnings[0] == 0) != (beginnings[1] == 0);
}

std::string WithoutBlanksAround(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  while (!text.empty() && text.front() == ' ') text.erase(0, 1);
  return text;
}

// An upper bound from 1E+10 on is none, and a lower one down from -1E+10.
bool NothingKeepsThem(const NaiveRecord& record) {
  return record.LowerBound > record.UpperBound && record.LowerBound > -1e10 &&
         record.UpperBound < 1e10;
}

std::string TypeByLimits(const NaiveRecord& row) {
  const bool has_lower = row.LowerBound > -1e10;
  const bool has_upper = row.UpperBound < 1e10;
  if (has_lower && has_upper) return row.LowerBound == row.UpperBound ? "E" : "R";
  return has_lower ? "G" : has_upper ? "L" : "N";
}

void DropNote(std::string& description) {
  const std::string note(mps::kConstantNote);
  if (description == note) {
    description.clear();
  } else if (description.ends_with("\r\n" + note)) {
    description.resize(description.size() - note.size() - 2);
  }
}

}  // namespace

NaiveWideReader::NaiveWideReader(const mps::ReadOptions& options, NaiveModel& model)
    : options_(options), model_(model), said_columns_(options.columns), columns_(options.columns) {
  objective_.asked = text::UpperCase(options.objective);
}

void NaiveWideReader::Read(std::string_view bytes) {
  model_.DefaultToPlusMinusInfinity = options_.infinite_default_bounds;
  const std::vector<NaiveLine> lines = SplitIntoLines(bytes);
  is_refused = !lines.empty() && !lines[0].too_long && IsOfTwoBytesEach(lines[0].text);
  if (is_refused) return;
  std::size_t next = 0;
  for (; next < lines.size() && !has_ended_; ++next) {
    ++line_number_;
    UseLine(lines[next]);
  }
  facts.lines = line_number_;
  facts.has_endata = has_ended_;
  Finish();
  if (!has_ended_) Tell("W401");
  for (; next < lines.size(); ++next) {
    ++line_number_;
    if (!lines[next].too_long && lines[next].text.find_first_not_of(" \t\x1A") == std::string::npos)
      continue;
    Tell("W403");
    break;
  }
  Check();
}

void NaiveWideReader::UseLine(const NaiveLine& line) {
  if (line.too_long) return Tell("E101");
  if (section_ == NaiveSection::kStart && line.text.starts_with('*')) {
    if (!model_.ModelDescription.empty()) model_.ModelDescription += "\r\n";
    model_.ModelDescription += WithoutBlanksAround(line.text.substr(1));
    return;
  }
  raw_ = line.text;
  text_ = text::UpperCase(raw_);
  words_ = NaiveWordsOf(text_);
  if (words_.empty()) return;
  if (text_[0] == '*') return Tell("A302");
  if (text_[0] != ' ' && text_[0] != '\t') {
    if (!IsDataInFirstColumn()) return UseHeader();
    has_data_in_first_column_ = true;
  }
  // Each of its lines was told with the header.
  if (own_ == Own::kPassedOver) return;
  if (own_ == Own::kSense && words_[0][0] == '*') return Tell("A302");
  if (own_ != Own::kNone) return UseOwnWord(0);
  if (section_ == NaiveSection::kStart) return Tell(words_[0][0] == '*' ? "A302" : "W409");
  UseDataLine();
}

bool NaiveWideReader::IsDataInFirstColumn() const {
  if (section_ == NaiveSection::kStart || own_ != Own::kNone || words_.size() < 2) return false;
  if (has_data_in_first_column_ && !IsHeader(words_[0])) return true;
  return SenseByBlanks(words_, section_, names_).has_value();
}

// --- headers ---

void NaiveWideReader::UseHeader() {
  const std::string& word = words_[0];
  const bool wants_word = own_ == Own::kSense || own_ == Own::kObjectiveName;
  if (wants_word && !IsHeader(word)) return UseOwnWord(0);
  EndOwn();
  if (IsHeader(word)) {
    for (const std::string& id : headers_.Check(word, raw_)) Tell(id);
  }
  if (word == "NAME") return UseName();
  if (UsePlainHeader() || UseObjectiveHeader()) return;
  if (word == "LAZYCONS" || word == "USERCUTS") {
    Tell("A315");
    TellRest(1);
    section_ = NaiveSection::kRows;
  } else if (IsNotLinear(word)) {
    PassOver("E120");
  } else if (section_ == NaiveSection::kStart) {
    Tell("W409");
  } else {
    PassOver("E121");
  }
}

bool NaiveWideReader::UsePlainHeader() {
  static const std::map<std::string, NaiveSection> kSections = {
      {"ROWS", NaiveSection::kRows},     {"COLUMNS", NaiveSection::kColumns},
      {"RHS", NaiveSection::kRhs},       {"RANGES", NaiveSection::kRanges},
      {"BOUNDS", NaiveSection::kBounds}, {"ENDATA", NaiveSection::kStart}};
  const auto found = kSections.find(words_[0]);
  if (found == kSections.end()) return false;
  TellRest(1);
  if (words_[0] == "RHS") has_rhs_ = true;
  if (words_[0] == "COLUMNS") columns_ = said_columns_;
  has_ended_ = words_[0] == "ENDATA";
  if (!has_ended_) section_ = found->second;
  return true;
}

bool NaiveWideReader::UseObjectiveHeader() {
  const std::string& word = words_[0];
  if (word == "OBJSENSEMAX" || word == "OBJSENSEMIN") {
    UseSense(word == "OBJSENSEMAX" ? "MAX" : "MIN");
    TellRest(1);
    return true;
  }
  if (word == "OBJSENSE" || word == "OBJSENS") {
    own_ = Own::kSense;
  } else if (word == "OBJNAME") {
    own_ = Own::kObjectiveName;
  } else {
    return false;
  }
  own_id_ = own_ == Own::kSense ? "W412" : "W422";
  own_line_ = line_number_;
  if (words_.size() > 1) UseOwnWord(1);
  return true;
}

void NaiveWideReader::UseName() {
  if (words_.size() > 1) model_.ModelName = words_[1];
  if (words_.size() > 2 && words_.back() == "FREE" && columns_ == FileColumns::kByLine) {
    said_columns_ = FileColumns::kFree;
    columns_ = FileColumns::kFree;
  } else {
    TellRest(2);
  }
}

void NaiveWideReader::PassOver(const std::string& id) {
  own_ = Own::kPassedOver;
  own_id_ = id;
  own_line_ = line_number_;
}

void NaiveWideReader::EndOwn() {
  if (own_ != Own::kNone) Tell(own_id_, own_line_);
  own_ = Own::kNone;
}

void NaiveWideReader::UseOwnWord(std::size_t place) {
  if (own_ == Own::kSense) {
    UseSense(words_[place]);
  } else {
    if (!objective_.named.empty()) Tell("A308", objective_.naming_line);
    objective_.named = words_[place];
    objective_.naming_line = line_number_;
  }
  own_ = Own::kNone;
  TellRest(place + 1);
}

void NaiveWideReader::UseSense(const std::string& word) {
  const bool max = word.starts_with("MAX");
  if (!max && !word.starts_with("MIN")) return Tell("W412");
  sense_line_ = line_number_;
  facts.sense = max ? ObjectiveSense::kMaximize : ObjectiveSense::kMinimize;
}

void NaiveWideReader::TellRest(std::size_t used) {
  if (words_.size() > used) Tell("A311");
}

// --- data lines ---

void NaiveWideReader::UseDataLine() {
  const bool has_tab = text_.find('\t') != std::string::npos;
  if (has_tab || IsNaiveMarker(words_, section_)) return UseByBlanks(has_tab);
  Decide();
  if (columns_ == FileColumns::kFixed) return UseByFields();
  UseByBlanks(false);
}

void NaiveWideReader::Decide() {
  if (columns_ != FileColumns::kByLine) return;
  const bool by_blanks = SenseByBlanks(words_, section_, names_).has_value();
  const bool by_fields = MakesSenseByFields(text_, section_, names_);
  if (by_blanks && !by_fields) columns_ = FileColumns::kFree;
  if (by_fields && !by_blanks && words_[0][0] != '*') {
    Tell("A301");
    columns_ = FileColumns::kFixed;
  }
}

void NaiveWideReader::UseByBlanks(bool has_tab) {
  const std::optional<NaiveBlankWords> sense = SenseByBlanks(words_, section_, names_);
  if (!sense && words_[0][0] == '*') return Tell("A302");
  if (has_tab) Tell("A303");
  if (!sense) return UseWords(words_);
  if (sense->has_comment) Tell("A304");
  if (sense->is_nameless) Tell("A305");
  UseWords(sense->words);
}

void NaiveWideReader::UseByFields() {
  const NaiveFields fields(text_, section_);
  const bool makes_sense = !fields.has_text_between && MakesSense(fields.words, section_, names_);
  if (!makes_sense && words_[0][0] == '*') return Tell("A302");
  if (makes_sense && fields.words[section_ == NaiveSection::kBounds ? 1 : 0].empty()) Tell("A305");
  if (fields.has_text_between) return Tell("E122");
  const bool is_nameless = fields.words.empty() || fields.words[0].empty();
  if (section_ == NaiveSection::kColumns && is_nameless) return Tell("E105");
  if (fields.has_text_behind) Tell("W411");
  UseWords(fields.words);
}

void NaiveWideReader::Finish() {
  EndOwn();
  if (sense_line_ != 0) Tell("A307", sense_line_);
  objective_.Finish(facts, problems);
  if (open_marker_line_ != 0) Tell("W421", open_marker_line_);
}

void NaiveWideReader::Check() {
  if (model_.NumberOfRows == 0) Tell("E201", 0);
  if (model_.NumberOfColumns == 0) Tell("E202", 0);
  if (model_.NumberOfElements == 0) Tell("E203", 0);
  for (const NaiveRecord& column : model_.Columns) {
    if (NothingKeepsThem(column)) Tell("E204", 0);
    if (column.Elements.empty()) Tell("W502", 0);
  }
  for (const NaiveRecord& row : model_.Rows) {
    if (NothingKeepsThem(row)) Tell("E205", 0);
    if (row.Elements.empty()) Tell("W501", 0);
  }
  for (NaiveRecord& row : model_.Rows) {
    const std::string type = TypeByLimits(row);
    if (type != row.Type && type != "R" && type != "E") Tell("W504", 0);
    row.Type = type;
  }
  model_.RebuildRowIndexes();
  DropNote(model_.ModelDescription);
}

}  // namespace quarvel::testing
