// What simplifying must do, on the naive model: every row and column is deleted as soon as it is
// decided on, nothing is deferred. Compared with LPModel by the property test.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "model/model_data.h"
#include "platform/desktop.h"
#include "tests/support/naive_model.h"

namespace quarvel::testing {

// Whoever sits in front of the model.
struct NaiveUser {
  std::deque<platform::MsgBoxResult> answers;  // to conflicts, in order
  bool sees_log = false;
  bool editor_starts = true;
  std::int64_t stops_at_event =
      0;  // the number of the event point at which Stop is pressed; 0: never
  // The host, called at each event point and while each conflict is asked about; `moment` counts
  // both together from 1.
  std::function<void(std::int64_t moment)> calls_back;
};

class NaiveSimplifier {
 public:
  NaiveSimplifier(NaiveModel& model, NaiveUser& user, std::string log_name)
      : model_(model), user_(user), log_name_(std::move(log_name)) {}

  // Raises what stops it in the middle. The lines of the log are those of the model, without the
  // heading.
  void Run();

  // As the scripted desktop records it. A host that is called back adds its own boxes.
  std::vector<std::string> transcript;
  bool log_kept = false;

 private:
  void RunPasses();
  void ConvertRows();
  // Each tells whether the pass goes on.
  bool ConvertRow(std::int32_t& i);
  bool ConvertEquality(std::int32_t& i);
  bool ConvertRange(std::int32_t& i);
  bool AskEquality(std::int32_t& i, double lower, double upper);
  bool AskRange(std::int32_t& i, double lower, double upper);
  void ConvertInequality(std::int32_t& i);
  void RemoveEmpty();
  void TellOutcome();

  static NaiveRecord& At(std::vector<NaiveRecord>& records, std::int32_t number);
  NaiveRecord& Row(std::int32_t i);
  NaiveRecord& ColumnOfRow(std::int32_t i);
  double Divide(double bound, double coefficient);
  void Convert(std::int32_t& i, const std::string& line);
  void Delete(std::int32_t& i);
  bool Step(std::int64_t steps, std::int64_t interval, const std::string& caption);
  void Log(const std::string& line);
  platform::MsgBoxResult Ask(const std::string& text, const std::string& title);
  void Moment();

  NaiveModel& model_;
  NaiveUser& user_;
  std::string log_name_;
  std::string location_;
  std::string caption_;
  std::int64_t moments_ = 0;
  std::int64_t events_ = 0;
  std::int64_t counter_ = 0;
  std::int64_t total_ = 0;
  bool stopped_ = false;
  bool changed_ = false;
};

// All stored fields as text, the same for equal models.
std::string Dump(const NaiveModel& model);
std::string Dump(const model::ModelData& data);
// Gives `data`, a fresh model's, the contents of `model`.
void Fill(model::ModelData& data, const NaiveModel& model);

}  // namespace quarvel::testing
