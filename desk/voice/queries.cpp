#include "voice/queries.h"

#include <algorithm>
#include <span>

namespace desk {
namespace {

using Count = std::uint32_t RtpCounts::*;

struct Counter {
  std::string_view item;
  RtpCounts (Channel::*counts)() const;
  Count count;
};

constexpr std::array<Counter, 6> counters = {{
    {"rtpstattotalsend", &Channel::total, &RtpCounts::sent},
    {"rtpstattotalrecv", &Channel::total, &RtpCounts::received},
    {"rtpstattotallost", &Channel::total, &RtpCounts::lost},
    {"rtpstatcurrentsend", &Channel::current, &RtpCounts::sent},
    {"rtpstatcurrentrecv", &Channel::current, &RtpCounts::received},
    {"rtpstatcurrentlost", &Channel::current, &RtpCounts::lost},
}};

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t at = 0; at != std::string_view::npos;) {
    parts.push_back(text.substr(0, at = text.find(separator)));
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
  }
  return parts;
}

std::string_view registration_name(Service::Registration registration) {
  constexpr std::array<std::string_view, 4> names = {"disabled", "no registrar", "registering", "registered"};
  return names[static_cast<std::size_t>(registration)];
}

std::string answer_to(std::string_view command, const Service& service, const Calls& calls,
                      Clock::time_point now) {
  const std::vector<std::string_view> words = split(command, ' ');
  if (words[0] != "get" || words.size() < 2) {
    return "error unknown command";
  }
  const std::string_view item = words[1];
  const std::span arguments = std::span(words).subspan(2);
  // Phones, lines and channels all count from 0 to 1.
  const auto counts = [arguments](std::size_t wanted) {
    return arguments.size() == wanted && std::all_of(arguments.begin(), arguments.end(),
                                                     [](auto word) { return word == "0" || word == "1"; });
  };
  const auto argument = [arguments](std::size_t i) { return std::size_t{arguments[i] == "1"}; };

  const auto* const counter =
      std::find_if(counters.begin(), counters.end(), [item](const Counter& c) { return c.item == item; });
  if (counter != counters.end() && counts(2)) {
    const Channel& channel = calls.channel(argument(0), argument(1));
    return std::to_string((channel.*counter->counts)().*counter->count);
  }
  if (item == "epstate" && counts(1)) {
    return std::string(service.enabled(argument(0)) ? calls.phone_state(argument(0)) : "disabled");
  }
  if (item == "epregstate" && counts(1)) {
    return std::string(registration_name(service.registration(argument(0), now)));
  }
  if (item == "calllog") {
    return "error calllog is a request of its own";
  }
  const bool known = counter != counters.end() || item == "epstate" || item == "epregstate";
  return known ? "error wrong arguments" : "error unknown item";
}

std::vector<std::string> call_log() {
  std::vector<std::string> datagrams = latest_calls(call_log_partition);
  datagrams.insert(datagrams.begin(), std::to_string(datagrams.size()));
  return datagrams;
}

}  // namespace

std::vector<std::string> replies_to(std::string_view request, const Service& service, const Calls& calls,
                                    Clock::time_point now) {
  if (request.size() > longest_request) {
    return {"error request too long\n"};
  }
  // The last line may lack its line feed; what follows the empty line is not part of the request.
  const std::string_view commands = request.substr(0, request.find("\n\n"));
  if (commands == "get calllog" || commands == "get calllog\n") {
    return call_log();
  }
  std::string reply;
  for (const std::string_view command : split(commands, '\n')) {
    if (command.empty()) {
      break;
    }
    const std::string line = answer_to(command, service, calls, now) + '\n';
    if (reply.size() + line.size() > longest_reply) {
      break;
    }
    reply += line;
  }
  return {reply.empty() ? "error empty request\n" : reply};
}

}  // namespace desk
