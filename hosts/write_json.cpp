#include "hosts/write_json.h"

#include <array>
#include <string_view>

#include "hosts/printing.h"
#include "hosts/problem_report.h"
#include "mps/loss.h"

namespace quarvel::hosts {
namespace {

using inspect::Receipt;

constexpr std::array<std::string_view, 5> kOutcomes = {"written", "nothing", "losses", "not-same",
                                                       "failed"};
constexpr std::array<std::string_view, 3> kLossWeights = {"breaks", "changes", "noted"};

template <class Word, std::size_t kSize>
std::string_view WordOf(const std::array<std::string_view, kSize>& words, Word word) {
  return words[static_cast<std::size_t>(word)];
}

// The pieces as an array, each on a line of its own.
template <class Range, class Json>
std::string ArrayJson(const Range& range, const Json& json) {
  std::string array = "[";
  for (const auto& each : range) {
    const std::string piece = json(each);
    if (piece.empty()) continue;
    array.append(array.size() > 1 ? ",\n" : "\n").append(piece);
  }
  return array + ']';
}

std::string SizeJson(const ModelSize& size) {
  std::string json = "{";
  AppendJsonMember(json, "rows", size.rows);
  AppendJsonMember(json, "columns", size.columns);
  AppendJsonMember(json, "elements", size.elements);
  return json + '}';
}

// The first of each code, with how many there are.
std::string ProblemsJson(const mps::FileProblems& problems) {
  std::array<bool, 256> told = {};
  return ArrayJson(problems.kept(), [&](const mps::FileProblem& problem) {
    bool& is_told = told[static_cast<std::size_t>(problem.code)];
    if (is_told) return std::string();
    is_told = true;
    const mps::FileProblemTraits& traits = mps::TraitsOf(problem.code);
    std::string json = "{";
    AppendJsonMember(json, "code", traits.id);
    AppendJsonMember(json, "name", traits.name);
    AppendJsonMember(json, "weight", WeightWord(traits.weight()));
    AppendJsonMember(json, "count", problems.CountOf(problem.code));
    if (problem.line != 0) AppendJsonMember(json, "line", std::int64_t{problem.line});
    AppendJsonMember(json, "sentence", mps::SentenceOf(problem));
    return json + '}';
  });
}

std::string LossJson(const mps::Loss& loss) {
  std::string json = "{";
  if (!loss.what.empty()) {
    AppendJsonMember(json, loss.what, loss.name);
    AppendJsonMember(json, "index", loss.number);
  }
  AppendJsonMember(json, "sentence", loss.Sentence());
  return json + '}';
}

std::string LossesJson(const mps::Losses& losses) {
  return ArrayJson(losses.groups(), [](const mps::LossGroup& group) {
    std::string json = "{";
    AppendJsonMember(json, "kind", mps::NameOf(group.kind));
    AppendJsonMember(json, "weight", WordOf(kLossWeights, mps::WeightOf(group.kind)));
    AppendJsonMember(json, "count", group.count);
    AppendJsonObject(json, "first", ArrayJson(group.named, LossJson));
    return json + '}';
  });
}

std::string ReceiptJson(const Receipt& receipt) {
  std::string json = "{";
  AppendJsonMember(json, "readAgain", receipt.is_read_again);
  if (receipt.is_read_again) {
    AppendJsonMember(json, "whole", receipt.is_whole());
    AppendJsonMember(json, "equalRows", receipt.equal_rows);
    AppendJsonMember(json, "equalColumns", receipt.equal_columns);
    AppendJsonMember(json, "equalElements", receipt.equal_coefficients);
    AppendJsonObject(json, "unexpected",
                     ArrayJson(receipt.unexpected, [](const std::string& words) {
                       std::string text;
                       AppendJson(text, words);
                       return text;
                     }));
  }
  return json + '}';
}

}  // namespace

ModelSize SizeOf(const model::ModelStore& store) {
  return {store.NumberOfRows(), store.NumberOfColumns(), store.NumberOfElements()};
}

std::string WriteJson(const WriteStory& story) {
  const inspect::FileWrite& write = story.write;
  std::string json = "{";
  AppendJsonMember(json, "input", story.input);
  AppendJsonMember(json, "output", story.output);
  AppendJsonMember(json, "outcome", WordOf(kOutcomes, write.outcome));
  AppendJsonObject(json, "read", SizeJson(story.read));
  AppendJsonMember(json, "hasEndata", story.has_endata);
  AppendJsonObject(json, "problems", ProblemsJson(story.problems));
  AppendJsonMember(json, "simplified", story.simplified);
  AppendJsonMember(json, "commands", story.commands);
  AppendJsonObject(json, "model", SizeJson(story.model));
  AppendJsonMember(json, "layout", story.layout == mps::FileLayout::kFixed ? "fixed" : "free");
  AppendJsonMember(json, "fitsFixedColumns", write.long_field.empty());
  AppendJsonMember(json, "packing", story.packing != nullptr ? story.packing->name : "none");
  AppendJsonMember(json, "inPlace", story.in_place);
  AppendJsonObject(json, "receipt", ReceiptJson(write.receipt));
  AppendJsonObject(json, "losses", LossesJson(write.receipt.losses));
  if (write.failure) AppendJsonMember(json, "failure", write.failure->description() + write.notes);
  return json + "}\n";
}

}  // namespace quarvel::hosts
