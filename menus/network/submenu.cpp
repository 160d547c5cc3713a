#include "menus/network/submenu.h"

namespace menus::network {

const shell::Submenu submenu = {
    "Basic Network Setting",
    {{
        {"Wan Setting"},
        {"Lan Setting"},
        {"DHCP setting"},
    }},
};

}  // namespace menus::network
