#include "platform/qt/views/menu_builder.h"

namespace Morvane {
namespace {

// Menu: QMenuBar or QMenu.
template <typename Menu>
void AddItems(Menu& menu, const std::vector<MenuItem>& items, MenuActions& actions) {
  for (const MenuItem& item : items) {
    const QString caption = QString::fromStdString(item.caption);
    if (item.caption == "-") {
      menu.addSeparator();
    } else if (!item.items.empty()) {
      QMenu& inner = *menu.addMenu(caption);
      actions.emplace_back(&item, inner.menuAction());
      AddItems(inner, item.items, actions);
    } else {
      QAction& action = *menu.addAction(caption);
      action.setObjectName(QString::fromStdString(item.name));
      action.setShortcut(QKeySequence(QString::fromStdString(item.shortcut), QKeySequence::PortableText));
      actions.emplace_back(&item, &action);
    }
  }
}

}  // namespace

MenuActions FillMenuBar(QMenuBar& bar, const std::vector<MenuItem>& items, WindowSystem& windows) {
  MenuActions actions;
  AddItems(bar, items, actions);
  for (const auto& [item, action] : actions) {
    QObject::connect(action, &QAction::triggered, &bar, [item = item, &windows] {
      windows.Dispatch([&] {
        if (item->Click) item->Click();
      });
    });
  }
  MirrorEnabled(actions);
  return actions;
}

MenuActions FillMenu(QMenu& menu, const std::vector<MenuItem>& items) {
  MenuActions actions;
  AddItems(menu, items, actions);
  MirrorEnabled(actions);
  return actions;
}

void MirrorEnabled(const MenuActions& actions) {
  for (const auto& [item, action] : actions) action->setEnabled(item->enabled);
}

}  // namespace Morvane
