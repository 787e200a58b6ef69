// Where the entries of one long list are, for finding and taking out many of them without walking
// the list or moving what stands behind each.
//
// An entry that is taken out stays in the list as one that names nowhere (Gaps::kNowhere) until
// gaps are closed; which places are left is counted as for positions of records. By position
// (model/gaps.h); places are numbered from 1.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

#include "model/gaps.h"
#include "model/model_data.h"

namespace quarvel::model {

class ListPlaces {
 public:
  // `others` tells which entries of the list are gone.
  ListPlaces(const ElementList& list, const Gaps& others);

  // The place of the first entry that names that position, 0 when there is none.
  std::int32_t First(std::int32_t position) const;
  // The place of the k-th entry that is left, and which one of those the entry at a place is.
  std::int32_t PlaceOf(std::int32_t k) const { return places_.PositionOf(k); }
  std::int32_t NumberOf(std::int32_t place) const { return places_.NumberOf(place); }

  // The entry at that place, which names that position, is taken out.
  void Remove(std::int32_t place, std::int32_t position) noexcept;
  // One more entry stands at the end. When memory runs out nothing has changed.
  void Append(std::int32_t position);
  // That was not so.
  void TakeBackAppend(std::int32_t position) noexcept;

 private:
  // The first and the last place of those that name a position.
  struct Ends {
    std::int32_t first;
    std::int32_t last;
  };
  std::int32_t& Next(std::int32_t place) { return next_[static_cast<std::size_t>(place)]; }

  Gaps places_;
  std::unordered_map<std::int32_t, Ends> ends_;
  std::vector<std::int32_t> next_;  // by place: the next that names the same position, or 0
};

// The places of those lists of one kind that are long and were walked often.
class LongLists {
 public:
  bool empty() const { return lists_.empty(); }
  // Those of the list at that position, null while it is better walked. Counts as a walk.
  ListPlaces* Find(std::int32_t position, const ElementList& list, const Gaps& others);
  // The same without that: null unless they have been made.
  ListPlaces* Known(std::int32_t position) const;
  void Clear() { lists_.clear(); }

 private:
  struct Walked {
    int times = 0;
    std::unique_ptr<ListPlaces> places;
  };
  std::map<std::int32_t, Walked> lists_;
};

// The place of the k-th entry of a list that is not gone, 0 when there is none. `places` are those of
// the list, where they are known.
std::int32_t PlaceOfKth(std::int32_t k, const ElementList& list, const Gaps& others,
                        const ListPlaces* places);

// By position of a row, of a column.
struct LongListsOfBoth {
  void Clear() {
    rows.Clear();
    columns.Clear();
  }
  LongLists rows;
  LongLists columns;
};

}  // namespace quarvel::model
