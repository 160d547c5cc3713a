#include "menus/status/submenu.h"

namespace menus::status {

const shell::Submenu submenu = {
    "Status",
    {{
        {"Device Infomation"},
        {"Log"},
        {"Line State"},
        {"Call Detailed Record"},
    }},
};

}  // namespace menus::status
