#include "menus/sip/items.h"

namespace menus::sip {

constexpr shell::Submenu::Item items[] = {
    {"Basic Setting", basic_setting},
    {"Account Setting", account_setting},
    {"NAT Traversal", nat_traversal},
};

constinit const shell::Submenu submenu = shell::Submenu::of<items>();

}  // namespace menus::sip
