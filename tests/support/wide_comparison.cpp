#include "tests/support/wide_comparison.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "tests/support/given_bytes.h"
#include "tests/support/naive_wide_reader.h"
#include "tests/support/read_comparison.h"

namespace quarvel::testing {
namespace {

std::string ToldProblem(const NaiveProblem& problem) {
  return problem.first + " in line " + std::to_string(problem.second);
}

std::string CompareWideProblems(const std::vector<NaiveProblem>& naive,
                                const std::vector<mps::FileProblem>& problems) {
  for (std::size_t i = 0; i < std::max(naive.size(), problems.size()); ++i) {
    if (i == naive.size()) {
      return "more: " + std::string(mps::TraitsOf(problems[i].code).id) + " in line " +
             std::to_string(problems[i].line);
    }
    if (i == problems.size()) return "missing: " + ToldProblem(naive[i]);
    const NaiveProblem found(mps::TraitsOf(problems[i].code).id, problems[i].line);
    if (found != naive[i]) return ToldProblem(found) + ", expected " + ToldProblem(naive[i]);
  }
  return "";
}

std::string CompareWideFacts(const mps::FileFacts& naive, const mps::FileFacts& facts) {
  if (naive.sense != facts.sense) return "sense";
  if (naive.objective != facts.objective) return "objective: " + facts.objective;
  if (std::bit_cast<std::uint64_t>(naive.objective_constant) !=
      std::bit_cast<std::uint64_t>(facts.objective_constant)) {
    return "objective_constant";
  }
  if (naive.rhs_set != facts.rhs_set) return "rhs_set: " + facts.rhs_set;
  if (naive.ranges_set != facts.ranges_set) return "ranges_set: " + facts.ranges_set;
  if (naive.bounds_set != facts.bounds_set) return "bounds_set: " + facts.bounds_set;
  if (naive.has_endata != facts.has_endata) return "has_endata";
  return naive.lines != facts.lines ? "lines: " + std::to_string(facts.lines) : "";
}

}  // namespace

mps::FileRead ReadWideBytes(const std::string& bytes, const mps::ReadOptions& options,
                            model::ModelStore& store) {
  mps::ReadOptions all = options;
  all.kept_of_each = SIZE_MAX;
  all.open = [&bytes] { return std::make_unique<GivenBytes>(bytes); };
  return mps::ReadFile("", all, store);
}

std::string CompareWideReads(const std::string& bytes, const mps::ReadOptions& options) {
  NaiveModel naive;
  NaiveWideReader reader(options, naive);
  reader.Read(bytes);

  model::ModelStore store;
  const mps::FileRead read = ReadWideBytes(bytes, options, store);
  if (reader.is_refused != (read.outcome == mps::ReadOutcome::kFailed)) return "refused";
  if (reader.is_refused) return "";
  if (read.outcome != mps::ReadOutcome::kRead) return "not read to its end";
  if (std::string fault = CompareWideProblems(reader.problems, read.problems.kept());
      !fault.empty()) {
    return fault;
  }
  if (std::string fault = CompareWideFacts(reader.facts, read.facts); !fault.empty()) return fault;
  return CompareModels(naive, store);
}

}  // namespace quarvel::testing
