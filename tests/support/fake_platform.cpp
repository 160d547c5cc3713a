#include <algorithm>
#include <cerrno>
#include <csetjmp>
#include <cstring>
#include <iterator>
#include <utility>

#include "config/voice_change.h"
#include "platform/platform.h"
#include "shell/output.h"
#include "support/device.h"

namespace tests {
namespace {

using std::string;

Device* current = nullptr;
std::jmp_buf exit_point;

struct OpenFile {
  string path, content = {}, rest = content;
};
std::map<int, OpenFile> open_files;
std::deque<string> datagrams;

// What was shown before a program is started, or the device waits, has to be out by then.
void note(const string& event) {
  current->transcript += "{" + event + "}";
}

std::ptrdiff_t take(string& from, std::span<char> into) {
  const std::size_t taken = from.copy(into.data(), into.size());
  from.erase(0, taken);
  return static_cast<std::ptrdiff_t>(taken);
}

// In which of its ways this call fails, from 1; 0 when it does not.
std::size_t failure(const string& call, std::size_t ways = 1) {
  const std::size_t before = std::exchange(current->chances, current->chances + ways);
  if (before < current->fault && current->fault <= current->chances) {
    current->failed = call;
    return current->fault - before;
  }
  return current->failing.count(call);
}

// 0, or the negative errno value with which this call fails.
int result(const string& call, int error) {
  return failure(call) != 0 ? -error : 0;
}

int open_file(const OpenFile& file) {
  ++current->open_descriptors;
  const int descriptor = open_files.empty() ? 0 : open_files.rbegin()->first + 1;
  open_files.emplace(descriptor, file);
  return descriptor;
}

}  // namespace

Device& device() {
  return *current;
}

void use_device(Device& device) {
  current = &device;
  open_files.clear();
  datagrams.clear();
}

int run_to_exit(void (*body)()) {
  // setjmp gives back what exit_process() was called with, plus one: 0 is the first return.
  const int came_back = setjmp(exit_point);
  if (came_back == 0) {
    body();
  }
  return came_back - 1;
}

}  // namespace tests

namespace platform {

using namespace tests;

void settle_signals() {}

std::size_t read_input(std::span<char> into) {
  current->waits.push_back(current->transcript.size());
  current->on_wait(current->waits.size() - 1);
  if (failure("input") != 0 || current->input.empty()) {
    return 0;
  }
  const std::ptrdiff_t taken = take(current->input.front(), into);
  if (current->input.front().empty()) {
    current->input.pop_front();
  }
  return static_cast<std::size_t>(taken);
}

bool write_output(std::string_view bytes) {
  const bool written = failure("output") == 0;
  current->transcript += written ? bytes : "";
  return written;
}

void report_error(const char* label, int error) {
  note(string(label) + ": " + std::strerror(error));
}

void exit_process(int status) {
  std::longjmp(exit_point, status + 1);
}

Attachment attach_segment(std::int32_t key, std::size_t size) {
  const string name = "attach " + std::to_string(key);
  if (failure(name) != 0) {
    return {Attachment::Outcome::not_opened, EACCES, nullptr};
  }
  if (failure(name + " memory") != 0) {
    return {Attachment::Outcome::not_attached, EINVAL, nullptr};
  }
  ++current->attached_segments;
  if (key == config::LoginRecord::key && size == sizeof current->login) {
    return {Attachment::Outcome::attached, 0, &current->login};
  }
  if (key == config::ConfigurationSegment::key && size == sizeof current->settings) {
    return {Attachment::Outcome::attached, 0, &current->settings};
  }
  shell::flush_output();  // of no consequence to the flag, but the order shows
  note(name);
  return {Attachment::Outcome::attached, 0, &current->voice_change};
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
  if (failure(string("start ") + command) != 0) {
    return {-1, -1};
  }
  current->on_command(command);
  const int descriptor = open_file({command, current->command_output[command]});
  return {descriptor, descriptor};
}

void close_command(CommandStream stream) {
  close_file(stream.descriptor);
}

int run_program(const char* path, const char* const arguments[], Terminal terminal) {
  string line = terminal == Terminal::left ? string("setsid ") + path : path;
  for (; *arguments != nullptr; ++arguments) {
    line += string(" [") + *arguments + "]";
  }
  note(line);
  constexpr int ends[] = {1, 255, 128 + 9};
  const std::size_t failed = failure(string("run ") + path, std::size(ends));
  return failed > 0 ? ends[failed - 1] : current->program_status[path];
}

void sync_storage() {
  note("sync");
}

int open_for_reading(const char* path) {
  const auto file = current->files.find(path);
  const bool exists = file != current->files.end();
  const int failed = exists ? result(string("open ") + path, EACCES) : -ENOENT;
  return failed != 0 ? failed : open_file({path, file->second});
}

int open_for_writing(const char* path) {
  const int failed = result(string("open ") + path, EACCES);
  if (failed == 0) {
    current->files[path].clear();
  }
  return failed != 0 ? failed : open_file({path});
}

std::ptrdiff_t read_some(int descriptor, std::span<char> into) {
  OpenFile& file = open_files.at(descriptor);
  if (failure("read " + file.path) != 0) {
    return -EIO;
  }
  return take(file.rest, into);
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

int rewind_file(int descriptor) {
  OpenFile& file = open_files.at(descriptor);
  const int failed = result("rewind " + file.path, EIO);
  file.rest = failed == 0 ? file.content : file.rest;
  return failed;
}

int close_file(int descriptor) {
  const string path = open_files.at(descriptor).path;
  open_files.erase(descriptor);
  --current->open_descriptors;
  return result("close " + path, EIO);
}

const char* error_text(int error) {
  return std::strerror(error);
}

int open_udp_socket() {
  datagrams.clear();
  const int failed = result("udp socket", EMFILE);
  return failed != 0 ? failed : open_file({"udp"});
}

int bind_udp_to_any(int /*socket*/) {
  return result("udp bind", EADDRINUSE);
}

int connect_udp(int /*socket*/, std::uint32_t address, std::uint16_t port) {
  const string first = std::to_string(address & 255), last = std::to_string(address >> 24);
  note("udp " + first + "..." + last + ":" + std::to_string(port));
  return result("udp connect", ENETUNREACH);
}

std::ptrdiff_t send_datagram(int /*socket*/, std::string_view bytes) {
  if (const std::size_t failed = failure("udp send", 2); failed > 0) {
    return failed == 1 ? -ECONNREFUSED : static_cast<std::ptrdiff_t>(bytes.size() - 1);
  }
  current->requests.emplace_back(bytes);
  std::ranges::copy(current->on_datagram(string(bytes)), std::back_inserter(datagrams));
  return static_cast<std::ptrdiff_t>(bytes.size());
}

std::ptrdiff_t receive_datagram(int /*socket*/, std::span<char> into) {
  string datagram = datagrams.at(0);  // without one the device would wait here for ever
  datagrams.pop_front();
  if (failure("udp receive") != 0 || datagram == "refused") {
    current->pass(900);  // comes back at once, yet the deadline has to come closer
    return -ECONNREFUSED;
  }
  return take(datagram, into);
}

int wait_readable(int /*socket*/, int milliseconds) {
  const std::size_t failed = failure("udp wait", 2);
  if (failed == 1) {
    return -EBADF;
  }
  if (failed == 2 || datagrams.empty()) {
    note("silence " + std::to_string(milliseconds));
    current->pass(static_cast<std::uint32_t>(milliseconds));
    return 0;
  }
  return 1;
}

void close_socket(int socket) {
  open_files.erase(socket);
  --current->open_descriptors;
}

}  // namespace platform
