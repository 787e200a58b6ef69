#include "tests/support/naive_wide_objective.h"

#include <algorithm>
#include <cstddef>

namespace quarvel::testing {

void NaiveObjective::ChooseRow(mps::FileFacts& facts, std::vector<Problem>& problems) const {
  const std::string& wanted = asked.empty() ? named : asked;
  const bool is_there = std::find(free_rows.begin(), free_rows.end(), wanted) != free_rows.end();
  if (is_there) {
    facts.objective = wanted;
  } else if (!free_rows.empty()) {
    facts.objective = free_rows[0];
  }
  if (!named.empty() && (is_there || !asked.empty())) problems.emplace_back("A308", naming_line);
  if (!wanted.empty() && !is_there) problems.emplace_back("E123", asked.empty() ? naming_line : 0);
}

void NaiveObjective::Finish(mps::FileFacts& facts, std::vector<Problem>& problems) const {
  ChooseRow(facts, problems);
  std::size_t last = mentions.size();
  for (std::size_t i = 0; i < mentions.size(); ++i) {
    if (mentions[i].is_rhs && mentions[i].row == facts.objective) last = i;
  }
  for (std::size_t i = 0; i < mentions.size(); ++i) {
    const Mention& mention = mentions[i];
    if (mention.row != facts.objective) {
      problems.emplace_back(mention.is_rhs ? "W407" : "W405", mention.line);
    } else if (i == last) {
      problems.emplace_back("A309", mention.line);
      facts.objective_constant = mention.value == 0 ? 0 : -mention.value;
    }
  }
}

}  // namespace quarvel::testing
