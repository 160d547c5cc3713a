#include "menus/advanced/items.h"

namespace menus::advanced {

constexpr shell::Submenu::Item items[] = {
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
};

constinit const shell::Submenu submenu = shell::Submenu::of<items>();

}  // namespace menus::advanced
