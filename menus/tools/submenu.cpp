#include "menus/tools/items.h"

namespace menus::tools {

const shell::Submenu submenu = {
    "Tools",
    {
        {},  // not shown
        {},  // not shown
        {"Day/Time Setting", day_time_menu},
        {"DDNS Setting", ddns_menu},
        {"System Setting", system_tools_menu},
    },
};

}  // namespace menus::tools
