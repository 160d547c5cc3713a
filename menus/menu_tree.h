// All menus.
#pragma once

#include "shell/menu.h"

namespace menus {

extern const shell::MenuTree menu_tree;

}  // namespace menus
