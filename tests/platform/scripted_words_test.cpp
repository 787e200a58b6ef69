#include "platform/scripted/scripted_words.h"

#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "platform/grid.h"
#include "platform/input_controls.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {
namespace {

TEST(ScriptedWords, TellWhatChanged) {
  ScriptedDesktop desktop;
  Form form(desktop, "frmTest");
  Label label(form, "lbl", {});
  label.set_caption("Name:");
  OptionButton option(form, "opt", {});
  CheckBox check(form, "chk", {});
  check.set_checked(true);
  TextBox text(form, "txt", {});
  text.set_text("abc");
  ComboBox combo(form, "cbo", {});
  combo.set_items({"a", "b"});
  combo.set_list_index(1);
  TabStrip strip(form, "sst", {}, {"a", "b"});
  Grid grid(form, "grd", {}, {10, 20});
  grid.set_rows(7);
  ProgressBar bar(form, "bar", {});
  bar.set_value(2.5F);
  const struct {
    const Control& control;
    Change change;
    const char* words;
  } cases[] = {
      {label, Change::kCaption, " caption: Name:"}, {label, Change::kEnabled, " enabled: true"},
      {label, Change::kVisible, " visible: true"},  {label, Change::kFocus, " focus"},
      {option, Change::kValue, " value: false"},    {check, Change::kValue, " value: true"},
      {text, Change::kValue, " value: abc"},        {bar, Change::kValue, " value: 2.5"},
      {bar, Change::kRange, " range: 0 100"},       {combo, Change::kContents, " items: 2"},
      {combo, Change::kSelection, " current: 1"},   {strip, Change::kSelection, " current: 0"},
      {grid, Change::kContents, " rows: 7"},        {grid, Change::kSelection, " current: 0"},
      {grid, Change::kRange, " widths: 10 20"},
  };
  for (const auto& c : cases) EXPECT_EQ(ScriptedWords(c.control, c.change), c.words);
}

}  // namespace
}  // namespace quarvel::platform
