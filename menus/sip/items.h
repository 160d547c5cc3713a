// The dialogues of the SIP menu.
#pragma once

namespace menus::sip {

void basic_setting();
void account_setting();
void nat_traversal();

}  // namespace menus::sip
