// One administrator connection: start-up, the login guard, the login, and the end.
#pragma once

#include <cstdint>

#include "config/login_record.h"
#include "config/segment.h"
#include "shell/menu.h"

namespace shell {

// Runs the console on standard input and output, to its end.
[[noreturn]] void run_console(const MenuTree& menus);

// With both records attached: says goodbye, gives the login back, detaches both segments and ends the process
// with status 1.
[[noreturn]] void end_console();

// Wall-clock time in whole seconds: the one clock of the login record.
std::uint32_t now_seconds();

// The record of all settings, attached from before the login to the end of the process. Other programs write
// it at any time.
config::ConfigurationSegment& segment();

// For the idle time-out: true while this console still holds an unexpired login, whose idle time then starts
// again.
bool refresh_login();

// A shared-memory segment cannot be had: "cfgid" and the system's words for `error`, on standard error.
void report_segment_error(int error);

}  // namespace shell
