// Every fault at every call of a way of saving, and what is left of the user's work after each.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/faults/recorded_calls.h"
#include "tests/faults/way_of_saving.h"

namespace quarvel::faults {

// What came of the faults that were made.
struct Tally {
  int calls = 0;
  int faults = 0;
  // Neither the old content nor the new one was there whole.
  int neither_whole = 0;
  // The exit status or the messages did not tell what had happened.
  int untrue = 0;
  // Something else was wrong: a temporary file that stayed, a mode, a link.
  int disorder = 0;
  // The next save, without any fault, did not succeed or did not clear what was left.
  int not_saved_again = 0;
  // The first of all these in words.
  std::vector<std::string> told;

  bool IsGood() const { return neither_whole + untrue + disorder + not_saved_again == 0; }
};

// The faults that may meet a call, as tests/faults/preload/fault_plan.h has them, for its number.
std::vector<std::string> FaultsOf(const RecordedCall& call, int number);

class FaultSweep {
 public:
  explicit FaultSweep(const WayOfSaving& way) : folder_(way) {}

  // Every fault, or every `share`th of them.
  Tally Run(int share);
  // A failed call, and then the end of the process at each call that follows; of the calls, every
  // `share`th fails.
  Tally RunFailuresWithAnEnd(int share);
  // The process is killed half-way through a file that it writes in its own place, and then every
  // `share`th fault meets the save that is to mend it. No faults where nothing is written so, or
  // without a second copy.
  Tally RunFaultsAfterATornSave(int share);

 private:
  void Learn();
  bool Tear();
  Ended Meet(const std::string& faults);
  RecordedCall CallOf(const std::string& faults) const;
  // Whether the file may be torn, because nothing could take its place: there is a whole copy then.
  bool MayBeTorn(const std::string& faults) const;
  void CheckFiles(const std::string& faults, const Ended& ended);
  void CheckForeignFile(const std::string& faults);
  void CheckTruth(const std::string& faults, const Ended& ended);
  void CheckNextSave(const std::string& faults);
  bool IsOld() const;
  bool IsNew() const;
  bool IsBackedUp() const;
  bool IsWholeCopy(const std::optional<std::string>& content) const;
  void Tell(int& count, const std::string& faults, const std::string& what);

  SavingFolder folder_;
  std::vector<RecordedCall> calls_;
  std::optional<std::string> old_content_;
  std::optional<std::string> new_content_;
  // The names in the folder before and after a good save.
  std::set<std::string> names_before_;
  std::set<std::string> names_after_;
  Tally tally_;
};

}  // namespace quarvel::faults
