#pragma once

#include <QAction>
#include <QMenu>
#include <QWidget>
#include <utility>
#include <vector>

#include "platform/controls/window_system.h"

namespace Morvane {

// Each entry of a menu and the action that stands for it.
using MenuActions = std::vector<std::pair<const MenuItem*, QAction*>>;

// Fills a menu or a menu bar. The items must stay where they are as long as it lives. Choosing an entry does
// nothing yet.
MenuActions FillMenu(QWidget& menu, const std::vector<MenuItem>& items);

// From now on choosing an entry runs its Click under the program's guard.
void RunChosen(const MenuActions& actions, WindowSystem& windows);

void MirrorEnabled(const MenuActions& actions);

}  // namespace Morvane
