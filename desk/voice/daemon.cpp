// Stand-in for the device's voice daemon: it serves the SIP accounts and call settings of the configuration
// segment, takes them over again whenever a console raises the voice-change flag, and answers queries about
// its lines and calls.
#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <syslog.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string>

#include "config/voice_change.h"
#include "shared_record.h"
#include "voice/calls.h"
#include "voice/queries.h"
#include "voice/service.h"

namespace {

constexpr int poll_interval_milliseconds = 100;

// The socket that queries come to, or -1: the accounts are served all the same.
int open_query_socket() {
  const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(desk::query_port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (socket < 0 || bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) < 0) {
    syslog(LOG_ERR, "UDP port %d cannot be had, queries are not answered: %s", desk::query_port,
           std::strerror(errno));
    return -1;
  }
  return socket;
}

void answer_query(int socket, const desk::Service& service, const desk::Calls& calls) {
  // One byte more, by which a request that is too long is known.
  std::array<char, desk::longest_request + 1> request;
  sockaddr_in asker{};
  socklen_t size = sizeof asker;
  const ssize_t received = recvfrom(socket, request.data(), request.size(), MSG_DONTWAIT,
                                    reinterpret_cast<sockaddr*>(&asker), &size);
  if (received < 0) {
    return;
  }
  constexpr std::size_t burst = 100;
  std::size_t sent = 0;
  for (const std::string& reply : desk::replies_to({request.data(), static_cast<std::size_t>(received)},
                                                   service, calls, desk::Clock::now())) {
    // Whoever does not get it asks again.
    sendto(socket, reply.data(), reply.size(), 0, reinterpret_cast<const sockaddr*>(&asker), size);
    if (++sent % burst == 0) {
      usleep(10'000);  // an asker's socket holds a few hundred datagrams
    }
  }
}

}  // namespace

int main() {
  const auto* const segment =
      desk::attach_record<const config::ConfigurationSegment>(config::ConfigurationSegment::key);
  auto* const flag = desk::attach_record<std::uint32_t>(config::voice_change_key);
  if (segment == nullptr || flag == nullptr) {
    return 1;
  }
  openlog("voice_daemon", 0, LOG_DAEMON);
  desk::tidy_call_log(desk::call_log_partition);

  std::atomic_ref<std::uint32_t> changed(*flag);
  desk::Service service{};
  desk::Calls calls;
  pollfd query = {.fd = open_query_socket(), .events = POLLIN, .revents = 0};
  const auto take_over = [&] {
    service.take_over(*segment, desk::Clock::now());
    syslog(LOG_NOTICE, "%s", service.description().c_str());
  };
  take_over();
  for (;;) {
    const bool asked = poll(&query, 1, poll_interval_milliseconds) > 0;
    // After the wait, so that an answer tells of what was changed before its question. The flag is lowered
    // before the settings are read, so a change made meanwhile raises it again.
    if (changed.exchange(0) != 0) {
      take_over();
    }
    calls.advance(service, desk::Clock::now());
    if (asked) {
      answer_query(query.fd, service, calls);
    }
  }
}
