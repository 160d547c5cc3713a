#include "menus/network/items.h"

namespace menus::network {

const shell::Submenu submenu = {
    "Basic Network Setting",
    {
        {"Wan Setting", wan_setting},
        {"Lan Setting", lan_setting},
        {"DHCP setting", dhcp_setting},
    },
};

}  // namespace menus::network
