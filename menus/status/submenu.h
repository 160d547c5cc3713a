#pragma once

#include "shell/menu.h"

namespace menus::status {

extern const shell::Submenu submenu;

}  // namespace menus::status
