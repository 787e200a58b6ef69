// Models simplified by LPModel and by the naive simplifier, with any answers, stops and hosts that
// call back, for the property test and the fuzzer: the whole state, every box, caption, event point
// and line of the log must agree.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/edit_operations.h"
#include "tests/support/naive_model.h"
#include "tests/support/naive_simplify.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {

class SimplifyComparison {
 public:
  SimplifyComparison();

  // Simplifies a model of the chooser's both ways. An empty text when they agree, else what differs.
  std::string Run(const Choice& choose);

 private:
  // What the host does at a moment, with what it saw there. `looks` decides whether it looks at the
  // whole model, which completes what was deferred; otherwise it only edits.
  struct Visit {
    bool looks = false;
    std::string seen;
    std::vector<EditOperation> operations;
    std::vector<std::string> results;
  };

  void RunNaive(const Choice& choose);
  void VisitNaive(const Choice& choose, Visit& visit);
  void RunComponent();
  void VisitComponent();
  platform::MsgBoxResult Answer(const platform::ShownBox& box);
  std::string Compare() const;
  void Expect(const std::string& what, const std::string& is, const std::string& wanted);
  std::string ExpectedLog() const;

  TemporaryFolder folder_;
  std::string log_name_ = folder_.File("model.log");
  platform::ScriptedDesktop desktop_;
  std::unique_ptr<LPModel> model_;
  NaiveModel naive_;
  NaiveUser user_;
  std::unique_ptr<NaiveSimplifier> naive_run_;
  bool host_looks_ = false;
  bool host_edits_ = false;
  std::map<std::int64_t, Visit> visits_;
  std::int64_t moment_ = 0;
  std::deque<platform::MsgBoxResult> answers_;
  std::string naive_failure_;
  std::string failure_;
  std::string fault_;
};

}  // namespace quarvel::testing
