// The two phones and accounts as the voice daemon sees them, and its RTP packet counters.
#include <algorithm>
#include <array>
#include <iterator>

#include "menus/status/items.h"
#include "menus/status/voice_daemon.h"
#include "shell/output.h"

namespace menus::status {
namespace {

// A counter is asked for by phone and channel, both from 0; first the totals, then the current counts.
constexpr std::size_t current = 12;
constexpr std::size_t states = 24;
constexpr char queries[][27] = {
    "get rtpstattotalsend 0 0",
    "get rtpstattotalrecv 0 0",
    "get rtpstattotallost 0 0",
    "get rtpstattotalsend 0 1",
    "get rtpstattotalrecv 0 1",
    "get rtpstattotallost 0 1",
    "get rtpstattotalsend 1 0",
    "get rtpstattotalrecv 1 0",
    "get rtpstattotallost 1 0",
    "get rtpstattotalsend 1 1",
    "get rtpstattotalrecv 1 1",
    "get rtpstattotallost 1 1",
    "get rtpstatcurrentsend 0 0",
    "get rtpstatcurrentrecv 0 0",
    "get rtpstatcurrentlost 0 0",
    "get rtpstatcurrentsend 0 1",
    "get rtpstatcurrentrecv 0 1",
    "get rtpstatcurrentlost 0 1",
    "get rtpstatcurrentsend 1 0",
    "get rtpstatcurrentrecv 1 0",
    "get rtpstatcurrentlost 1 0",
    "get rtpstatcurrentsend 1 1",
    "get rtpstatcurrentrecv 1 1",
    "get rtpstatcurrentlost 1 1",
    "get epstate 0",
    "get epstate 1",
    "get epregstate 0",
    "get epregstate 1",
};

using Fields = std::array<const char*, 2 * std::size(queries)>;

const char* state(const Fields& fields, std::size_t number) {
  const char* const text = fields[states + number];
  return text != nullptr ? text : "";
}

// A row of the packet table, from the counter at `sent` on.
void show_counters(const char* phone_and_channel, const Fields& fields, std::size_t sent) {
  shell::put(phone_and_channel);
  for (std::size_t counter = sent; counter < sent + 3; ++counter) {
    shell::put('|', shell::Number(field_number(fields[counter]), 9), '|',
               shell::Number(field_number(fields[current + counter]), 9));
  }
  shell::put("\n");
}

}  // namespace

void line_state() {
  shell::flush_output();
  std::array<const char*, std::size(queries)> commands;
  std::copy(std::begin(queries), std::end(queries), commands.begin());
  Fields fields;
  if (voice_daemon_query(commands, fields) < 0) {
    return;
  }
  shell::put(
      "\n"
      "Phone 1            |Phone 2            |Account 1          |Account 2\n"
      "-------------------+-------------------+-------------------+------------------\n");
  for (std::size_t number = 0; number < 4; ++number) {
    shell::put(shell::Cell{state(fields, number), 19}, number < 3 ? "|" : "\n");
  }
  constexpr const char* separator =
      "-----+-------+---------+---------+---------+---------+---------+--------------\n";
  shell::put(
      "\n"
      "     |       |RTP Send Packets   |RTP Recv Packets   |Packet loss\n"
      "Phone|Channel|    Total|  Current|    Total|  Current|    Total|  Current\n");
  shell::put(separator);
  show_counters("  1  |   0   ", fields, 0);
  show_counters("     |   1   ", fields, 3);
  shell::put(separator);
  show_counters("  2  |   0   ", fields, 6);
  show_counters("     |   1   ", fields, 9);
  shell::put("\n");
}

}  // namespace menus::status
