#include "platform/qt/views/menu_builder.h"

namespace Morvane {
namespace {

void AddItems(QWidget& menu, const std::vector<MenuItem>& items, MenuActions& actions) {
  for (const MenuItem& item : items) {
    const bool separator = item.caption == "-";
    QAction& action = *menu.addAction(separator ? QString() : QString::fromStdString(item.caption));
    action.setSeparator(separator);
    action.setObjectName(QString::fromStdString(item.name));
    action.setShortcut(QKeySequence(QString::fromStdString(item.shortcut), QKeySequence::PortableText));
    actions.emplace_back(&item, &action);
    if (item.items.empty()) continue;
    action.setMenu(new QMenu(&menu));
    AddItems(*action.menu(), item.items, actions);
  }
}

}  // namespace

MenuActions FillMenu(QWidget& menu, const std::vector<MenuItem>& items) {
  MenuActions actions;
  AddItems(menu, items, actions);
  MirrorEnabled(actions);
  return actions;
}

void RunChosen(const MenuActions& actions, WindowSystem& windows) {
  for (const auto& [item, action] : actions) {
    if (!item->Click) continue;
    QObject::connect(action, &QAction::triggered, action,
                     [item = item, &windows] { windows.Dispatch(item->Click); });
  }
}

void MirrorEnabled(const MenuActions& actions) {
  for (const auto& [item, action] : actions) action->setEnabled(item->enabled);
}

}  // namespace Morvane
