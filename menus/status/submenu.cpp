#include "menus/status/items.h"

namespace menus::status {

const shell::Submenu submenu = {
    "Status",
    {
        {"Device Infomation", device_information},
        {"Log", log_viewer},
        {"Line State", line_state},
        {"Call Detailed Record", call_detail_records},
    },
};

}  // namespace menus::status
