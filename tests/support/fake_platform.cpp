#include <arpa/inet.h>

#include <cerrno>
#include <csetjmp>
#include <cstring>

#include "config/voice_change.h"
#include "platform/platform.h"
#include "shell/output.h"
#include "support/device.h"

namespace tests {
namespace {

Device* current = nullptr;
std::jmp_buf exit_point;

struct OpenFile {
  string path, rest = {};
};
std::map<int, OpenFile> open_files;
Strings datagrams;
bool datagrams_have_arrived = false;

// What was shown before a program is started, or the device waits, has to be out by then.
void note(const string& event) {
  current->transcript += "{" + event + "}";
}

std::ptrdiff_t take(string& from, std::span<char> into) {
  const std::size_t taken = from.copy(into.data(), into.size());
  from.erase(0, taken);
  return static_cast<std::ptrdiff_t>(taken);
}

void pass(std::uint32_t milliseconds) {
  current->milliseconds += milliseconds;
  current->clock += current->milliseconds / 1000;
  current->milliseconds %= 1000;
}

bool fails(const string& call) {
  const bool in_turn = ++current->chances == current->fault;
  current->failed = in_turn ? call : current->failed;
  return in_turn || current->failing.count(call) > 0;
}

// `succeeded`, or the negative errno value with which this call fails.
int result(const string& call, int error, int succeeded = 0) {
  return fails(call) ? -error : succeeded;
}

int open_file(const OpenFile& file, const string& call, int error) {
  const int descriptor = result(call, error, open_files.empty() ? 0 : open_files.rbegin()->first + 1);
  if (descriptor >= 0) {
    open_files.emplace(descriptor, file);
  }
  current->open_descriptors = static_cast<int>(open_files.size());
  return descriptor;
}

}  // namespace

Device& device() {
  return *current;
}

void use_device(Device& device) {
  current = &device;
  open_files.clear();
}

int run_to_exit(void (*body)()) {
  // setjmp gives back what exit_process() was called with, plus two: 0 is the first return.
  const int came_back = setjmp(exit_point);
  if (came_back == 0) {
    body();
  }
  return came_back - 2;
}

}  // namespace tests

namespace platform {

using namespace tests;

void settle_signals() {}

std::size_t read_input(std::span<char> into) {
  current->waits.push_back(current->transcript.size());
  current->on_wait(current->waits.size() - 1);
  if (fails("input") || current->input.empty()) {
    return 0;
  }
  const std::ptrdiff_t taken = take(current->input.front(), into);
  if (current->input.front().empty()) {
    current->input.pop_front();
  }
  return static_cast<std::size_t>(taken);
}

bool write_output(std::string_view bytes) {
  const bool written = !fails("output");
  current->transcript += written ? bytes : "";
  return written;
}

void report_error(const char* label, int error) {
  note(string(label) + ": " + std::strerror(error));
}

void exit_process(int status) {
  std::longjmp(exit_point, status + 2);
}

Attachment attach_segment(std::int32_t key, std::size_t size) {
  const string name = "attach " + std::to_string(key);
  if (fails(name)) {
    return {Attachment::Outcome::not_opened, EACCES, nullptr};
  }
  if (fails(name + " memory")) {
    return {Attachment::Outcome::not_attached, EINVAL, nullptr};
  }
  ++current->attached_segments;
  if (size == sizeof current->voice_change) {
    shell::flush_output();  // of no consequence to the flag, but the order shows
    note(name);
    return {Attachment::Outcome::attached, 0, &current->voice_change};
  }
  void* const login = &current->login;
  return {Attachment::Outcome::attached, 0, key == config::LoginRecord::key ? login : &current->settings};
}

void detach_segment(void* memory) {
  --current->attached_segments;
  if (memory == &current->voice_change) {
    note("voice change " + std::to_string(current->voice_change));
  }
}

void write_shared(void* field, std::span<const char> value) {
  std::memcpy(field, value.data(), value.size());
  current->written.push_back(field);
}

std::uint64_t wall_clock_milliseconds() {
  return 1000 * std::uint64_t{current->clock} + current->milliseconds;
}

LocalTime local_time() {
  return current->local_time;
}

void sleep_seconds(unsigned seconds) {
  note("sleep " + std::to_string(seconds));
  current->clock += seconds;
}

void run_shell_command(const char* command, Keyboard keyboard) {
  note((keyboard == Keyboard::is_ignored ? "uninterrupted " : "") + string(command));
  if (std::strcmp(command, "/opt/httpd/sbin/web_server dumpshare") == 0) {
    current->saved = current->settings;
    ++current->saves;
  }
  current->on_command(command);
}

CommandStream open_command(const char* command) {
  note(command);
  current->on_command(command);
  const int descriptor = open_file({command, current->command_output[command]}, string("start ") + command, 1);
  return {descriptor, descriptor};
}

void close_command(CommandStream stream) {
  close_descriptor(stream.descriptor);
}

int run_program(const char* path, const char* const arguments[], Terminal terminal) {
  string line = terminal == Terminal::left ? string("setsid ") + path : path;
  for (; *arguments != nullptr; ++arguments) {
    line += string(" [") + *arguments + "]";
  }
  note(line);
  return fails(string("run ") + path) ? 255 : current->program_status[path];
}

void sync_storage() {
  note("sync");
}

int open_for_reading(const char* path) {
  const bool exists = current->files.count(path) > 0;
  return exists ? open_file({path, current->files[path]}, string("open ") + path, EACCES) : -ENOENT;
}

int open_for_writing(const char* path) {
  const int descriptor = open_file({path}, string("open ") + path, EACCES);
  if (descriptor >= 0) {
    current->files[path].clear();
  }
  return descriptor;
}

std::ptrdiff_t read_some(int descriptor, std::span<char> into) {
  OpenFile& file = open_files.at(descriptor);
  return fails("read " + file.path) ? -EIO : take(file.rest, into);
}

int write_all(int descriptor, std::string_view bytes) {
  const string& path = open_files.at(descriptor).path;
  const int failed = result("write " + path, ENOSPC);
  current->files[path] += failed == 0 ? bytes : "";
  return failed;
}

int flush_file(int descriptor) {
  return result("flush " + open_files.at(descriptor).path, EIO);
}

void rewind_file(int descriptor) {
  OpenFile& file = open_files.at(descriptor);
  file.rest = current->files[file.path];
}

int close_descriptor(int descriptor) {
  const string path = open_files.at(descriptor).path;
  open_files.erase(descriptor);
  --current->open_descriptors;
  return result("close " + path, EIO);
}

const char* error_text(int error) {
  return std::strerror(error);
}

int open_udp_socket() {
  return open_file({"udp"}, "udp socket", EMFILE);
}

int bind_udp_to_any(int /*socket*/) {
  return result("udp bind", EADDRINUSE);
}

std::optional<std::uint32_t> parse_address(const char* text) {
  std::uint32_t address = 0;
  return inet_pton(AF_INET, text, &address) == 1 ? std::optional(address) : std::nullopt;
}

int connect_udp(int /*socket*/, std::uint32_t address, std::uint16_t port) {
  note("udp " + string(inet_ntoa({address})) + ":" + std::to_string(port));
  return result("udp connect", ENETUNREACH);
}

std::ptrdiff_t send_datagram(int /*socket*/, std::string_view bytes) {
  current->requests.emplace_back(bytes);
  datagrams = current->on_datagram(string(bytes));
  datagrams_have_arrived = false;  // until they are waited for
  return static_cast<std::ptrdiff_t>(bytes.size()) - (fails("udp send") ? 1 : 0);
}

std::ptrdiff_t receive_datagram(int /*socket*/, std::span<char> into) {
  if (datagrams.empty() || !datagrams_have_arrived) {
    return -EAGAIN;
  }
  string datagram = datagrams[0];
  datagrams.erase(datagrams.begin());
  if (fails("udp receive") || datagram == "refused") {
    pass(900);  // comes back at once, yet the deadline has to come closer
    return -ECONNREFUSED;
  }
  return take(datagram, into);
}

int wait_readable(int /*socket*/, int milliseconds) {
  const int ready = result("udp wait", EBADF, datagrams.empty() ? 0 : 1);
  datagrams_have_arrived = true;
  if (ready == 0) {
    note("silence " + std::to_string(milliseconds));
    pass(static_cast<std::uint32_t>(milliseconds));
  }
  return ready;
}

}  // namespace platform
