#include "platform/qt/form_menus.h"

#include "platform/qt/form_window.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
FormMenus::FormMenus(FormWindow& owner, Form& form) : owner_(owner) {
  const std::vector<MenuItem*> items = MenuBar(form);
  if (items.empty()) return;
  bar_ = new QMenuBar(&owner);
  bar_->setNativeMenuBar(false);
  for (MenuItem* item : items) Add(*item, *bar_);
}

template <typename Parent>
void FormMenus::Add(MenuItem& item, Parent& parent) {
  if (!item.children().empty()) {
    QMenu* const menu = parent.addMenu(QString());
    menu->setObjectName(ToQt(item.name()));
    actions_[&item] = menu->menuAction();
    AddMenu(item, *menu);
  } else if (item.is_separator) {
    actions_[&item] = parent.addSeparator();
  } else {
    QAction* const action = parent.addAction(QString());
    actions_[&item] = action;
    QObject::connect(action, &QAction::triggered, action, [this, &item] {
      if (actions_.contains(&item)) owner_.ForUser([&item] { item.Click(); });
    });
  }
  actions_[&item]->setObjectName(ToQt(item.name()));
  Mirror(item);
}

void FormMenus::AddMenu(MenuItem& item, QMenu& menu) {
  menus_[&item] = &menu;
  for (MenuItem* child : item.children()) Add(*child, menu);
  QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this, &item] {
    if (actions_.contains(&item)) owner_.ForUser([&item] { item.Open(); });
  });
}

void FormMenus::Mirror(const MenuItem& item) {
  const auto found = actions_.find(&item);
  if (found == actions_.end()) return;
  QAction& action = *found->second;
  if (!item.is_separator) action.setText(ToQt(MenuText(item, '&')));
  action.setEnabled(item.enabled());
  action.setVisible(item.visible());
}

void FormMenus::PopUp(const MenuItem& item, const QPoint& global_position) {
  const auto menu = menus_.find(&item);
  if (menu != menus_.end()) menu->second->popup(global_position);
}

void FormMenus::Retire() {
  actions_.clear();
  for (const auto& [item, menu] : menus_) menu->hide();
  menus_.clear();
}

}  // namespace quarvel::platform::qt
