#include "menus/advanced/submenu.h"

namespace menus::advanced {

const shell::Submenu submenu = {
    "Advanced Network Setting",
    {{
        {"NAT Setting"},
        {"Virtual Server Setting"},
        {"Application Setting"},
        {"UPNP Setting"},
        {"Static Route Setting"},
        {"MAC Filter"},
        {"IP Filter"},
        {"URL Filter"},
        {"Domain Filter"},
        {"Firewall Setting"},
        {"Rule Summary"},
    }},
};

}  // namespace menus::advanced
