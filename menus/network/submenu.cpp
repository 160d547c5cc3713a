#include "menus/network/items.h"

namespace menus::network {

constexpr shell::Submenu::Item items[] = {
    {"Wan Setting", wan_setting},
    {"Lan Setting", lan_setting},
    {"DHCP setting", dhcp_setting},
};

constinit const shell::Submenu submenu = shell::Submenu::of<items>();

}  // namespace menus::network
