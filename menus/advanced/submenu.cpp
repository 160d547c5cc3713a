#include "menus/advanced/items.h"

namespace menus::advanced {

const shell::Submenu submenu = {
    "Advanced Network Setting",
    {
        {"NAT Setting", nat_setting},
        {"Virtual Server Setting", rule_setting<virtual_servers>},
        {"Application Setting", rule_setting<special_applications>},
        {"UPNP Setting", upnp_setting},
        {"Static Route Setting", rule_setting<static_routes>},
        {"MAC Filter", rule_setting<mac_filters>},
        {"IP Filter", rule_setting<ip_filters>},
        {"URL Filter", rule_setting<url_filters>},
        {"Domain Filter", rule_setting<domain_filters>},
        {"Firewall Setting", rule_setting<firewall_rules>},
        {"Rule Summary", rule_summary},
    },
};

}  // namespace menus::advanced
