// Fills a call log with calls of the past: past_calls NUMBER PARTITION.
#include <cstdio>
#include <cstdlib>

#include "voice/call_log.h"

namespace {

// All reasons a call can end for, one after the other, and one that is none.
unsigned reason(std::size_t i) {
  constexpr unsigned of_the_other_end = 0x1b;
  constexpr unsigned of_the_device = 8;
  const auto n = static_cast<unsigned>(i % (of_the_other_end + of_the_device + 1));
  if (n < of_the_other_end) {
    return 0x1000 + n;
  }
  return n < of_the_other_end + of_the_device ? 0x2000 + n - of_the_other_end : 0x3000;
}

// Every other call was talked on and ended as calls do; the ones between them failed, each in its own way.
desk::Call past_call(std::size_t age, std::time_t now) {
  constexpr std::time_t apart = 1000;
  const bool talked = age % 2 == 0;
  const std::time_t started = now - static_cast<std::time_t>(age + 1) * apart;
  const std::time_t answered = talked ? started + 4 : 0;
  return {
      .incoming = age % 3 == 0,
      .number = std::to_string(5550000 + age * 37 % 10000),
      .started = started,
      .answered = answered,
      .ended = talked ? answered + 10 + static_cast<std::time_t>(age * 53 % 600) : started + 12,
      .reason = talked ? 0x1002 : reason(age / 2),
      .phone = age / 2 % 2,
  };
}

}  // namespace

int main(int count, char* arguments[]) {
  char* end = nullptr;
  const unsigned long number = count == 3 ? std::strtoul(arguments[1], &end, 10) : 0;
  if (end == nullptr || end == arguments[1] || *end != '\0' || number > desk::longest_call_log) {
    std::fprintf(stderr, "usage: past_calls 0..%zu PARTITION\n", desk::longest_call_log);
    return 2;
  }
  const std::time_t now = std::time(nullptr);
  std::vector<desk::Call> calls;
  for (std::size_t age = number; age-- > 0;) {
    calls.push_back(past_call(age, now));
  }
  return desk::replace_call_log(arguments[2], calls) ? 0 : 1;
}
