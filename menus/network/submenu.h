#pragma once

#include "shell/menu.h"

namespace menus::network {

extern const shell::Submenu submenu;

}  // namespace menus::network
