// Simulated calls. A registered line has one every few seconds; its course comes from a generator whose seed
// is the channel, so that every start of the daemon brings the same calls in the same order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string_view>

#include "voice/call_log.h"
#include "voice/service.h"

namespace desk {

constexpr std::size_t channels_per_phone = 2;

struct RtpCounts {
  std::uint32_t sent;
  std::uint32_t received;
  std::uint32_t lost;
};
RtpCounts operator+(const RtpCounts& a, const RtpCounts& b);

class Channel {
 public:
  enum class State : std::uint8_t { idle, dialing, ringing, talking };

  Channel(std::size_t phone, unsigned seed) : phone_(phone), random_(seed) {}

  struct Line {
    bool served;  // else a call ends
    bool may_start;
    bool takes_calls;  // else it only makes them
  };
  // Finished calls enter the call log.
  void advance(const Line& line, Clock::time_point now);

  State state() const { return state_; }
  RtpCounts current() const { return current_; }  // of the call in progress
  RtpCounts total() const { return finished_ + current_; }

 private:
  void start(bool incoming, Clock::time_point now);
  void answer(Clock::time_point now);
  void end(unsigned reason);
  unsigned pick(unsigned from, unsigned to);

  std::size_t phone_;
  std::minstd_rand random_;
  State state_ = State::idle;
  std::optional<Clock::time_point> next_step_;  // nothing while idle and not to start
  Clock::time_point answered_;
  bool will_be_answered_ = false;
  Call call_{};
  RtpCounts finished_{};
  RtpCounts current_{};
};

class Calls {
 public:
  void advance(const Service& service, Clock::time_point now);

  const Channel& channel(std::size_t phone, std::size_t channel) const { return channels_[phone][channel]; }
  // What the phone shows of its channels.
  std::string_view phone_state(std::size_t phone) const;

 private:
  // The seeds: among the first calls there are answered and unanswered ones.
  std::array<std::array<Channel, channels_per_phone>, phone_count> channels_ = {{
      {Channel(0, 1), Channel(0, 2)},
      {Channel(1, 3), Channel(1, 4)},
  }};
};

}  // namespace desk
