// platform.h on the device itself.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "platform/descriptor.h"
#include "platform/platform.h"

namespace platform {
namespace {

// How posix_spawn()'s child ends when it cannot tell its parent that the program cannot be started.
constexpr int spawn_failed = 127;

// Repeats a call that a signal interrupted.
template <typename Call>
auto retried(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) {
    result = call();
  }
  return result;
}

template <typename Result>
Result or_error(Result result) {
  return result < 0 ? static_cast<Result>(-errno) : result;
}

// Our descriptors can be in non-blocking mode: the mode belongs to the terminal or socket, and whoever shares
// it may have set it.
bool wait_when_would_block(int descriptor, short events) {
  if (errno != EAGAIN) {
    return false;
  }
  pollfd one{descriptor, events, {}};
  return retried([&] { return poll(&one, 1, -1); }) > 0;
}

bool write_whole(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = retried([&] { return write(descriptor, bytes.data(), bytes.size()); });
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (!wait_when_would_block(descriptor, POLLOUT)) {
      return false;
    }
  }
  return true;
}

int wait_for(pid_t process) {
  int status{};
  if (retried([&] { return waitpid(process, &status, 0); }) < 0) {
    return cannot_start;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

struct ChildSetup {
  int output = -1;            // becomes standard output
  bool closes_stdio = false;  // standard input, output and error
  Terminal terminal = Terminal::kept;
  Keyboard keyboard = Keyboard::interrupts;
};

// Returns the child's process number, -1 when it cannot be started.
pid_t start(const char* path, const char* const arguments[], const ChildSetup& setup) {
  sigset_t defaults;
  sigemptyset(&defaults);
  for (const int number : {SIGHUP, SIGPIPE, SIGINT, SIGQUIT}) {
    if (setup.keyboard == Keyboard::interrupts || number == SIGHUP || number == SIGPIPE) {
      sigaddset(&defaults, number);
    }
  }
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigdefault(&attributes, &defaults);
  const int flags = POSIX_SPAWN_SETSIGDEF | (setup.terminal == Terminal::left ? POSIX_SPAWN_SETSID : 0);
  posix_spawnattr_setflags(&attributes, static_cast<short>(flags));

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (setup.output >= 0) {
    posix_spawn_file_actions_adddup2(&actions, setup.output, STDOUT_FILENO);
  }
  for (int stream = STDIN_FILENO; setup.closes_stdio && stream <= STDERR_FILENO; ++stream) {
    posix_spawn_file_actions_addclose(&actions, stream);
  }

  pid_t child{};
  // The prototype predates const; it does not write to the arguments.
  auto* const writable = const_cast<char* const*>(arguments);
  const int failed = posix_spawn(&child, path, &actions, &attributes, writable, environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  return failed == 0 ? child : -1;
}

pid_t start_shell(const char* command, const ChildSetup& setup) {
  const char* const arguments[] = {"sh", "-c", command, nullptr};
  return start("/bin/sh", arguments, setup);
}

}  // namespace

void settle_signals() {
  for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGTSTP, SIGPIPE}) {
    std::signal(number, SIG_IGN);
  }
  std::signal(SIGCHLD, SIG_DFL);
}

std::size_t read_input(std::span<char> into) {
  for (;;) {
    const ssize_t got = retried([&] { return read(STDIN_FILENO, into.data(), into.size()); });
    if (got > 0) {
      return static_cast<std::size_t>(got);
    }
    if (got == 0 || !wait_when_would_block(STDIN_FILENO, POLLIN)) {
      return 0;
    }
  }
}

bool write_output(std::string_view bytes) {
  return write_whole(STDOUT_FILENO, bytes);
}

void report_error(const char* label, int error) {
  errno = error;
  std::perror(label);
}

void exit_process(int status) {
  _exit(status);
}

Attachment attach_segment(std::int32_t key, std::size_t size) {
  const int id = shmget(key, size, IPC_CREAT | 0666);
  if (id < 0) {
    return {Attachment::Outcome::not_opened, errno, nullptr};
  }
  void* const memory = shmat(id, nullptr, 0);
  if (memory == reinterpret_cast<void*>(-1)) {
    return {Attachment::Outcome::not_attached, errno, nullptr};
  }
  return {Attachment::Outcome::attached, 0, memory};
}

void detach_segment(void* memory) {
  shmdt(memory);
}

void write_shared(void* field, std::span<const char> value) {
  std::memcpy(field, value.data(), value.size());
  std::atomic_thread_fence(std::memory_order_release);
}

std::uint64_t wall_clock_milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return static_cast<std::uint64_t>(now.tv_sec) * 1000 + static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000;
}

LocalTime local_time() {
  timespec now{};
  // Not time(): when it is loaded it looks up the kernel's own, which brings 64 KiB of memory into view.
  clock_gettime(CLOCK_REALTIME, &now);
  std::tm broken_down{};
  tzset();  // localtime_r() reads the zone once per process
  localtime_r(&now.tv_sec, &broken_down);
  return {broken_down.tm_year + 1900, broken_down.tm_mon + 1, broken_down.tm_mday,
          broken_down.tm_hour,        broken_down.tm_min,     broken_down.tm_sec};
}

void sleep_seconds(unsigned seconds) {
  timespec left{static_cast<std::time_t>(seconds), 0};
  while (nanosleep(&left, &left) < 0 && errno == EINTR) {
  }
}

void run_shell_command(const char* command, Keyboard keyboard) {
  const pid_t child = start_shell(command, {.keyboard = keyboard});
  if (child > 0) {
    wait_for(child);
  }
}

CommandStream open_command(const char* command) {
  constexpr CommandStream not_started = {.descriptor = -1, .process = -1};
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) < 0) {
    return not_started;
  }
  Descriptor output(ends[0]);
  const Descriptor input(ends[1]);
  const pid_t child = start_shell(command, {.output = input.number()});
  return child < 0 ? not_started : CommandStream{output.release(), child};
}

void close_command(CommandStream stream) {
  close(stream.descriptor);
  wait_for(stream.process);
}

int run_program(const char* path, const char* const arguments[], Terminal terminal) {
  const pid_t child = start(path, arguments, {.closes_stdio = true, .terminal = terminal});
  const int status = child < 0 ? spawn_failed : wait_for(child);
  return status == spawn_failed ? cannot_start : status;
}

void sync_storage() {
  sync();
}

int open_for_reading(const char* path) {
  return or_error(retried([&] { return open(path, O_RDONLY | O_CLOEXEC); }));
}

int open_for_writing(const char* path) {
  return or_error(retried([&] { return open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666); }));
}

std::ptrdiff_t read_some(int descriptor, std::span<char> into) {
  return or_error(retried([&] { return read(descriptor, into.data(), into.size()); }));
}

int write_all(int descriptor, std::string_view bytes) {
  return write_whole(descriptor, bytes) ? 0 : -errno;
}

int flush_file(int descriptor) {
  return or_error(retried([&] { return fsync(descriptor); }));
}

void rewind_file(int descriptor) {
  lseek(descriptor, 0, SEEK_SET);
}

int close_descriptor(int descriptor) {
  return or_error(close(descriptor));
}

const char* error_text(int error) {
  return std::strerror(error);
}

int open_udp_socket() {
  return or_error(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
}

int bind_udp_to_any(int socket) {
  sockaddr_in local{};
  local.sin_family = AF_INET;
  local.sin_addr.s_addr = htonl(INADDR_ANY);
  return or_error(bind(socket, reinterpret_cast<const sockaddr*>(&local), sizeof local));
}

std::optional<std::uint32_t> parse_address(const char* text) {
  std::uint32_t address = 0;
  return inet_pton(AF_INET, text, &address) == 1 ? std::optional(address) : std::nullopt;
}

int connect_udp(int socket, std::uint32_t address, std::uint16_t port) {
  sockaddr_in peer{};
  peer.sin_family = AF_INET;
  peer.sin_port = htons(port);
  peer.sin_addr.s_addr = address;
  return or_error(connect(socket, reinterpret_cast<const sockaddr*>(&peer), sizeof peer));
}

std::ptrdiff_t send_datagram(int socket, std::string_view bytes) {
  return or_error(retried([&] { return send(socket, bytes.data(), bytes.size(), 0); }));
}

std::ptrdiff_t receive_datagram(int socket, std::span<char> into) {
  return or_error(retried([&] { return recv(socket, into.data(), into.size(), MSG_DONTWAIT); }));
}

int wait_readable(int socket, int milliseconds) {
  pollfd one{socket, POLLIN, {}};
  const int ready = poll(&one, 1, milliseconds);
  if (socket < 0 || (one.revents & POLLNVAL) != 0) {
    return -EBADF;
  }
  // Interrupted, it is for the caller to see how much of its time is left.
  return ready < 0 && errno == EINTR ? 1 : or_error(ready);
}

}  // namespace platform
