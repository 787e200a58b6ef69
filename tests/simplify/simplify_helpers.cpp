#include "tests/simplify/simplify_helpers.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "platform/files.h"
#include "tests/support/shown_form.h"

namespace quarvel::simplify {

using platform::MsgBoxResult;
using platform::ShownBox;

SimplifySession::SimplifySession() {
  model.store().settings().FileLocation = folder.File("model.mps");
  desktop.on_box = [this](const ShownBox& box) { return Answer(box); };
}

MsgBoxResult SimplifySession::Answer(const ShownBox& box) {
  if (on_shown) on_shown(box);
  if (box.text == kLogQuestion || box.text == kNothingDone) {
    ++(box.text == kLogQuestion ? change_questions_ : nothing_done_boxes_);
    log_bytes_ = platform::FileExists(log_name) ? ReadWholeFile(log_name) : "";
    return box.text == kLogQuestion ? see_log : MsgBoxResult::kOk;
  }
  if (box.style == platform::MsgBoxStyle::kOk) return MsgBoxResult::kOk;
  if (box.title == "Confirm") return MsgBoxResult::kYes;
  if (answers.empty()) throw std::logic_error("nobody answers " + box.text);
  const MsgBoxResult answer = answers.front();
  answers.pop_front();
  return answer;
}

void SimplifySession::CheckAfterwards() {
  EXPECT_TRUE(desktop.shown().empty());
  EXPECT_TRUE(ShownForm<mps::frmProgress>(desktop).StopRequested);
  EXPECT_FALSE(ShownForm<mps::frmProgress>(desktop).IsLoaded());
  EXPECT_EQ(model.store().settings().LogFileNumber, 0);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

void SimplifySession::Simplify() {
  model.SimplifyMPSModel();
  CheckAfterwards();
}

std::int32_t SimplifySession::FailureOfSimplify() {
  std::int32_t number = 0;
  try {
    model.SimplifyMPSModel();
  } catch (const AutomationError& error) {
    number = error.number();
  }
  CheckAfterwards();
  return number;
}

std::vector<std::string> SimplifySession::LogLines() const {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < log_bytes_.size();) {
    const std::size_t end = log_bytes_.find("\r\n", start);
    if (end == std::string::npos) throw std::logic_error("the last line of the log has no end");
    lines.push_back(log_bytes_.substr(start, end - start));
    start = end + 2;
  }
  if (!lines.empty()) lines.erase(lines.begin());
  return lines;
}

std::vector<std::string> SimplifySession::ColumnNames() const {
  std::vector<std::string> names;
  for (std::int32_t j = 0; j < model.NumberOfColumns(); ++j) names.push_back(model.ColName(j));
  return names;
}

std::vector<std::string> SimplifySession::RowNames() const {
  std::vector<std::string> names;
  for (std::int32_t i = 0; i < model.NumberOfRows(); ++i) names.push_back(model.RowName(i));
  return names;
}

std::vector<std::string> SimplifySession::Captions() const {
  static constexpr std::string_view kPrefix = "caption frmProgress: ";
  std::vector<std::string> captions;
  for (const std::string& line : desktop.transcript()) {
    if (line.starts_with(kPrefix)) captions.push_back(line.substr(kPrefix.size()));
  }
  return captions;
}

void SimplifySession::PressStop() { ShownForm<mps::frmProgress>(desktop).cmdStop.Click(); }

}  // namespace quarvel::simplify
