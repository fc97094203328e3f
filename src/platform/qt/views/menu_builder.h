#pragma once

#include <QMenu>
#include <QMenuBar>
#include <utility>
#include <vector>

#include "platform/controls/window_system.h"

namespace Morvane {

// Each entry of a menu and the action that stands for it.
using MenuActions = std::vector<std::pair<const MenuItem*, QAction*>>;

// Fills a menu bar or a menu. Choosing an entry runs its Click under the program's guard. The items must stay
// where they are as long as the menu lives.
MenuActions FillMenuBar(QMenuBar& bar, const std::vector<MenuItem>& items, WindowSystem& windows);

// Fills a menu whose entries do nothing by themselves; the chosen action is looked up in the result.
MenuActions FillMenu(QMenu& menu, const std::vector<MenuItem>& items);

void MirrorEnabled(const MenuActions& actions);

}  // namespace Morvane
