// Everything the console asks of the operating system, in the console's own terms.
//
// This header is a link-time seam: platform/linux.cpp is the device, tests link a fake. Nothing here
// allocates, throws or prints on its own. Texts passed in are NUL-terminated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace platform {

// ---- The connection: standard input and output ----

// Leaves the keyboard's signals and a hang-up to the program's reads and writes: a line cut off ends as end
// of input, Ctrl-C does not leave the login held. Gives SIGCHLD its default back, whoever ignored it, so that
// a program started from here has an exit status.
void settle_signals();

// Waits for input and returns how many bytes were stored, at least 1; 0 at end of input or on a lost
// connection.
std::size_t read_input(std::span<char> into);

// Writes all of it. False when the other end is gone.
bool write_output(std::string_view bytes);

// "LABEL: error text" and a newline on standard error, for an errno value.
void report_error(const char* label, int error);

[[noreturn]] void exit_process(int status);

// ---- Shared memory ----

struct Attachment {
  enum class Outcome : std::uint8_t { attached, not_opened, not_attached };
  Outcome outcome;
  int error;     // errno value when outcome is not `attached`
  void* memory;  // valid until detach_segment; nullptr unless `attached`
};

// Creates or opens (mode 0666) the System V segment with this key and attaches it read-write. `size` in
// bytes.
Attachment attach_segment(std::int32_t key, std::size_t size);
void detach_segment(void* memory);

// Writes a field of an attached segment. Other programs see it before anything that is written after it.
void write_shared(void* field, std::span<const char> value);

// ---- Clock ----

// Since the epoch.
std::uint64_t wall_clock_milliseconds();

struct LocalTime {
  int year;   // e.g. 2010
  int month;  // 1 to 12
  int day;    // 1 to 31
  int hour;
  int minute;
  int second;
};
// In the time zone that is in force now: a script may have installed another one since the last call.
LocalTime local_time();

void sleep_seconds(unsigned seconds);

// ---- Programs ----

// Programs started from here get the default dispositions of the terminal's signals, but for Ctrl-Z: a
// program that it stopped would never come back to the console that waits for it.

// What Ctrl-C and Ctrl-\ do to a command.
enum class Keyboard : std::uint8_t { interrupts, is_ignored };

// Runs a command line through the system shell and waits for it. Its exit status is nobody's business here.
void run_shell_command(const char* command, Keyboard keyboard);

// A shell command whose standard output is read. A failed start has descriptor -1.
struct CommandStream {
  int descriptor;
  int process;
};
CommandStream open_command(const char* command);
void close_command(CommandStream stream);  // waits for the command to end

// Whether a program can be reached from the terminal, or has a session of its own.
enum class Terminal : std::uint8_t { kept, left };

constexpr int cannot_start = 255;

// Runs a program without a shell and with standard input, output and error closed. `arguments` ends with
// nullptr. Returns the exit status, or one of these: cannot_start, or 128 + the number of the signal that
// ended it.
int run_program(const char* path, const char* const arguments[], Terminal terminal);

// Flushes the file systems to storage.
void sync_storage();

// ---- Files ----

// Both return a descriptor, or a negative errno value.
int open_for_reading(const char* path);
int open_for_writing(const char* path);  // creates or truncates

// Bytes read, 0 at the end, negative errno on failure. Serves commands' output as well.
std::ptrdiff_t read_some(int descriptor, std::span<char> into);
// 0, or a negative errno value when not all of it was written.
int write_all(int descriptor, std::string_view bytes);
// Returns once storage has what was written. 0, or a negative errno value.
int flush_file(int descriptor);
// Back to the first byte, in a file that is open.
void rewind_file(int descriptor);
// 0, or the negative errno value with which the last write-back failed. Never call it twice.
int close_descriptor(int descriptor);  // of a file or a socket
const char* error_text(int error);

// ---- UDP ----

// The descriptors' calls return 0 or more, or a negative errno value. Addresses hold the first octet in the
// lowest-addressed byte; ports are in host order.

// Nothing when the text is no dotted address.
std::optional<std::uint32_t> parse_address(const char* text);
int open_udp_socket();
int bind_udp_to_any(int socket);
int connect_udp(int socket, std::uint32_t address, std::uint16_t port);
std::ptrdiff_t send_datagram(int socket, std::string_view bytes);
// Does not wait. A datagram that is too long is cut to fit.
std::ptrdiff_t receive_datagram(int socket, std::span<char> into);
// 1 when there may be something to receive, 0 when the time ran out, negative errno on failure.
int wait_readable(int socket, int milliseconds);

}  // namespace platform
