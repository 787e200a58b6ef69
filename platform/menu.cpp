#include "platform/menu.h"

#include <utility>

namespace quarvel::platform {
namespace {

std::string KeyName(KeyPress press) {
  switch (press.key) {
    case Key::kNone:
      break;
    case Key::kDelete:
      return "Del";
    case Key::kF1:
      return "F1";
    case Key::kF2:
      return "F2";
    case Key::kLetter:
      return std::string(1, press.letter);
  }
  return "";
}

}  // namespace

std::string KeyText(KeyPress press) {
  const std::string name = KeyName(press);
  if (name.empty()) return {};
  return (press.ctrl ? "Ctrl+" : "") + std::string(press.shift ? "Shift+" : "") + name;
}

MenuItem::MenuItem(Form& form, std::string name, MenuItem* parent)
    : Control(form, ControlKind::kMenuItem, std::move(name), {}), parent_(parent) {
  if (parent_ != nullptr) parent_->children_.push_back(this);
}

bool MenuItem::Available() const {
  return enabled() && visible() && (parent_ == nullptr || parent_->Available());
}

void MenuItem::Open() {
  if (parent_ != nullptr) parent_->Open();
  RunForUser(on_open);
}

void MenuItem::Click() {
  if (Available()) RunForUser(on_click);
}

std::string MenuText(const MenuItem& item, char mark) {
  const std::string key = KeyText(item.shortcut);
  return MarkedCaption(item, mark) + (key.empty() ? "" : '\t' + key);
}

std::vector<MenuItem*> MenuBar(const Form& form) {
  std::vector<MenuItem*> bar;
  for (Control* control : form.controls()) {
    if (control->kind() != ControlKind::kMenuItem) continue;
    auto* item = static_cast<MenuItem*>(control);
    if (item->parent() == nullptr) bar.push_back(item);
  }
  return bar;
}

bool PressShortcut(const Form& form, KeyPress press) {
  for (Control* control : form.controls()) {
    if (control->kind() != ControlKind::kMenuItem) continue;
    auto& item = static_cast<MenuItem&>(*control);
    if (item.shortcut != press || item.shortcut_is_label || press.key == Key::kNone) continue;
    if (item.parent() != nullptr) item.parent()->Open();
    if (!item.Available()) continue;
    item.Click();
    return true;
  }
  return false;
}

}  // namespace quarvel::platform
