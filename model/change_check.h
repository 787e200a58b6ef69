// Looks at the whole model after each change, in builds for finding our own mistakes: those compiled
// with QUARVEL_CHECK_EACH_CHANGE, throughout. Nothing at all in others.
#pragma once

#include <cstddef>

namespace quarvel::model {

struct StoredModel;
class DeferredWork;

#ifdef QUARVEL_CHECK_EACH_CHANGE

class ChangeCheck {
 public:
  // A model that was whole, with no pair of row and column twice, must be so after any change but
  // for that pair: else the program ends with the fault. Looks at a copy with nothing deferred, so
  // that what is deferred stays so. A model too large to be looked at each time is looked at as
  // often as the changes pay for; a pair may have come twice and gone in part since the last look, so
  // it need not be whole where a removal has found its lists to disagree.
  void After(const StoredModel& model, const DeferredWork& deferred);
  // The model is a new one, of which nothing is known.
  void Forget() { was_whole_ = has_skipped_ = false; }

 private:
  void Look(const StoredModel& model, const DeferredWork& deferred);

  bool was_whole_ = true;
  bool has_skipped_ = false;  // a change since the last look
  std::size_t credit_ = 0;
};

#else

class ChangeCheck {
 public:
  void After(const StoredModel&, const DeferredWork&) {}
  void Forget() {}
};

#endif

}  // namespace quarvel::model
