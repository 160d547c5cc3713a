#include <netinet/in.h>

#include <algorithm>
#include <cerrno>
#include <csetjmp>
#include <cstring>
#include <iterator>

#include "config/voice_change.h"
#include "platform/platform.h"
#include "shell/output.h"
#include "support/device.h"

namespace tests {
namespace {

Device* current = nullptr;
std::jmp_buf exit_point;

struct OpenFile {
  std::string path;
  std::string content;
  std::size_t position = 0;
  bool writes = false;
};
constexpr int first_descriptor = 100;
constexpr int socket_descriptor = 50;
std::map<int, OpenFile> open_files;
std::deque<std::string> datagrams;

void note(const std::string& event) {
  shell::flush_output();
  current->transcript += "{" + event + "}";
}

bool always_fails(const std::string& call) {
  return current->failing.count(call) > 0;
}

// In which of its ways this call fails, from 1; 0 when it does not.
std::size_t failure(const std::string& call, std::size_t ways) {
  const std::size_t before = current->chances;
  current->chances += ways;
  if (before < current->fault && current->fault <= current->chances) {
    current->failed = call;
    return current->fault - before;
  }
  return always_fails(call) ? 1 : 0;
}

bool fails(const std::string& call) {
  return failure(call, 1) != 0;
}

int open_file(OpenFile file) {
  int descriptor = first_descriptor;
  while (open_files.count(descriptor) > 0) {
    ++descriptor;
  }
  open_files[descriptor] = std::move(file);
  ++current->open_descriptors;
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

using tests::current;
using tests::note;

void ignore_terminal_signals() {}

std::size_t read_input(std::span<char> into) {
  tests::Device& device = *current;
  device.waits.push_back(device.transcript.size());
  if (device.on_wait) {
    device.on_wait(device.waits.size() - 1);
  }
  if (tests::fails("input") || device.input.empty()) {
    return 0;
  }
  std::string& piece = device.input.front();
  const std::size_t taken = piece.copy(into.data(), into.size());
  piece.erase(0, taken);
  if (piece.empty()) {
    device.input.pop_front();
  }
  return taken;
}

bool write_output(std::string_view bytes) {
  if (tests::fails("output")) {
    return false;
  }
  current->transcript += bytes;
  return true;
}

void report_error(const char* label, int error) {
  current->transcript += std::string("{") + label + ": " + std::strerror(error) + "}";
}

void exit_process(int status) {
  std::longjmp(tests::exit_point, status + 1);
}

Attachment attach_segment(std::int32_t key, std::size_t size) {
  const std::string name = "attach " + std::to_string(key);
  const std::size_t failure = tests::failure(name, 2);
  if (failure == 1) {
    return {Attachment::Outcome::not_opened, EACCES, nullptr};
  }
  if (failure == 2 || tests::always_fails(name + " memory")) {
    return {Attachment::Outcome::not_attached, EINVAL, nullptr};
  }
  tests::Device& device = *current;
  ++device.attached_segments;
  if (key == config::LoginRecord::key && size == sizeof device.login) {
    return {Attachment::Outcome::attached, 0, &device.login};
  }
  if (key == config::ConfigurationSegment::key && size == sizeof device.settings) {
    return {Attachment::Outcome::attached, 0, &device.settings};
  }
  note(name);
  return {Attachment::Outcome::attached, 0, &device.voice_change};
}

void detach_segment(void* memory) {
  --current->attached_segments;
  if (memory == &current->voice_change) {
    note("voice change " + std::to_string(current->voice_change));
  }
}

std::uint32_t wall_clock_seconds() {
  return current->clock;
}

LocalTime local_time() {
  return current->local_time;
}

void sleep_seconds(unsigned seconds) {
  note("sleep " + std::to_string(seconds));
  current->clock += seconds;
}

void run_shell_command(const char* command) {
  note(command);
  if (std::strcmp(command, "/opt/httpd/sbin/web_server dumpshare") == 0) {
    current->saved = current->settings;
  }
  if (current->on_command) {
    current->on_command(command);
  }
}

CommandStream open_command(const char* command) {
  if (tests::fails(std::string("start ") + command)) {
    return {-1, -1};
  }
  if (current->on_command) {
    current->on_command(command);
  }
  const int descriptor = tests::open_file({command, current->command_output[command]});
  return {descriptor, descriptor};
}

void close_command(CommandStream stream) {
  close_file(stream.descriptor);
}

int run_program(const char* path, const char* const arguments[], bool new_session) {
  std::string line = new_session ? std::string("setsid ") + path : path;
  for (; *arguments != nullptr; ++arguments) {
    line += std::string(" [") + *arguments + "]";
  }
  note(line);
  constexpr int ends[] = {1, 255, 128 + 9};
  if (const std::size_t failure = tests::failure(std::string("run ") + path, std::size(ends)); failure > 0) {
    return ends[failure - 1];
  }
  const auto status = current->program_status.find(path);
  return status == current->program_status.end() ? 0 : status->second;
}

void sync_storage() {
  note("sync");
}

int open_for_reading(const char* path) {
  const auto file = current->files.find(path);
  if (file == current->files.end() || tests::fails(std::string("open ") + path)) {
    return file == current->files.end() ? -ENOENT : -EACCES;
  }
  return tests::open_file({path, file->second});
}

int open_for_writing(const char* path) {
  if (tests::fails(std::string("open ") + path)) {
    return -EACCES;
  }
  current->files[path].clear();
  return tests::open_file({path, {}, 0, true});
}

std::ptrdiff_t read_some(int descriptor, std::span<char> into) {
  tests::OpenFile& file = tests::open_files.at(descriptor);
  if (tests::fails("read " + file.path)) {
    return -EIO;
  }
  const std::size_t taken = file.content.copy(into.data(), into.size(), file.position);
  file.position += taken;
  return static_cast<std::ptrdiff_t>(taken);
}

int write_all(int descriptor, std::string_view bytes) {
  const tests::OpenFile& file = tests::open_files.at(descriptor);
  if (tests::fails("write " + file.path)) {
    return -ENOSPC;
  }
  current->files[file.path] += bytes;
  return 0;
}

int rewind_file(int descriptor) {
  tests::OpenFile& file = tests::open_files.at(descriptor);
  if (tests::fails("rewind " + file.path)) {
    return -EIO;
  }
  file.position = 0;
  return 0;
}

int close_file(int descriptor) {
  const std::string path = tests::open_files.at(descriptor).path;
  tests::open_files.erase(descriptor);
  --current->open_descriptors;
  return tests::fails("close " + path) ? -EIO : 0;
}

const char* error_text(int error) {
  return std::strerror(error);
}

int open_udp_socket() {
  if (tests::fails("udp socket")) {
    return -EMFILE;
  }
  ++current->open_descriptors;
  tests::datagrams.clear();
  return tests::socket_descriptor;
}

int bind_udp_to_any(int /*socket*/) {
  return tests::fails("udp bind") ? -EADDRINUSE : 0;
}

int connect_udp(int /*socket*/, std::uint32_t address, std::uint16_t port) {
  if (tests::fails("udp connect")) {
    return -ENETUNREACH;
  }
  note("udp " + std::to_string(address & 255) + "..." + std::to_string(address >> 24) + ":" +
       std::to_string(port));
  return 0;
}

std::ptrdiff_t send_datagram(int /*socket*/, std::string_view bytes) {
  if (const std::size_t failure = tests::failure("udp send", 2); failure > 0) {
    return failure == 1 ? -ECONNREFUSED : static_cast<std::ptrdiff_t>(bytes.size() - 1);
  }
  current->requests.emplace_back(bytes);
  if (current->on_datagram) {
    for (std::string& answer : current->on_datagram(std::string(bytes))) {
      tests::datagrams.push_back(std::move(answer));
    }
  }
  return static_cast<std::ptrdiff_t>(bytes.size());
}

std::ptrdiff_t receive_datagram(int /*socket*/, std::span<char> into) {
  const bool refused = current->refused_receives > 0;
  current->refused_receives -= refused ? 1 : 0;
  if (tests::fails("udp receive") || refused || tests::datagrams.empty()) {
    ++current->clock;  // a refused datagram comes back at once, yet the deadline has to come closer
    return -ECONNREFUSED;
  }
  const std::size_t taken = tests::datagrams.front().copy(into.data(), into.size());
  tests::datagrams.pop_front();
  return static_cast<std::ptrdiff_t>(taken);
}

int wait_readable(int /*socket*/, unsigned seconds) {
  const std::size_t failure = tests::failure("udp wait", 2);
  if (failure == 1) {
    return -EBADF;
  }
  const bool something =
      !tests::datagrams.empty() || tests::always_fails("udp receive") || current->refused_receives > 0;
  if (failure == 2 || !something) {
    note("silence " + std::to_string(seconds));
    current->clock += seconds;
    return 0;
  }
  return 1;
}

void close_socket(int /*socket*/) {
  --current->open_descriptors;
}

}  // namespace platform
