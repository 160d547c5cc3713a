// Stand-in for the device's voice daemon: it serves the SIP accounts of the configuration segment and takes
// them over again whenever a console raises the voice-change flag.
#include <poll.h>
#include <syslog.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

#include "config/segment.h"
#include "config/voice_change.h"
#include "shared_record.h"

namespace {

constexpr int poll_interval_milliseconds = 100;

// What is served until the next change: a copy, because consoles write the segment without a lock.
struct Service {
  config::SipSettings sip;
  std::array<config::SipLine, 2> line;
  std::array<config::SipServer, 2> server;
};

void take_over(const config::ConfigurationSegment& segment, Service& service) {
  service = {segment.sip, segment.sip_line, segment.sip_server};

  std::string served = "serving SIP port " + std::to_string(service.sip.sip_port);
  for (std::size_t i = 0; i < service.line.size(); ++i) {
    const config::SipLine& line = service.line[i];
    served += ", line " + std::to_string(i);
    served +=
        line.phone_enable != 0 ? " enabled, number " + std::string(line.phone_number.view()) : " disabled";
  }
  syslog(LOG_NOTICE, "%s", served.c_str());
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

  std::atomic_ref<std::uint32_t> changed(*flag);
  Service service{};
  for (bool due = true;; due = changed.exchange(0) != 0) {
    // The flag is lowered before the settings are read, so a change made meanwhile raises it again.
    if (due) {
      take_over(*segment, service);
    }
    poll(nullptr, 0, poll_interval_milliseconds);
  }
}
