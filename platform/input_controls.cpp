#include "platform/input_controls.h"

#include <utility>

namespace quarvel::platform {
namespace {

bool IsNumberOf(int index, std::size_t count) {
  return index >= 0 && static_cast<std::size_t>(index) < count;
}

std::string WithLineEnds(std::string_view text, std::string_view line_end) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    if (text[i] == '\r' || text[i] == '\n') {
      result += line_end;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace

void TextBox::set_text(std::string_view text) {
  std::string wanted = WithLineEnds(text, lines_ == Lines::kMany ? "\r\n" : " ");
  if (text_ == wanted) return;
  text_ = std::move(wanted);
  Changed(Change::kValue);
}

void TextBox::Type(std::string_view text) {
  if (!enabled() || !visible() || read_only) return;
  std::string wanted = WithLineEnds(text, lines_ == Lines::kMany ? "\r\n" : " ");
  if (text_ == wanted) return;
  // The drawer shows it already: telling it would move the user's cursor.
  text_ = std::move(wanted);
  RunForUser(on_change);
}

void ComboBox::set_items(std::vector<std::string> items) {
  items_ = std::move(items);
  list_index_ = -1;
  Changed(Change::kContents);
}

bool ComboBox::Choose(int index) {
  if (index != -1 && !IsNumberOf(index, items_.size())) return false;
  if (list_index_ != index) {
    list_index_ = index;
    Changed(Change::kSelection);
  }
  return true;
}

void ComboBox::set_list_index(int index) {
  if (Choose(index) && on_click) on_click();
}

void ComboBox::Select(int index) {
  if (enabled() && visible() && Choose(index)) RunForUser(on_click);
}

TabStrip::TabStrip(Form& form, std::string name, Place place, std::vector<std::string> captions)
    : Control(form, ControlKind::kTabStrip, std::move(name), place),
      captions_(std::move(captions)) {}

void TabStrip::Hold(int page, Control& control) {
  held_.push_back({page, &control});
  control.ShowPage(page == current_);
}

bool TabStrip::TurnTo(int page) {
  if (page == current_ || !IsNumberOf(page, captions_.size())) return false;
  current_ = page;
  Changed(Change::kSelection);
  // Away with the old page first, so that the two are never seen over each other.
  for (const Held& held : held_) {
    if (held.page != page) held.control->ShowPage(false);
  }
  for (const Held& held : held_) {
    if (held.page == page) held.control->ShowPage(true);
  }
  return true;
}

void TabStrip::set_current(int page) {
  if (TurnTo(page) && on_change) on_change();
}

void TabStrip::Select(int page) {
  if (enabled() && visible() && TurnTo(page)) RunForUser(on_change);
}

}  // namespace quarvel::platform
