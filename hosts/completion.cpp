#include "hosts/completion.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "hosts/commands.h"
#include "hosts/completion_scripts.h"
#include "hosts/edit_language.h"
#include "hosts/input_bytes.h"
#include "hosts/list_options.h"
#include "hosts/option.h"
#include "hosts/record_fields.h"
#include "hosts/record_selection.h"
#include "hosts/session.h"
#include "model/record_kind.h"
#include "mps/file_problem.h"
#include "mps/read_file.h"
#include "text/upper_case.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using Files = Completion::Files;

constexpr std::string_view kSuffixes[] = {".mps", ".mps.gz", ".mps.bz2", ".mps.xz", ".mps.zst"};
constexpr std::chrono::seconds kPatience{1};
constexpr OptionSet kManyTimes = kMatch | kType | kFields | kCommand | kOnly | kIgnore;

enum class Wanted : std::uint8_t {
  kNothing,
  kModel,
  kFile,
  kRow,
  kColumn,
  kRecord,
  kColumnValue,
  kCommandName,
  kShell,
};

// What stands for an operand in Command::operands.
struct OperandWord {
  std::string_view word;
  Wanted wanted;
};
constexpr OperandWord kOperandWords[] = {
    {"FILE", Wanted::kModel},
    {"[FILE]", Wanted::kModel},
    {"IN", Wanted::kModel},
    {"A", Wanted::kModel},
    {"B", Wanted::kModel},
    {"OUT", Wanted::kFile},
    {"POINT", Wanted::kFile},
    {"ROW", Wanted::kRow},
    {"NAME|INDEX", Wanted::kRecord},
    {"[NAME=VALUE", Wanted::kColumnValue},
    {"[COMMAND]", Wanted::kCommandName},
    {"SHELL", Wanted::kShell},
};

// The words before the one that is typed.
struct Typed {
  const Command* command = nullptr;
  bool is_known = true;  // the command, if there is one
  std::vector<std::string> operands;
  OptionSet used;
  const Option* open = nullptr;  // its value is next
  bool operands_only = false;

  explicit Typed(std::span<const std::string> words) {
    for (const std::string& word : words) Take(word);
  }

 private:
  void Take(const std::string& word) {
    if (open != nullptr) {
      open = nullptr;
    } else if (!operands_only && word == "--") {
      operands_only = true;
    } else if (!operands_only && IsOption(word)) {
      TakeOption(word);
    } else if (command == nullptr && is_known) {
      command = FindCommand(word);
      is_known = command != nullptr;
    } else {
      operands.push_back(word);
    }
  }

  void TakeOption(std::string_view word) {
    const std::size_t equals = word.find('=');
    const Option* const option = FindOption(word.substr(0, equals));
    if (option == nullptr) return;
    used |= option->id;
    if (!option->value.empty() && equals == std::string_view::npos) open = option;
  }
};

// The words of a text with such separators between them.
std::vector<std::string_view> Split(std::string_view text, std::string_view separators) {
  std::vector<std::string_view> words;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(separators), text.size());
    if (end > 0) words.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

class Completer {
 public:
  Completer(std::span<const std::string> words, const Streams& streams)
      : typed_(words.first(words.size() - 1)), word_(words.back()), streams_(streams) {}

  Completion Run() {
    const std::size_t equals = word_.find('=');
    if (typed_.open != nullptr) {
      OfferValues(*typed_.open);
    } else if (typed_.operands_only || word_.empty() || word_.front() != '-') {
      OfferOperand();
    } else if (equals == std::string_view::npos) {
      OfferOptions();
    } else if (const Option* const option = FindOption(word_.substr(0, equals))) {
      kept_ = word_.substr(0, equals + 1);
      OfferValues(*option);
    }
    return std::move(completion_);
  }

 private:
  // A word that fits what is typed behind what is kept of it.
  void Offer(std::string_view word, std::string_view purpose = {}) {
    if (!word.starts_with(word_.substr(kept_.size()))) return;
    completion_.candidates.push_back({std::string(kept_).append(word), std::string(purpose)});
  }

  void OfferOptions() {
    const OptionSet taken = typed_.command == nullptr ? OptionSet() : typed_.command->options;
    for (const Option& option : AllOptions()) {
      const bool is_foreign = (option.id & taken) != option.id;
      const bool is_given = (option.id & typed_.used & ~kManyTimes) != 0;
      if (is_foreign || is_given) continue;
      std::string purpose(option.help.substr(0, option.help.find_first_of(";:")));
      std::replace(purpose.begin(), purpose.end(), '\n', ' ');
      Offer(option.name, purpose);
    }
  }

  void OfferValues(const Option& option) {
    if (option.id == kObjectiveRow) return OfferNames({&model::kRowKind}, "", IsFreeRow);
    if (option.id == kSort || option.id == kFields) return OfferKeys();
    if (option.id == kType) return OfferTypes();
    if (option.id == kOnly || option.id == kIgnore) return OfferProblems();
    if (option.id == kCommand) return OfferEditCommands();
    if (option.value == "FILE") completion_.files = Files::kAny;
    if (option.value.find('|') == std::string_view::npos) return;
    for (const std::string_view word : Split(option.value, "|")) {
      const bool is_itself = word.front() < 'A' || word.front() > 'Z';
      if (is_itself) Offer(word);
    }
  }

  // Keeps what stands before the last of these characters: words of a list may be there already.
  void KeepBehind(std::string_view separators) {
    const std::string_view typed = word_.substr(kept_.size());
    const std::size_t last = typed.find_last_of(separators);
    kept_ = word_.substr(0, kept_.size() + (last == std::string_view::npos ? 0 : last + 1));
  }

  const model::RecordKind& ListedKind() const {
    const bool of_columns = typed_.command != nullptr && typed_.command->name == "columns";
    return of_columns ? model::kColumnKind : model::kRowKind;
  }

  // Of what is shown of a record.
  void OfferKeys() {
    KeepBehind(",-");
    const std::string keys = FieldKeys(ListedKind());
    for (const std::string_view key : Split(keys, ", ")) Offer(key);
  }

  void OfferTypes() {
    KeepBehind(",");
    const std::string types = TypeWords(ListedKind());
    for (const std::string_view type : Split(types, ", ")) Offer(type);
  }

  void OfferProblems() {
    KeepBehind(",");
    for (const mps::FileProblemTraits& traits : mps::FileProblemTable()) {
      Offer(traits.id, traits.name);
      if (!word_.substr(kept_.size()).empty()) Offer(traits.name, traits.id);
    }
  }

  void OfferEditCommands() {
    for (const EditCommandUse& use : EditCommandUses()) Offer(use.name, use.operands);
  }

  void OfferCommands() {
    for (const Command& command : Commands()) Offer(command.name, command.summary);
  }

  void OfferOperand() {
    if (typed_.command == nullptr) {
      if (typed_.is_known) OfferCommands();
      return;
    }
    switch (WantedOperand()) {
      case Wanted::kNothing:
        return;
      case Wanted::kModel:
        completion_.files = Files::kModels;
        return;
      case Wanted::kFile:
        completion_.files = Files::kAny;
        return;
      case Wanted::kRow:
        return OfferNames({&model::kRowKind}, "");
      case Wanted::kColumn:
        return OfferNames({&model::kColumnKind}, "");
      case Wanted::kRecord:
        return OfferNames({&model::kRowKind, &model::kColumnKind}, "");
      case Wanted::kColumnValue:
        return OfferNames({&model::kColumnKind}, "=");
      case Wanted::kCommandName:
        return OfferCommands();
      case Wanted::kShell:
        for (const CompletionScript& script : CompletionScripts()) Offer(script.shell);
        return;
    }
  }

  Wanted WantedOperand() const {
    const Command& command = *typed_.command;
    if (typed_.operands.size() >= command.most_operands) return Wanted::kNothing;
    std::vector<std::string_view> shown = Split(command.operands, " ");
    std::erase_if(shown, [](std::string_view word) { return word.starts_with("..."); });
    const std::size_t place = std::min(typed_.operands.size(), shown.size() - 1);
    const auto* const found =
        std::find_if(std::begin(kOperandWords), std::end(kOperandWords),
                     [&](const OperandWord& known) { return known.word == shown[place]; });
    if (found == std::end(kOperandWords)) return Wanted::kNothing;
    if (found->wanted != Wanted::kRecord) return found->wanted;
    if (command.name == model::kRowKind.noun) return Wanted::kRow;
    return command.name == model::kColumnKind.noun ? Wanted::kColumn : Wanted::kRecord;
  }

  using Test = bool (*)(const LPModel& model, std::int32_t index);
  static bool IsFreeRow(const LPModel& model, std::int32_t row) {
    return model::RowTypeOf(model.RowType(row)) == model::RowType::kFree;
  }

  // Of the records that the test, if there is one, lets pass.
  void OfferNames(std::initializer_list<const model::RecordKind*> kinds, std::string_view end,
                  Test test = nullptr) {
    if (typed_.operands.empty()) return;
    const Arguments arguments;
    Session session(arguments, streams_);
    if (!Read(typed_.operands.front(), session)) return;
    // Files are read in upper case, and so are names that are looked up.
    const std::string_view typed = word_.substr(kept_.size());
    const std::string upper = text::UpperCase(typed);
    for (const model::RecordKind* const kind : kinds) {
      const std::int32_t count = (session.model().*kind->count)();
      for (std::int32_t i = 0; i < count && completion_.candidates.size() < kMostNames; ++i) {
        const std::string name = (session.model().*kind->name)(i);
        if (!name.starts_with(typed) && !name.starts_with(upper)) continue;
        if (text::VisibleText(name) != name) continue;
        if (test != nullptr && !test(session.model(), i)) continue;
        completion_.candidates.push_back(
            {std::string(kept_).append(name).append(end), std::string(kind->noun)});
      }
    }
  }

  bool Read(const std::string& path, Session& session) const {
    std::error_code ignored;
    // A pipe would keep the user waiting, and be empty for the command.
    const std::u8string named(path.begin(), path.end());
    if (!std::filesystem::is_regular_file(std::filesystem::path(named), ignored)) return false;
    const auto start = std::chrono::steady_clock::now();
    mps::ReadOptions options;
    options.open = InputOpener(path, streams_);
    options.on_progress = [start](std::uint64_t, std::uint64_t) {
      return std::chrono::steady_clock::now() - start < kPatience;
    };
    return mps::ReadFile(path, options, session.model().store()).outcome == mps::ReadOutcome::kRead;
  }

  const Typed typed_;
  const std::string_view word_;
  const Streams& streams_;
  std::string_view kept_;  // the part of the word that stands before what is completed
  Completion completion_;
};

}  // namespace

std::span<const std::string_view> ModelSuffixes() { return kSuffixes; }

Completion Complete(std::span<const std::string> words, const Streams& streams) {
  return words.empty() ? Completion() : Completer(words, streams).Run();
}

std::string CompletionText(const Completion& completion) {
  constexpr std::array<std::string_view, 3> kFileWords = {"none", "models", "files"};
  std::string text(kFileWords.at(static_cast<std::size_t>(completion.files)));
  text += '\n';
  for (const Completion::Candidate& candidate : completion.candidates) {
    text += candidate.word;
    if (!candidate.purpose.empty()) text.append("\t").append(candidate.purpose);
    text += '\n';
  }
  return text;
}

}  // namespace quarvel::hosts
