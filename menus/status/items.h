// The pages of the Status menu. They change no setting.
#pragma once

namespace menus::status {

void device_information();
void log_viewer();
void line_state();
void call_detail_records();

}  // namespace menus::status
