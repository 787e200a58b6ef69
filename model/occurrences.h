// Which entries of the lists of one kind name each record of the other: for removing records where
// the lists of both disagree. There a removal takes the first entry that names the record out of
// each list of the other kind, and entries that name it still name from then on the record that
// comes next. All by position (model/gaps.h).
//
// Made in one pass over the lists, 8 bytes an entry. What is done with it costs a few steps, of a
// logarithm, for each entry that is taken out or named the removed record in the beginning,
// whatever is removed in whichever order.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "model/model_data.h"

namespace quarvel::model {

class Occurrences {
 public:
  // Where an entry stands: the position of the record whose list it is in, and its place there.
  struct Place {
    std::int32_t owner;
    std::int32_t place;
    // What the compiler makes of it compares with a 0. NOLINTNEXTLINE(modernize-use-nullptr)
    auto operator<=>(const Place&) const = default;
  };

  // Of the lists of owners 1..count, those that name positions 1..stored. What there was stays when
  // memory runs out.
  template <class Record>
  void Make(const OneBased<Record>& owners, std::int32_t count, std::int32_t stored);
  void Clear() noexcept { *this = Occurrences(); }

  // To be called before what names a position is asked for or taken out, for the memory that this
  // takes. When there is none nothing has changed.
  void Prepare(std::int32_t position);
  // Calls `visit` with the owner of each list that names the position, ascending.
  template <class Visit>
  void ForEachOwner(std::int32_t position, const Visit& visit) const;
  // Takes the first entry of each such list out, calling `visit` with its place. What names the
  // position still names `next` from now on; 0 when nothing comes next.
  template <class Visit>
  void TakeFirsts(std::int32_t position, std::int32_t next, const Visit& visit);

 private:
  using Places = std::set<Place>;
  using Groups = std::map<std::int32_t, Places>;

  static Places::const_iterator BehindOwner(const Places& places, std::int32_t owner) {
    return places.lower_bound({owner + 1, 0});
  }
  void PassOn(Groups::iterator group, std::int32_t next) noexcept;
  std::size_t Start(std::int32_t position) const {
    return starts_[static_cast<std::size_t>(position)];
  }

  // What named position p in the beginning stands in named_ from Start(p) up to Start(p + 1).
  std::vector<Place> named_;
  std::vector<std::size_t> starts_;
  // Whether a position's part of that has gone into its group.
  std::vector<bool> prepared_;
  // What names a position now, without what is not prepared.
  Groups groups_;
};

template <class Record>
void Occurrences::Make(const OneBased<Record>& owners, std::int32_t count, std::int32_t stored) {
  const auto for_each = [&](const auto& visit) {
    for (std::int32_t owner = 1; owner <= count; ++owner) {
      const ElementList& list = owners[owner].Elements;
      for (std::int32_t place = 1; place <= list.size(); ++place) {
        const std::int32_t position = list[place].Index;
        if (position < 1 || position > stored) continue;
        visit(static_cast<std::size_t>(position), Place{owner, place});
      }
    }
  };
  Occurrences made;
  made.starts_.resize(static_cast<std::size_t>(stored) + 2);
  for_each([&](std::size_t position, Place) { ++made.starts_[position + 1]; });
  for (std::size_t i = 1; i < made.starts_.size(); ++i) made.starts_[i] += made.starts_[i - 1];
  made.named_.resize(made.starts_.back());
  std::vector<std::size_t> next = made.starts_;
  for_each([&](std::size_t position, Place place) { made.named_[next[position]++] = place; });
  made.prepared_.resize(static_cast<std::size_t>(stored) + 1);
  *this = std::move(made);
}

template <class Visit>
void Occurrences::ForEachOwner(std::int32_t position, const Visit& visit) const {
  const auto group = groups_.find(position);
  if (group == groups_.end()) return;
  const Places& places = group->second;
  for (auto i = places.begin(); i != places.end(); i = BehindOwner(places, i->owner)) {
    visit(i->owner);
  }
}

template <class Visit>
void Occurrences::TakeFirsts(std::int32_t position, std::int32_t next, const Visit& visit) {
  const auto group = groups_.find(position);
  if (group == groups_.end()) return;
  Places& places = group->second;
  for (auto i = places.cbegin(); i != places.cend();) {
    const Place first = *i;
    places.erase(i);
    visit(first);
    i = BehindOwner(places, first.owner);
  }
  PassOn(group, next);
}

}  // namespace quarvel::model
