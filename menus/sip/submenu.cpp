#include "menus/sip/items.h"

namespace menus::sip {

const shell::Submenu submenu = {
    "SIP setting",
    {
        {"Basic Setting", basic_setting},
        {"Account Setting", account_setting},
        {"NAT Traversal", nat_traversal},
    },
};

}  // namespace menus::sip
