#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

#include "api/parts.h"
#include "api/streams.h"
#include "inspect/lint.h"
#include "mps/read_file.h"
#include "platform/byte_source.h"
#include "quarvel/files.h"

namespace quarvel {
namespace {

// The bytes of a text that outlives it.
class TextBytes : public platform::ByteSource {
 public:
  explicit TextBytes(std::string_view text) : text_(text) {}
  std::uint64_t size() const override { return text_.size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = std::min(capacity, text_.size() - at_);
    std::memcpy(buffer, text_.data() + at_, count);
    at_ += count;
    return count;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

static_assert(api::IsSameNumber(Severity::kError, mps::ProblemWeight::kError));
static_assert(api::IsSameNumber(Severity::kAdapted, mps::ProblemWeight::kAdapted));
static_assert(api::IsSameNumber(Severity::kWarning, mps::ProblemWeight::kWarning));
static_assert(api::IsSameNumber(Dialect::kWide, mps::FileDialect::kWide));
static_assert(api::IsSameNumber(Dialect::kComponent, mps::FileDialect::kComponent));
static_assert(api::IsSameNumber(FieldColumns::kByLine, mps::FileColumns::kByLine));
static_assert(api::IsSameNumber(FieldColumns::kFixed, mps::FileColumns::kFixed));
static_assert(api::IsSameNumber(FieldColumns::kFree, mps::FileColumns::kFree));
static_assert(api::IsSameNumber(ReadOutcome::kRead, mps::ReadOutcome::kRead));
static_assert(api::IsSameNumber(ReadOutcome::kFailed, mps::ReadOutcome::kFailed));
static_assert(api::IsSameNumber(ReadOutcome::kRefused, mps::ReadOutcome::kRefused));
static_assert(api::IsSameNumber(ReadOutcome::kStopped, mps::ReadOutcome::kStopped));

Problem PublicProblem(const mps::FileProblem& problem) {
  const mps::FileProblemTraits& traits = mps::TraitsOf(problem.code);
  return {.severity = static_cast<Severity>(traits.weight()),
          .code = traits.id,
          .name = traits.name,
          .line = problem.line,
          .column = problem.column,
          .length = problem.length,
          .text = problem.text,
          .item = problem.item,
          .message = problem.failure ? problem.failure->description() : mps::SentenceOf(problem),
          .expected = traits.expected};
}

mps::ReadOptions InnerOptions(const ReadOptions& options) {
  mps::ReadOptions inner;
  inner.dialect = static_cast<mps::FileDialect>(options.dialect);
  inner.columns = static_cast<mps::FileColumns>(options.columns);
  inner.objective = options.objective;
  inner.negative_upper_frees_lower = options.negative_upper_frees_lower;
  inner.infinite_default_bounds = options.infinite_default_bounds;
  inner.kept_of_each = options.kept_of_each;
  if (options.on_problem) {
    inner.on_problem = [&options](const mps::FileProblem& problem) {
      return options.on_problem(PublicProblem(problem));
    };
  }
  inner.on_progress = options.on_progress;
  return inner;
}

ReadResult PublicResult(const mps::FileRead& read) {
  ReadResult result;
  result.outcome = static_cast<ReadOutcome>(read.outcome);
  for (const mps::FileProblem& problem : read.problems.kept()) {
    result.problems.push_back(PublicProblem(problem));
  }
  result.errors = read.problems.CountOf(mps::ProblemWeight::kError);
  result.adapted = read.problems.CountOf(mps::ProblemWeight::kAdapted);
  result.warnings = read.problems.CountOf(mps::ProblemWeight::kWarning);
  result.lines = read.facts.lines;
  return result;
}

ReadResult Read(const std::string& path, Model& model, const ReadOptions& options,
                mps::ReadOptions inner) {
  ModelParts& parts = ModelAccess::Of(model);
  const api::Work work(parts);
  return api::Translated([&] {
    parts.facts = {};
    mps::FileRead read = mps::ReadFile(path, inner, parts.store);
    const bool is_read = read.outcome == mps::ReadOutcome::kRead;
    if (is_read && options.lint) inspect::Lint(parts.store, read.facts, read.problems);
    ReadResult result = PublicResult(read);
    result.has_endata = is_read && !parts.store.settings().EndLineMissing;
    if (!is_read) return result;
    read.facts.says_upper.clear();
    parts.facts = std::move(read.facts);
    if (!path.empty()) parts.store.settings().FileLocation = path;
    return result;
  });
}

}  // namespace

ReadResult ReadFile(const std::string& path, Model& model, const ReadOptions& options) {
  return Read(path, model, options, InnerOptions(options));
}

ReadResult api::ReadOpened(const OpenBytes& open, const std::string& path, Model& model,
                           const ReadOptions& options) {
  mps::ReadOptions inner = InnerOptions(options);
  inner.open = open;
  return Read(path, model, options, std::move(inner));
}

ReadResult ReadText(std::string_view text, Model& model, const ReadOptions& options) {
  mps::ReadOptions inner = InnerOptions(options);
  inner.open = [text] { return std::make_unique<TextBytes>(text); };
  return Read("", model, options, std::move(inner));
}

}  // namespace quarvel
