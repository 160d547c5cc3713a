#include "menus/menu_tree.h"

#include "menus/advanced/items.h"
#include "menus/network/items.h"
#include "menus/sip/items.h"
#include "menus/status/items.h"
#include "menus/tools/items.h"
#include "menus/voip/items.h"

namespace menus {

// In the order of the main menu.
constinit const shell::MenuTree menu_tree = {
    &network::submenu, &advanced::submenu, &sip::submenu, &voip::submenu, &tools::submenu, &status::submenu,
};

}  // namespace menus
