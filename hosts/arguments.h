// The command line: one command, its operands, and options that may stand anywhere.
//
// "--name value" and "--name=value" are the same. A "-" alone, or before a digit or a point, starts
// an operand, and everything after "--" is one. An option belongs to certain commands; any other
// command refuses it.
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/list_choices.h"
#include "hosts/option_set.h"
#include "hosts/screen.h"
#include "mps/file_layout.h"
#include "mps/wide_options.h"

namespace quarvel::hosts {

inline constexpr OptionSet kDefaultBounds = OptionSet{1} << 0;
inline constexpr OptionSet kLog = OptionSet{1} << 1;
inline constexpr OptionSet kJson = OptionSet{1} << 2;
inline constexpr OptionSet kLimit = OptionSet{1} << 3;
inline constexpr OptionSet kEquations = OptionSet{1} << 4;
inline constexpr OptionSet kPoint = OptionSet{1} << 5;
inline constexpr OptionSet kCommand = OptionSet{1} << 6;
inline constexpr OptionSet kEdit = OptionSet{1} << 7;
inline constexpr OptionSet kMissingEndata = OptionSet{1} << 8;
inline constexpr OptionSet kLoss = OptionSet{1} << 9;
inline constexpr OptionSet kQuiet = OptionSet{1} << 10;
inline constexpr OptionSet kScript = OptionSet{1} << 12;
inline constexpr OptionSet kDialect = OptionSet{1} << 36;
inline constexpr OptionSet kFileColumns = OptionSet{1} << 37;
inline constexpr OptionSet kObjectiveRow = OptionSet{1} << 38;
inline constexpr OptionSet kNegativeUpper = OptionSet{1} << 39;
inline constexpr OptionSet kTolerance = OptionSet{1} << 14;
inline constexpr OptionSet kOnly = OptionSet{1} << 41;
inline constexpr OptionSet kIgnore = OptionSet{1} << 42;
inline constexpr OptionSet kSarif = OptionSet{1} << 43;
inline constexpr OptionSet kNoLint = OptionSet{1} << 44;
inline constexpr OptionSet kLayout = OptionSet{1} << 48;
inline constexpr OptionSet kStrict = OptionSet{1} << 49;
inline constexpr OptionSet kOutput = OptionSet{1} << 53;
inline constexpr OptionSet kWidth = OptionSet{1} << 54;
inline constexpr OptionSet kHeight = OptionSet{1} << 55;
inline constexpr OptionSet kAsk = OptionSet{1} << 74;
// The options that answer questions (questions.h), and those of them that a command may refuse.
inline constexpr OptionSet kQuestions = OptionSet{0xFFFF} << 16;
inline constexpr OptionSet kOnError = OptionSet{1} << 16;
inline constexpr OptionSet kSimplify = OptionSet{1} << 17;
inline constexpr OptionSet kOnConflict = OptionSet{1} << 18;

struct GivenAnswer;
struct Option;

// --tolerance ABS[,REL].
struct GivenTolerance {
  double absolute = 0;
  std::optional<double> relative;
};

struct Arguments {
  static constexpr std::int64_t kAll = std::numeric_limits<std::int64_t>::max();

  std::string command;
  std::vector<std::string> operands;
  OptionSet used = 0;

  bool component_dialect = false;  // --dialect component
  bool ask = false;                // the component's questions, and so its way of reading
  mps::FileColumns file_columns = mps::FileColumns::kByLine;
  std::string objective;
  bool negative_upper_frees_lower = false;
  std::optional<bool> infinite_default_bounds;
  std::map<OptionSet, const GivenAnswer*> answers;  // of the options that answer questions
  std::string log;
  bool json = false;
  std::int64_t limit = kAll;
  bool equations = false;
  ListChoices list;
  bool full = false;
  ColorChoice color = ColorChoice::kAuto;
  std::string output;
  std::optional<std::int32_t> width;  // from 1 to 10000
  std::optional<std::int32_t> height;
  std::string point;
  std::optional<GivenTolerance> tolerance;
  std::vector<std::string> edit_commands;
  bool edit = false;
  bool allow_missing_endata = false;
  bool allow_loss = false;
  std::vector<std::string> only;    // words of problem_filter.h
  std::vector<std::string> ignore;  // the same
  bool sarif = false;
  bool no_lint = false;
  bool quiet = false;
  bool script = false;
  std::optional<mps::FileLayout> layout;
  bool strict = false;

  bool help = false;
  bool version = false;

  // Files are read as the component reads them.
  bool reads_as_component() const { return component_dialect || ask; }
};

// Takes the command line apart (without the program's name). Raises a CommandError of status kUsage
// for an unknown option, a missing value or one that is not allowed.
Arguments ParseArguments(std::span<const std::string> words);

// False for operands, those that begin with "-" included.
bool IsOption(std::string_view word);

// The option of that name, long or short; null when there is none.
const Option* FindOption(std::string_view name);

// Every option, in the order of a help text.
const std::vector<Option>& AllOptions();

// The option that is the set's only one, which must be there.
const Option& OptionOf(OptionSet id);

// The lines of a help text about these options.
std::string DescribeOptions(OptionSet options);

// The name of the first option of the set, "--json".
std::string OptionName(OptionSet options);

}  // namespace quarvel::hosts
