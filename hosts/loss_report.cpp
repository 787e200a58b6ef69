#include "hosts/loss_report.h"

#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {

std::vector<std::string> LossLines(const mps::Losses& losses, mps::LossWeight weight) {
  std::vector<std::string> lines;
  for (const mps::LossGroup& group : losses.groups()) {
    if (mps::WeightOf(group.kind) != weight) continue;
    for (const mps::Loss& loss : group.named) lines.push_back(text::VisibleText(loss.Sentence()));
    const std::int64_t more = group.count - static_cast<std::int64_t>(group.named.size());
    if (more > 0) lines.push_back("... and " + text::IntegerText(more) + " more like it");
  }
  return lines;
}

}  // namespace quarvel::hosts
