#include "menus/tools/submenu.h"

namespace menus::tools {

const shell::Submenu submenu = {
    "Tools",
    {{
        {},  // not shown
        {},  // not shown
        {"Day/Time Setting"},
        {"DDNS Setting"},
        {"System Setting"},
    }},
};

}  // namespace menus::tools
