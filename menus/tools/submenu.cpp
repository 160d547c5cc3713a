#include "menus/tools/items.h"

namespace menus::tools {

constexpr shell::Submenu::Item items[] = {
    {},  // not shown
    {},  // not shown
    {"Day/Time Setting", day_time_menu},
    {"DDNS Setting", ddns_menu},
    {"System Setting", system_tools_menu},
};

constinit const shell::Submenu submenu = shell::Submenu::of<items>();

}  // namespace menus::tools
