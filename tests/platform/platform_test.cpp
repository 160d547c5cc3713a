// What platform.h promises, on pipes, sockets and programs of this machine, with signals in between.
#include "platform/platform.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <sys/wait.h>

#include <csignal>
#include <ctime>

namespace platform::test {

using std::string;

[[maybe_unused]] const bool prepared = [] {
  dup2(open("/dev/null", O_RDWR), STDIN_FILENO);
  std::signal(SIGCHLD, SIG_IGN);  // as whoever starts a console may have left it
  settle_signals();
  struct sigaction interrupts = {};  // without SA_RESTART
  interrupts.sa_handler = [](int) {};
  return sigaction(SIGUSR1, &interrupts, nullptr) == 0;
}();

// As long as this lives, signals interrupt us again and again.
struct Interruptions {
  ~Interruptions() { close_command(command); }
  const CommandStream command = open_command("while kill -USR1 $PPID; do echo; done");
};

string output_of(CommandStream command) {
  string output;
  char block[1000];
  for (std::ptrdiff_t got; (got = read_some(command.descriptor, block)) > 0;) {
    output.append(block, static_cast<std::size_t>(got));
  }
  close_command(command);
  return output;
}

int status_of(const string& script, Terminal terminal = Terminal::kept, const char* shell = "/bin/sh") {
  const char* const arguments[] = {shell, "-c", script.c_str(), nullptr};
  return run_program(shell, arguments, terminal);
}

TEST(Platform, InputAndOutputWaitAndLoseNothing) {
  for (const int mode : {0, O_NONBLOCK}) {
    const CommandStream typing = open_command("kill -USR1 $PPID; kill -USR1 $PPID; echo");
    fcntl(typing.descriptor, F_SETFL, mode);
    dup2(typing.descriptor, STDIN_FILENO);
    char line[100];
    EXPECT_EQ(string(line, read_input(line)), "\n");
    EXPECT_EQ(read_input(line), 0U);
    close_command(typing);

    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    fcntl(ends[1], F_SETFL, mode);
    dup2(ends[0], STDIN_FILENO);
    const CommandStream reader = open_command("head -c 1000000 | wc -c");
    dup2(open_for_reading("/"), STDIN_FILENO), close(ends[0]);
    EXPECT_EQ((Interruptions(), write_all(ends[1], string(1'000'000, 'x'))), 0);
    EXPECT_EQ(output_of(reader), "1000000\n");
    EXPECT_EQ(write_all(ends[1], "nobody reads this"), -EPIPE);
    EXPECT_EQ(read_input(line), 0U);
    close(ends[1]);
  }
}

TEST(Platform, SignalsOfTheTerminalReachOnlyWhatIsStarted) {
  const auto bit = [](int number) { return 1ULL << (number - 1); };
  const auto settled = bit(SIGHUP) | bit(SIGINT) | bit(SIGQUIT) | bit(SIGPIPE) | bit(SIGTSTP);
  const auto ignored_by = [&](const string& status) {
    const CommandStream mask = open_command(("sed -n s/SigIgn:.//p " + status).c_str());
    return std::stoull(output_of(mask), nullptr, 16) & (settled | bit(SIGCHLD));
  };
  EXPECT_EQ(ignored_by("/proc/$PPID/status"), settled);
  EXPECT_EQ(ignored_by("/proc/self/status"), bit(SIGTSTP));
  const string file = "/dev/fd/" + std::to_string(fileno(std::tmpfile())), report = "cat /proc/self/status >" + file;
  status_of(report);
  EXPECT_EQ(ignored_by(file), bit(SIGTSTP));
  run_shell_command(report.c_str(), Keyboard::is_ignored);
  EXPECT_EQ(ignored_by(file), bit(SIGINT) | bit(SIGQUIT) | bit(SIGTSTP));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child was not waited for";
}

TEST(Platform, AFileIsWrittenAndReadAgain) {
  const string path = "/dev/fd/" + std::to_string(fileno(std::tmpfile()));
  const int written = open_for_writing(path.c_str()), file = open_for_reading(path.c_str());
  EXPECT_EQ(write_all(written, "text") + flush_file(written) + close_descriptor(written), 0);
  char text[10];
  EXPECT_EQ(read_some(file, text), 4);
  rewind_file(file);
  EXPECT_EQ(read_some(file, text), 4);
  EXPECT_EQ(open_for_reading("/does/not/exist"), -ENOENT);
}

TEST(Platform, DatagramsGoToTheConnectedPort) {
  const int daemon = open_udp_socket(), client = open_udp_socket();
  EXPECT_EQ(bind_udp_to_any(daemon), 0);
  sockaddr_in bound;
  socklen_t size = sizeof bound;
  getsockname(daemon, reinterpret_cast<sockaddr*>(&bound), &size);
  EXPECT_EQ(connect_udp(client, *parse_address("127.0.0.2"), ntohs(bound.sin_port)), 0);
  char text[10];
  EXPECT_EQ(receive_datagram(daemon, text), -EAGAIN);
  EXPECT_EQ(send_datagram(client, "text"), 4);
  EXPECT_EQ(wait_readable(daemon, 60'000), 1);
  EXPECT_EQ(receive_datagram(daemon, text), 4);
}

TEST(Platform, ProgramsRunToTheirEnd) {
  const Interruptions meanwhile;
  EXPECT_EQ(status_of("exit 7"), 7);
  EXPECT_EQ(status_of("kill -KILL $$"), 128 + SIGKILL);
  EXPECT_EQ(status_of("exit 0", Terminal::kept, "/does/not/exist"), 255);
  EXPECT_EQ(output_of(open_command("yes | head -c 1000000")).size(), 1'000'000U);
  EXPECT_EQ(output_of(open_command("printf 'one\\ntwo'; kill -KILL $$")), "one\ntwo");
  const string leads_a_session = "read -r _ _ _ _ _ session _ </proc/$$/stat; [ $session = $$ ]";
  EXPECT_EQ(status_of(leads_a_session, Terminal::left), 0);
  EXPECT_EQ(status_of(leads_a_session, Terminal::kept), 1);
  for (const int not_inherited : {0, 1, 2, open_for_reading("/"), open_for_writing("/dev/null"), open_udp_socket(),
                                  meanwhile.command.descriptor}) {
    EXPECT_EQ(status_of("[ -e /proc/$$/fd/" + std::to_string(not_inherited) + " ]"), 1) << not_inherited;
  }
}

TEST(Platform, TimeIsThatOfTheClockAndTheZoneInForce) {
  const std::uint64_t began = wall_clock_milliseconds();
  EXPECT_EQ(wait_readable(open_udp_socket(), 50), 0);
  const std::uint64_t waited = wall_clock_milliseconds() - began;
  EXPECT_TRUE(waited >= 49 && waited < 10'000) << waited;
  EXPECT_EQ((Interruptions(), wait_readable(open_udp_socket(), 60'000)), 1);
  EXPECT_EQ(wait_readable(-1, 0), -EBADF);
  EXPECT_STREQ(error_text(EBADF), "Bad file descriptor");
  EXPECT_FALSE(parse_address("127.0.0"));
  sleep_seconds(1);
  EXPECT_GE(wall_clock_milliseconds() - began, 1000 + waited);
  for (const char* const zone : {"EAST-14", "WEST+11"}) {
    setenv("TZ", zone, 1);
    const LocalTime at = local_time();
    std::tm shown{at.second, at.minute, at.hour, at.day, at.month - 1, at.year - 1900, 0, 0, 0, 0, nullptr};
    EXPECT_NEAR(static_cast<double>(std::mktime(&shown)), static_cast<double>(began) / 1000, 300);
  }
}

// The last test: it stays among segments of its own, of which the first has number 0.
TEST(Platform, SegmentsAreSharedByTheirKey) {
  if (unshare(CLONE_NEWIPC) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWIPC) != 0) {
    GTEST_SKIP() << "Segments that others use are left alone.";
  }
  const Attachment one = attach_segment(1234, 100), other = attach_segment(1234, 100);
  ASSERT_TRUE(one.outcome == Attachment::Outcome::attached && one.error == 0 && one.memory != other.memory);
  write_shared(one.memory, "text");
  EXPECT_STREQ(static_cast<char*>(other.memory), "text");
  const Attachment larger = attach_segment(1234, 101);
  EXPECT_TRUE(larger.outcome == Attachment::Outcome::not_opened && larger.error == EINVAL && larger.memory == nullptr);
  detach_segment(one.memory);
  shmid_ds status;
  ASSERT_EQ(shmctl(0, IPC_STAT, &status), 0);
  EXPECT_TRUE(status.shm_nattch == 1 && (status.shm_perm.mode & 0777) == 0666) << status.shm_nattch;
#ifndef __arm__  // the emulator knows no such limit
  rlimit memory;
  getrlimit(RLIMIT_AS, &memory);
  const rlimit none{0, memory.rlim_max};
  setrlimit(RLIMIT_AS, &none);
  const Attachment without = attach_segment(1234, 100);
  const CommandStream command = open_command("true");
  setrlimit(RLIMIT_AS, &memory);
  EXPECT_TRUE(without.outcome == Attachment::Outcome::not_attached && without.error == ENOMEM);
  EXPECT_EQ(command.descriptor, -1);
#endif
}

}  // namespace platform::test
