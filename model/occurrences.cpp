#include "model/occurrences.h"

#include <utility>

namespace quarvel::model {

void Occurrences::Prepare(std::int32_t position) {
  const auto offset = static_cast<std::size_t>(position);
  if (prepared_[offset]) return;
  const auto begin = named_.begin();
  Places places(begin + static_cast<std::ptrdiff_t>(Start(position)),
                begin + static_cast<std::ptrdiff_t>(Start(position + 1)));
  groups_[position].merge(places);
  prepared_[offset] = true;
}

// The smaller of two groups goes into the larger one, so that no entry is moved often.
void Occurrences::PassOn(Groups::iterator group, std::int32_t next) noexcept {
  auto node = groups_.extract(group);
  if (node.mapped().empty() || next == 0) return;
  node.key() = next;
  const auto passed = groups_.insert(std::move(node));
  if (passed.inserted) return;
  Places& there = passed.position->second;
  Places& more = passed.node.mapped();
  if (there.size() < more.size()) there.swap(more);
  there.merge(more);
}

}  // namespace quarvel::model
