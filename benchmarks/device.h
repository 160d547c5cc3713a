// As much of a device as the console needs to be measured: its segments, and a voice daemon with a long call
// log. All of it in the namespaces that benchmarks/run has made.
#pragma once

namespace benchmarks {

// Creates and fills the login record and the settings: every rule table is full.
void set_up_segments();

// Starts a process that answers every request on the voice daemon's port with 100 call records. It dies with
// us.
void start_voice_daemon();

[[noreturn]] void fail(const char* what);

}  // namespace benchmarks
