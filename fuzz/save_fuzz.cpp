// A command that writes, to a target of any kind, with one fault in its calls to the system where the input
// chooses so: a call fails, is cut short, or is the last one. The first run goes elsewhere, without a fault, and
// tells what the new contents are. Then the target holds the old or the new contents whole; the new
// ones where the command says that it went well, and no name is left behind but what it was told to write.
// What it prints cannot steer a terminal, and is whole JSON where it was asked for.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/choices.h"
#include "fuzz/folder.h"
#include "fuzz/printed_text.h"
#include "platform/temporary_file.h"
#include "tests/support/file_faults.h"
#include "tests/support/json_value.h"
#include "tests/support/naive_edit_language.h"
#include "tests/support/naive_reader.h"
#include "tests/support/naive_simplify.h"
#include "tests/support/naive_writer.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/save_comparison.h"
#include "tests/support/wide_file.h"

namespace {

using namespace quarvel::testing;
using quarvel::FaultKind;
using quarvel::FileFaults;
using quarvel::Outcome;
using quarvel::ReadWholeFile;
using quarvel::RunQuarvel;
using quarvel::WriteWholeFile;
using quarvel::fuzz::Choices;
using quarvel::fuzz::Require;
using Words = std::vector<std::string>;
namespace fs = std::filesystem;

constexpr const char* kOld = "what was there\n";

enum class Target : std::uint8_t { kNone, kPlain, kLink, kHardLink, kSource, kCount };

bool Has(const Words& words, std::string_view start) {
  return std::any_of(words.begin(), words.end(),
                     [start](const std::string& word) { return word.starts_with(start); });
}

std::string Told(const Words& words, const Outcome& result) {
  std::string told = "quarvel";
  for (const std::string& word : words) told += " [" + word + "]";
  return told + "\nstatus " + std::to_string(result.status) + "\nout:\n" + result.out + "\nerr:\n" +
         result.err + "\n";
}

std::string ChooseModel(Choices& choose) {
  const auto number = [&choose](std::uint32_t n) { return choose(n); };
  switch (choose(4)) {
    case 0:
      return MakeWideFile(number);
    case 1:
      return choose.Until(0);
    case 2:
      return WriteNaively(ChooseAnyModel(number)).text;
    default:
      return WriteNaively(ChooseKeptModel(number)).text;
  }
}

// The command with its options; what stands between them and the files is put there by the caller.
Words ChooseOptions(Choices& choose) {
  static const std::array<const char*, 15> kOptions = {"--json",
                                                       "--strict",
                                                       "--layout=free",
                                                       "--layout=fixed",
                                                       "--allow-loss",
                                                       "--log=l.txt",
                                                       "--allow-missing-endata",
                                                       "--on-error=continue",
                                                       "--json",
                                                       "--simplify",
                                                       "--on-conflict=remove",
                                                       "--on-conflict=reset",
                                                       "--ask",
                                                       "--dialect=component",
                                                       "--default-bounds=inf"};
  Words options;
  for (std::uint32_t more = choose(5); more > 0; --more) {
    options.emplace_back(kOptions[choose(kOptions.size())]);
  }
  return options;
}

Words ChooseCommands(Choices& choose) {
  const auto number = [&choose](std::uint32_t n) { return choose(n); };
  Words words;
  for (std::uint32_t more = 1 + choose(4); more > 0; --more) {
    words.insert(words.end(), {"-c", ChooseEditLine(number, {}).text});
  }
  return words;
}

std::string ChooseTyped(Choices& choose) {
  static const std::array<const char*, 8> kLines = {"y\n",   "n\n",    "all\n", "quit\n",
                                                    "yes\n", "what\n", "\n",    "no\n"};
  std::string typed;
  for (std::uint32_t more = choose(8); more > 0; --more) typed += kLines[choose(kLines.size())];
  return typed;
}

// What there is, by the names of the files: the contents, and where links lead.
struct Places {
  std::string model;
  Target target = Target::kNone;

  std::string name() const { return target == Target::kSource ? "a.mps" : "t.mps"; }
  std::string old() const { return target == Target::kSource ? model : kOld; }

  void Make() const {
    WriteWholeFile("a.mps", model);
    if (target == Target::kPlain) WriteWholeFile("t.mps", kOld);
    if (target != Target::kLink && target != Target::kHardLink) return;
    WriteWholeFile("other.mps", kOld);
    if (target == Target::kLink) fs::create_symlink("other.mps", "t.mps");
    if (target == Target::kHardLink) fs::create_hard_link("other.mps", "t.mps");
  }

  // Where the new contents stand whole of a file that was written in place, which the message names.
  static std::string Kept(const Outcome& result) {
    constexpr std::string_view kSaid = "What it was to hold is in ";
    const std::size_t start = result.err.find(kSaid);
    if (start == std::string::npos) return "";
    const std::size_t name = start + kSaid.size();
    return result.err.substr(name, result.err.find('\n', name) - name);
  }

  // Of what stands there that nobody asked for.
  static std::string Stray(const Words& words, const Outcome& result) {
    for (const auto& entry : fs::directory_iterator(".")) {
      const std::string found = entry.path().filename().string();
      const bool is_known =
          found == "a.mps" || found == "t.mps" || found == "other.mps" || found == Kept(result) ||
          (found == "l.txt" && Has(words, "--log")) ||
          result.err.find("the backup " + found + " could not be deleted") != std::string::npos ||
          result.err.find("The backup could not be deleted: " + found) != std::string::npos;
      if (!is_known) return found;
    }
    return "";
  }
};

Words CommandLine(const Words& before, const std::string& out, const Words& behind) {
  Words words = {before[0], "a.mps", out};
  words.insert(words.end(), behind.begin(), behind.end());
  return words;
}

std::string FaultOfPrint(const Words& words, const Outcome& result) {
  if (result.status < 0 || result.status > 2) return "no such exit status";
  if (quarvel::fuzz::SteersTerminal(result.out, "\n") ||
      quarvel::fuzz::SteersTerminal(result.err, "\n"))
    return "control characters";
  if (!Has(words, "--json") || result.out.empty()) return "";
  try {
    quarvel::JsonValue::Parse(result.out);
  } catch (const std::invalid_argument& fault) {
    return std::string("no JSON: ") + fault.what();
  }
  return "";
}

// What the command writes where nothing fails and nothing is there; nothing where it refuses.
std::optional<std::string> Expected(const std::string& model, const Words& words,
                                    const std::string& typed) {
  WriteWholeFile("a.mps", model);
  const Outcome result = RunQuarvel(words, typed);
  Require(FaultOfPrint(words, result), Told(words, result));
  Require(ReadWholeFile("a.mps") != model ? "the file that was read was changed" : "",
          Told(words, result));
  Require(fs::exists(words[2]) == (result.status == 0) ? "" : "which file is there",
          Told(words, result));
  if (result.status != 0) return std::nullopt;
  return ReadWholeFile(words[2]);
}

void CheckTarget(const Places& places, const std::optional<std::string>& expected,
                 const Outcome& result, const std::string& told) {
  const bool is_there = fs::exists(places.name());
  const std::string now = is_there ? ReadWholeFile(places.name()) : "";
  const bool is_new = is_there && expected && now == *expected;
  const bool is_old = places.target == Target::kNone ? !is_there : is_there && now == places.old();
  if (result.status == 0) Require(is_new ? "" : "said to be written, and is not", told + now);
  const std::string kept = places.target == Target::kHardLink ? Places::Kept(result) : "";
  const bool is_kept = !kept.empty() && expected && ReadWholeFile(kept) == *expected;
  Require(is_new || is_old || is_kept ? "" : "neither the old nor the new contents", told + now);
  if (places.target == Target::kLink) {
    Require(fs::is_symlink("t.mps") ? "" : "the link was replaced", told);
  }
  if (places.target == Target::kHardLink && is_there) {
    Require(ReadWholeFile("other.mps") == now ? "" : "the names hold different contents", told);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static constexpr std::array<FaultKind, 6> kKinds = {
      FaultKind::kNone,         FaultKind::kDeviceError, FaultKind::kDiskFull,
      FaultKind::kNotPermitted, FaultKind::kCutShort,    FaultKind::kEnds};
  static const quarvel::TemporaryFolder folder;
  quarvel::fuzz::EmptyFolder(folder);
  const quarvel::fuzz::InFolder inside(quarvel::fuzz::PathOf(folder));
  Choices choose(data, size);
  const Words command = {std::array{"convert", "simplify", "edit"}[choose(3)]};
  Words behind = ChooseOptions(choose);
  Places places;
  places.target = static_cast<Target>(choose(static_cast<std::uint32_t>(Target::kCount)));
  const FaultKind kind = kKinds[choose(kKinds.size())];
  const int at = 1 + static_cast<int>(choose(60));
  const std::string typed = ChooseTyped(choose);
  if (command[0] == "edit") {
    const Words commands = ChooseCommands(choose);
    behind.insert(behind.end(), commands.begin(), commands.end());
  }
  places.model = ChooseModel(choose);

  const auto expected = Expected(places.model, CommandLine(command, "t.mps", behind), typed);
  quarvel::fuzz::EmptyFolder(fs::path("."));
  places.Make();
  const Words words = CommandLine(command, places.name(), behind);
  Outcome result;
  bool ended = false;
  {
    const FileFaults faults(kind, at);
    result = RunQuarvel(words, typed);
    ended = faults.ended();
  }
  const std::string told = "fault " + std::to_string(static_cast<int>(kind)) + " at call " +
                           std::to_string(at) + "\n" + Told(words, result);
  // In place, as the names of a file with several demand, an end may leave a part; a copy is kept beside it.
  if (ended && places.target == Target::kHardLink) return 0;
  if (!ended) Require(FaultOfPrint(words, result), told);
  CheckTarget(places, expected, result, told);
  std::string stray = ended ? "" : Places::Stray(words, result);
  // A temporary file that could not be deleted goes with the next save.
  if (quarvel::platform::IsTemporaryName(stray))
    stray = Places::Stray(words, RunQuarvel(words, typed));
  Require(stray.empty() ? "" : "left behind: " + stray, told);
  return 0;
}
