// The dialogues of the SIP menu.
#pragma once

namespace menus::sip {

void basic_setting();

}  // namespace menus::sip
