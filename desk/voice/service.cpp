#include "voice/service.h"

#include <algorithm>
#include <string_view>

#include "printable.h"

namespace desk {
namespace {

constexpr std::chrono::milliseconds registering_takes{2000};

// Texts of the call-service menu are stored with their line feed. The system logger cuts long lines.
std::string shown(std::string_view text) {
  if (text.ends_with('\n')) {
    text.remove_suffix(1);
  }
  return '"' + printable(text, 24) + '"';
}

// Empty for a phone that just rings.
std::string diversion(const config::PhoneCallService& phone) {
  if (phone.call_dnd_enable != 0) {
    return " do not disturb";
  }
  std::string out;
  if (phone.call_forward_option != 0) {
    if (!phone.call_forward_always_uri.view().empty()) {
      return " forwards to " + shown(phone.call_forward_always_uri.view());
    }
    if (!phone.call_forward_busy_uri.view().empty()) {
      out += " busy to " + shown(phone.call_forward_busy_uri.view());
    }
    if (!phone.call_forward_noans_uri.view().empty()) {
      out += " unanswered to " + shown(phone.call_forward_noans_uri.view());
    }
  }
  return out;
}

}  // namespace

void Service::take_over(const config::ConfigurationSegment& segment, Clock::time_point now) {
  taken_over_ = now;
  sip_ = segment.sip;
  line_ = segment.sip_line;
  server_ = segment.sip_server;
  call_service_ = segment.call_service;
  phone_book_entries_ = static_cast<std::size_t>(
      std::count_if(segment.phone_book.begin(), segment.phone_book.end(),
                    [](const config::PhoneBookEntry& entry) { return !entry.phone_number.view().empty(); }));
}

Service::Registration Service::registration(std::size_t phone, Clock::time_point now) const {
  if (!enabled(phone)) {
    return Registration::disabled;
  }
  if (server_[phone].registrar_address.view().empty()) {
    return Registration::no_registrar;
  }
  return now - taken_over_ < registering_takes ? Registration::registering : Registration::registered;
}

std::string Service::description() const {
  std::string out = "serving SIP port " + std::to_string(sip_.sip_port);
  for (std::size_t i = 0; i < phone_count; ++i) {
    out += ", line " + std::to_string(i);
    out += enabled(i) ? ' ' + shown(line_[i].phone_number.view()) + " at " +
                            shown(server_[i].registrar_address.view())
                      : " disabled";
  }
  out += ", phone book " + std::to_string(phone_book_entries_);
  out += call_service_.call_service_enable != 0 ? ", call service on" : ", call service off";
  for (std::size_t i = 0; i < phone_count && call_service_.call_service_enable != 0; ++i) {
    const std::string what = diversion(call_service_.phone_call_service[i]);
    if (!what.empty()) {
      out += ", phone " + std::to_string(i) + what;
    }
  }
  return out;
}

}  // namespace desk
