#include "menus/status/items.h"

namespace menus::status {

constexpr shell::Submenu::Item items[] = {
    {"Device Infomation", device_information},
    {"Log", log_viewer},
    {"Line State", line_state},
    {"Call Detailed Record", call_detail_records},
};

constinit const shell::Submenu submenu = shell::Submenu::of<items>();

}  // namespace menus::status
