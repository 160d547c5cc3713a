#include "menus/voip/submenu.h"

namespace menus::voip {

const shell::Submenu submenu = {
    "VoIP Setting",
    {{
        {"Voice Setting"},
        {"Call Service"},
        {"Phone Setting"},
        {"E.164 Setting"},
        {"FAX Setting"},
        {"General Dialing Setting"},
        {"QOS/TOS Setting"},
        {"Phone Book Setting"},
        {"Call Screen"},
    }},
};

}  // namespace menus::voip
