#include "menus/menu_tree.h"

#include <iterator>
#include <tuple>

#include "menus/advanced/items.h"
#include "menus/network/items.h"
#include "menus/sip/items.h"
#include "menus/status/items.h"
#include "menus/tools/items.h"
#include "menus/voip/items.h"

namespace menus {

constexpr shell::MenuTree::Item items[] = {
    {"Basic Network Setting", &network::submenu},
    {"Advanced Network Setting", &advanced::submenu},
    {"SIP setting", &sip::submenu},
    {"VoIP Setting", &voip::submenu},
    {"Tools", &tools::submenu},
    {"Status", &status::submenu},
};

constinit const shell::MenuTree menu_tree = shell::MenuTree::of<items>();
static_assert(std::size(items) == std::tuple_size_v<decltype(menu_tree.targets)>);

}  // namespace menus
