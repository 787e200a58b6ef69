// How the parts of the wide dialect tell what they found.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "mps/file_problem.h"
#include "mps/line_source.h"
#include "mps/line_texts.h"

namespace quarvel::mps {

using HearProblem = std::function<void(FileProblem)>;

// About `part` of the line's split_text(), or about the whole line when that is empty.
inline FileProblem ProblemOf(FileProblemCode code, const SourceLine& line, std::string_view part,
                             std::string item = {}, std::string made = {}) {
  FileProblem problem{.code = code, .line = line.number()};
  ShowPlace(line, part, problem);
  problem.item = std::move(item);
  problem.made = std::move(made);
  return problem;
}
inline void TellOf(const HearProblem& hear, FileProblemCode code, const SourceLine& line,
                   std::string_view part, std::string item = {}, std::string made = {}) {
  hear(ProblemOf(code, line, part, std::move(item), std::move(made)));
}

}  // namespace quarvel::mps
