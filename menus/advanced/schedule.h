// When a rule is active: always, or in a daily time span on a run of weekdays.
#pragma once

#include "config/segment.h"
#include "shell/dialogue.h"

namespace menus::advanced {

// The last column of a list row, with the end of the row.
void show_schedule(const config::Schedule& schedule);

void ask_schedule(shell::Dialogue& ask, config::Schedule& schedule);

}  // namespace menus::advanced
