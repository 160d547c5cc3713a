#include "menus/sip/submenu.h"

#include "menus/sip/items.h"

namespace menus::sip {

const shell::Submenu submenu = {
    "SIP setting",
    {{
        {"Basic Setting", basic_setting},
        {"Account Setting"},
        {"NAT Traversal"},
    }},
};

}  // namespace menus::sip
