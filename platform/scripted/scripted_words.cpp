#include "platform/scripted/scripted_words.h"

#include <array>
#include <charconv>

#include "platform/basic_controls.h"
#include "platform/grid.h"
#include "platform/input_controls.h"

namespace quarvel::platform {
namespace {

std::string Words(bool value) { return value ? "true" : "false"; }

std::string Words(float value) {
  std::array<char, 64> digits;
  const auto result =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
  return std::string(digits.data(), result.ptr);
}

template <typename Kind>
const Kind& As(const Control& control) {
  return static_cast<const Kind&>(control);
}

std::string ValueWords(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kOptionButton:
      return Words(As<OptionButton>(control).value());
    case ControlKind::kCheckBox:
      return Words(As<CheckBox>(control).checked());
    case ControlKind::kTextBox:
      return As<TextBox>(control).text();
    case ControlKind::kProgressBar:
      return Words(As<ProgressBar>(control).value());
    default:
      return "none";
  }
}

std::string CurrentWords(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kComboBox:
      return std::to_string(As<ComboBox>(control).list_index());
    case ControlKind::kTabStrip:
      return std::to_string(As<TabStrip>(control).current());
    case ControlKind::kGrid:
      return std::to_string(As<Grid>(control).current_row());
    default:
      return "none";
  }
}

std::string RangeWords(const Control& control) {
  if (control.kind() == ControlKind::kGrid) {
    const auto& grid = As<Grid>(control);
    std::string words = " widths:";
    for (int i = 0; i < grid.columns(); ++i) words += ' ' + std::to_string(grid.column_width(i));
    return words;
  }
  const auto& bar = As<ProgressBar>(control);
  return " range: " + Words(bar.min()) + ' ' + Words(bar.max());
}

std::string ContentsWords(const Control& control) {
  switch (control.kind()) {
    case ControlKind::kComboBox:
      return " items: " + std::to_string(As<ComboBox>(control).items().size());
    case ControlKind::kGrid:
      return " rows: " + std::to_string(As<Grid>(control).rows());
    default:
      return " contents";
  }
}

}  // namespace

std::string ScriptedWords(const Control& control, Change change) {
  switch (change) {
    case Change::kCaption:
      return " caption: " + control.caption();
    case Change::kValue:
      return " value: " + ValueWords(control);
    case Change::kEnabled:
      return " enabled: " + Words(control.enabled());
    case Change::kVisible:
      return " visible: " + Words(control.visible());
    case Change::kRange:
      return RangeWords(control);
    case Change::kContents:
      return ContentsWords(control);
    case Change::kSelection:
      return " current: " + CurrentWords(control);
    case Change::kFocus:
      return " focus";
  }
  return "";
}

}  // namespace quarvel::platform
