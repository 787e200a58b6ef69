#include "tests/viewer/viewer_session.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tests/support/shown_form.h"
#include "text/numbers.h"

namespace quarvel::viewer {

const std::string kSimplifyQuestionText =
    "Do you want to simplify the model?\r\nThis will remove empty rows and columns, and will "
    "convert any rows with just one element into equivalent column bounds";

ViewerTest::ViewerTest() {
  desktop_.on_box = [this](const platform::ShownBox& box) { return Answer(box); };
  desktop_.on_idle = [this](platform::Form& top) { Idle(top); };
}

void ViewerTest::BuildModel() {
  ModelBuilder(model_)
      .Name("DIET")
      .Description("first\r\nsecond")
      .Location(folder_.File("diet.mps"))
      .Row("COST", 'N')
      .Row("LIM", 'L', 4)
      .Row("LOW", 'G', 1.5)
      .Ranged("RNG", 2, 8)
      .Row("EQ", 'E', 7)
      .Column("X")
      .Integer("Y", 0, 10)
      .Column("Z", -1, 1)
      .Column("W")
      .Element("X", "COST", 1)
      .Element("X", "LIM", 2)
      .Element("Y", "LIM", 3)
      .Element("Y", "LOW", 1)
      .Element("Z", "EQ", -2.5)
      .Element("X", "EQ", 1);
}

MsgBoxResult ViewerTest::Answer(const platform::ShownBox& box) {
  if (leaving_) return kNo;
  if (const auto hook = on_shown_) hook(box);
  if (box.style == MsgBoxStyle::kOk) return MsgBoxResult::kOk;
  if (desktop_.answers.empty()) {
    ADD_FAILURE() << "nobody answers: " << box.text;
    return kNo;
  }
  const MsgBoxResult answer = desktop_.answers.front();
  desktop_.answers.pop_front();
  return answer;
}

void ViewerTest::Idle(platform::Form& top) {
  if (top.name() != "frmViewEquations") {
    if (dialogs_.empty()) throw std::logic_error("nobody drives " + top.name());
    const auto drive = std::move(dialogs_.front());
    dialogs_.pop_front();
    return drive(top);
  }
  if (const auto steps = std::exchange(steps_, nullptr)) return steps();
  leaving_ = true;
  top.RequestClose();
  leaving_ = false;
}

void ViewerTest::View(const std::function<void()>& steps, bool editing) {
  ShowBy([&] { model_.ViewEquations(editing); }, steps);
}

void ViewerTest::ShowBy(const std::function<void()>& operation,
                        const std::function<void()>& steps) {
  steps_ = steps;
  operation();
  EXPECT_FALSE(steps_) << "the viewer was not shown";
  for (const std::string& line : desktop_.transcript()) {
    EXPECT_FALSE(line.starts_with("unexpected")) << line;
  }
}

frmViewEquations& ViewerTest::viewer() { return ShownForm<frmViewEquations>(desktop_); }

platform::MenuItem& ViewerTest::Item(std::string_view name) {
  return dynamic_cast<platform::MenuItem&>(*viewer().Find(name));
}

void ViewerTest::Choose(std::string_view name) {
  Item(name).parent()->Open();
  Item(name).Click();
}

namespace {

void SelectLine(platform::Grid& grid, std::string_view name) {
  for (int line = 0; line < grid.rows(); ++line) {
    if (grid.Text(line, 0) == name) return grid.Select(line);
  }
  ADD_FAILURE() << name << " is not shown in " << grid.name();
}

}  // namespace

void ViewerTest::SelectRow(std::string_view name) {
  TurnTo(kRowsPage.number);
  SelectLine(viewer().contents.rows.fgrdList, name);
}

void ViewerTest::SelectColumn(std::string_view name) {
  TurnTo(kColumnsPage.number);
  SelectLine(viewer().contents.columns.fgrdList, name);
}

Texts ViewerTest::Column(const platform::Grid& grid, int column) {
  Texts texts;
  for (int line = 0; line < grid.rows(); ++line) texts.push_back(grid.Text(line, column));
  return texts;
}

Texts ViewerTest::Boxes() const {
  Texts texts;
  for (const platform::ShownBox& box : desktop_.boxes()) texts.push_back(box.text);
  return texts;
}

std::string ViewerTest::RowText(std::int32_t row) const {
  return model_.RowName(row) + ' ' + model_.RowType(row) + ' ' +
         text::GeneralText(model_.RowLowerBound(row)) + ' ' +
         text::GeneralText(model_.RowUpperBound(row));
}

std::string ViewerTest::ColumnText(std::int32_t column) const {
  return model_.ColName(column) + ' ' + model_.ColType(column) + ' ' +
         text::GeneralText(model_.ColLowerBound(column)) + ' ' +
         text::GeneralText(model_.ColUpperBound(column));
}

}  // namespace quarvel::viewer
