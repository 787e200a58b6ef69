// Models saved by LPModel and by the naive writer, and read back, for the agreement test and the
// fuzzer.
#pragma once

#include <string>
#include <vector>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/edit_operations.h"
#include "tests/support/naive_model.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {

// Any model that edits can lead to: names of any bytes, any doubles, pairs added twice, records
// without elements or type.
NaiveModel ChooseAnyModel(const Choice& choose);

// A model that a file keeps whole: no empty record, no pair twice, names as a file's reader has
// them, types that follow from the bounds, values that their texts hold exactly.
NaiveModel ChooseKeptModel(const Choice& choose);

// What the reader makes of the written file of such a model: the integer columns last, the lists
// in the order of the file.
NaiveModel AsReadBack(const NaiveModel& model);

// Where the file of a save stands, and what is there before.
struct SavePlan {
  bool own_file = false;    // the model came from that file
  bool old_file = false;    // the file is there already; it is when it is the model's own
  bool old_backup = false;  // a file of the backup's name is there already
};
SavePlan ChooseSavePlan(const Choice& choose);

class SaveComparison {
 public:
  // Saves the model. An empty text when result, boxes, path, every file of the folder and the model
  // afterwards are as they must be, else what differs.
  std::string Save(const NaiveModel& model, const SavePlan& plan);
  // Reads what was written last, with the reader and the naive one; for a model that had elements
  // and that a file keeps also with what the model was. Deletes the file.
  std::string ReadBack(const NaiveModel& model, bool is_kept);

 private:
  void Prepare(const NaiveModel& model, const SavePlan& plan);
  std::string CompareFiles(const SavePlan& plan, bool refused) const;
  std::string CompareTalk(const std::vector<std::string>& expected) const;

  TemporaryFolder folder_;
  std::string path_ = folder_.File("model.mps");
  std::string backup_ = folder_.File("model.bkp");
  platform::ScriptedDesktop desktop_;
  std::string written_;
};

}  // namespace quarvel::testing
