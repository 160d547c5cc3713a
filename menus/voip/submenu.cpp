#include "menus/voip/items.h"

namespace menus::voip {

constexpr shell::Submenu::Item items[] = {
    {"Voice Setting"},
    {"Call Service", call_service},
    {"Phone Setting", phone_setting},
    {"E.164 Setting", e164_setting},
    {"FAX Setting", fax_setting},
    {"General Dialing Setting"},
    {"QOS/TOS Setting", qos_tos_setting},
    {"Phone Book Setting", phone_book},
    {"Call Screen", call_screen},
};

constinit const shell::Submenu submenu = shell::Submenu::of<items>();

}  // namespace menus::voip
