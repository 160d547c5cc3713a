#include "menus/menu_tree.h"

#include "menus/advanced/submenu.h"
#include "menus/network/submenu.h"
#include "menus/sip/submenu.h"
#include "menus/status/submenu.h"
#include "menus/tools/submenu.h"
#include "menus/voip/submenu.h"

namespace menus {

// In the order of the main menu.
constinit const shell::MenuTree menu_tree = {
    &network::submenu, &advanced::submenu, &sip::submenu, &voip::submenu, &tools::submenu, &status::submenu,
};

}  // namespace menus
