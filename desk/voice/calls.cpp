#include "voice/calls.h"

#include <algorithm>

namespace desk {
namespace {

using std::chrono::milliseconds;

constexpr unsigned packet_milliseconds = 20;
constexpr std::uint32_t one_lost_in = 100;

// Reasons for the end of a call, as the console's call records name them.
constexpr unsigned released_by_remote_end = 0x1002;
constexpr unsigned service_unavailable = 0x1015;
constexpr std::array<unsigned, 4> not_answered_there = {0x100f, 0x1003, 0x1006, 0x1007};
constexpr std::array<unsigned, 4> not_answered_here = {0x1003, 0x1018, 0x1007, 0x1003};

RtpCounts packets_in(milliseconds talk) {
  const auto sent = static_cast<std::uint32_t>(talk.count() / packet_milliseconds);
  const std::uint32_t lost = sent / one_lost_in;
  return {.sent = sent, .received = sent - lost, .lost = lost};
}

}  // namespace

RtpCounts operator+(const RtpCounts& a, const RtpCounts& b) {
  return {.sent = a.sent + b.sent, .received = a.received + b.received, .lost = a.lost + b.lost};
}

unsigned Channel::pick(unsigned from, unsigned to) {
  // The generator's low digits repeat soonest.
  return from + static_cast<unsigned>(random_() >> 8U) % (to - from + 1);
}

void Channel::start(bool incoming, Clock::time_point now) {
  call_ = {};
  call_.phone = phone_;
  call_.incoming = incoming;
  call_.number = "555" + std::to_string(pick(1000, 9999));
  call_.started = std::time(nullptr);
  will_be_answered_ = pick(0, 2) != 0;
  state_ = call_.incoming ? State::ringing : State::dialing;
  next_step_ = now + milliseconds(pick(1000, 3000));
}

void Channel::answer(Clock::time_point now) {
  call_.answered = std::time(nullptr);
  answered_ = now;
  state_ = State::talking;
  next_step_ = now + milliseconds(pick(3000, 15000));
}

void Channel::end(unsigned reason) {
  call_.reason = reason;
  call_.ended = std::time(nullptr);
  add_to_call_log(call_log_partition, call_);
  finished_ = total();
  current_ = {};
  state_ = State::idle;
  next_step_.reset();
}

void Channel::advance(const Line& line, Clock::time_point now) {
  if (state_ == State::talking) {
    current_ = packets_in(std::chrono::duration_cast<milliseconds>(now - answered_));
  }
  if (state_ != State::idle && !line.served) {
    end(service_unavailable);
  } else if (state_ == State::idle && !line.may_start) {
    next_step_.reset();
  } else if (!next_step_) {
    next_step_ = now + milliseconds(pick(1000, 5000));
  } else if (now >= *next_step_) {
    if (state_ == State::idle) {
      start(pick(0, 1) == 1 && line.takes_calls, now);
    } else if (state_ == State::talking) {
      end(released_by_remote_end);
    } else if (will_be_answered_) {
      answer(now);
    } else {
      end((call_.incoming ? not_answered_here : not_answered_there)[pick(0, 3)]);
    }
  }
}

void Calls::advance(const Service& service, Clock::time_point now) {
  for (std::size_t phone = 0; phone < phone_count; ++phone) {
    auto& [first, second] = channels_[phone];
    Channel::Line line = {
        .served = service.enabled(phone),
        .may_start = service.registration(phone, now) == Service::Registration::registered,
        .takes_calls = !service.do_not_disturb(phone),
    };
    first.advance(line, now);
    // The second channel has the call that waits while one is talked on the first.
    line.may_start = line.may_start && first.state() == Channel::State::talking;
    second.advance(line, now);
  }
}

std::string_view Calls::phone_state(std::size_t phone) const {
  constexpr std::array<std::string_view, 4> names = {"idle", "dialing", "ringing", "talking"};
  const auto& [first, second] = channels_[phone];
  return names[static_cast<std::size_t>(std::max(first.state(), second.state()))];
}

}  // namespace desk
