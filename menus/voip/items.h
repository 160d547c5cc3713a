// The dialogues of the VoIP menu.
#pragma once

namespace menus::voip {

void call_service();
void phone_setting();
void e164_setting();
void fax_setting();
void qos_tos_setting();
void phone_book();
void call_screen();

}  // namespace menus::voip
