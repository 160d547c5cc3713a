#include "benchmarks/device.h"

#include <arpa/inet.h>
#include <sys/prctl.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "config/login_record.h"
#include "config/segment.h"

namespace benchmarks {
namespace {

// A segment that is there already is somebody else's.
template <typename Record>
Record& create_record() {
  static int id;
  id = shmget(Record::key, sizeof(Record), IPC_CREAT | IPC_EXCL | 0666);
  void* const memory = id < 0 ? nullptr : shmat(id, nullptr, 0);
  if (memory == nullptr || memory == reinterpret_cast<void*>(-1)) {
    fail("shared memory");
  }
  std::atexit([] { shmctl(id, IPC_RMID, nullptr); });
  return *static_cast<Record*>(memory);
}

template <std::size_t N>
void set_text(config::Text<N>& field, const char* text) {
  std::strncpy(field.bytes.data(), text, N - 1);
}

config::Ipv4 address(std::uint8_t host) {
  return {{192, 168, 8, host}};
}

void fill_rule(config::ConfigurationSegment& segment, std::uint8_t i) {
  const auto port = static_cast<std::uint16_t>(1000 + 100 * i);
  const config::Schedule schedule{1, 8, 30, 17, 45, {'0', '1', '1', '1', '1', '1', '0'}};
  const config::Mac mac = {{0, 0x11, 0x22, 0x33, 0x44, i}};
  config::StringFilter filter{1, {}, address(1), address(i), {}, {}};
  set_text(filter.filter_string, "www.example.org");
  segment.static_route_table[i] = {1, 0, {}, address(i), {{255, 255, 255, 0}}, address(254)};
  segment.virtual_server_table[i] = {1, {}, port, 2, {}, address(i), port, schedule, {}};
  segment.special_application_table[i] = {1, {}, port, 0, {}, port, port, 1, schedule, {}};
  segment.firewall_rule_table[i] = {1,          1,          0,    {},   address(1), address(i), 1, {},
                                    address(1), address(i), port, port, 0,          schedule,   {}};
  segment.ip_filter_table[i] = {1, {}, address(1), address(i), port, port, 1, schedule, {}};
  segment.mac_filter_table[i] = {1, mac, schedule, {}};
  segment.url_filter_table[i] = filter;
  segment.domain_filter_table[i] = filter;
}

[[noreturn]] void serve_call_log(int socket) {
  char request[64];
  sockaddr_in client{};
  for (;;) {
    socklen_t size = sizeof client;
    auto* const peer = reinterpret_cast<sockaddr*>(&client);
    recvfrom(socket, request, sizeof request, 0, peer, &size);
    sendto(socket, "100", 3, 0, peer, size);
    for (int i = 0; i < 100; ++i) {
      char record[128];
      const int length = std::snprintf(record, sizeof record,
                                       "%d|09876543%02d|20260314%02d%02d07|20260314093012|%s|%x|%d|%d", i % 2,
                                       i, i % 24, i % 60, "20260314093512", 0x1000 + i % 16, 7 * i, i % 2);
      sendto(socket, record, static_cast<std::size_t>(length), 0, peer, size);
    }
  }
}

}  // namespace

void fail(const char* what) {
  std::perror(what);
  std::exit(1);
}

void set_up_segments() {
  create_record<config::LoginRecord>().idle_timeout = 300;
  auto& segment = create_record<config::ConfigurationSegment>();
  set_text(segment.admin.admin_user_name, "admin");
  set_text(segment.admin.admin_password, "admin");
  constexpr std::uint8_t rules = 32;
  for (std::uint8_t i = 0; i < rules; ++i) {
    fill_rule(segment, i);
  }
}

void start_voice_daemon() {
  const int daemon = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_in local{};
  local.sin_family = AF_INET;
  local.sin_port = htons(8118);
  local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (bind(daemon, reinterpret_cast<const sockaddr*>(&local), sizeof local) < 0) {
    fail("voice daemon");
  }
  if (fork() == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    serve_call_log(daemon);
  }
  close(daemon);
}

}  // namespace benchmarks
