// What the voice daemon serves: the SIP accounts and call settings that it took over last.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "config/segment.h"

namespace desk {

using Clock = std::chrono::steady_clock;

constexpr std::size_t phone_count = 2;

class Service {
 public:
  enum class Registration : std::uint8_t { disabled, no_registrar, registering, registered };

  // Copies what is served, because consoles write the segment without a lock. All lines register anew.
  void take_over(const config::ConfigurationSegment& segment, Clock::time_point now);

  Registration registration(std::size_t phone, Clock::time_point now) const;
  bool enabled(std::size_t phone) const { return line_[phone].phone_enable != 0; }

  bool do_not_disturb(std::size_t phone) const {
    return call_service_.call_service_enable != 0 &&
           call_service_.phone_call_service[phone].call_dnd_enable != 0;
  }

  // One printable line for the log, without any password.
  std::string description() const;

 private:
  Clock::time_point taken_over_;
  config::SipSettings sip_;
  std::array<config::SipLine, phone_count> line_;
  std::array<config::SipServer, phone_count> server_;
  config::CallServiceSettings call_service_;
  std::size_t phone_book_entries_;
};

}  // namespace desk
