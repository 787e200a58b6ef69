#include "inspect/lint.h"

#include <string>
#include <utility>

#include "inspect/lint_parts.h"
#include "mps/exact_losses.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using mps::FileProblem;
using mps::FileProblemCode;

// The read has told of these.
bool IsToldElsewhere(mps::LossKind kind) {
  return kind == mps::LossKind::kEmptyRow || kind == mps::LossKind::kEmptyColumn;
}

std::string WordsOf(const mps::LossGroup& group) {
  const mps::Loss& loss = group.named.front();
  std::string words = loss.words;
  if (!loss.what.empty()) words = "the " + std::string(loss.what) + ' ' + words;
  if (group.count > 1) words += "; " + text::IntegerText(group.count) + " of this kind";
  return words;
}

// No model is another for it: no reason to call a file risky.
void TellSets(const mps::LossGroup& sets, const LintListener& listener) {
  for (const mps::Loss& loss : sets.named) {
    listener.Tell(FileProblemCode::kSetRenamed, [&loss] {
      return FileProblem{.code = {}, .item = loss.name, .made = loss.words};
    });
  }
}

// One for each kind of loss.
void LintLosses(const model::ModelStore& store, const mps::FileFacts& facts,
                const LintListener& listener) {
  const mps::Losses losses = mps::LossesOf(store, facts, mps::FileLayout::kFixed);
  for (const mps::LossGroup& group : losses.groups()) {
    if (IsToldElsewhere(group.kind)) continue;
    if (group.kind == mps::LossKind::kSetName) {
      TellSets(group, listener);
      continue;
    }
    listener.Tell(FileProblemCode::kNotKept, [&group] {
      return FileProblem{.code = {}, .item = group.named.front().name, .made = WordsOf(group)};
    });
  }
}

}  // namespace

void Lint(const model::ModelStore& store, const mps::FileFacts& facts,
          const LintListener& listener) {
  const model::ModelData& data = store.data();
  if (!store.looks().KnowsPairsDistinct()) LintPairs(data, listener);
  LintBounds(data, facts, listener);
  LintNames(data, listener);
  LintScale(data, listener);
  LintParallel(data, listener);
  LintLosses(store, facts, listener);
}

void Lint(const model::ModelStore& store, const mps::FileFacts& facts,
          mps::FileProblems& problems) {
  Lint(store, facts,
       {[&problems](FileProblemCode code) { return problems.WillKeep(code); },
        [&problems](FileProblem problem) { problems.Add(std::move(problem)); }});
}

}  // namespace quarvel::inspect
