// Making a change last and take effect. The save always comes first.
#pragma once

#include "shell/dialogue.h"

namespace shell {

// Runs a command line through the system shell and waits for it. What was printed before it is on the screen
// by then. Exit statuses are not looked at.
void run_command(const char* command);

// Asks the web server to write the configuration segment to the device's permanent storage. The keyboard does
// not interrupt it: half a save would be reported as a whole one.
void save_settings();

// Restarts the packet filter and NAT with the saved settings, then reports "Setting Save!!".
void restart_filter_and_nat();

// Tells the voice daemon that voice or SIP settings changed. When the flag cannot be had, that is reported on
// standard error with the label "cfgid": the change stays saved, but unannounced.
void raise_voice_change_flag();

// Save, "Setting Save!!", and word to the voice daemon.
void save_and_signal_voice_daemon();

// How voice and SIP dialogues end: their answers are committed and the daemon is told, unless they have ended
// early.
void commit_and_signal_voice_daemon(Dialogue& ask);

}  // namespace shell
