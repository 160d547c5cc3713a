// The two phones and accounts as the voice daemon sees them, and its RTP packet counters.
#include <array>
#include <cstddef>
#include <iterator>
#include <span>

#include "menus/status/items.h"
#include "menus/status/voice_daemon.h"
#include "shell/output.h"

namespace menus::status {
namespace {

// The packet table's rows: phone and channel.
constexpr const char* rows[] = {
    "  1  |   0   ",
    "     |   1   ",
    "  2  |   0   ",
    "     |   1   ",
};
constexpr std::size_t channels = 2;  // of each phone
constexpr std::size_t counters = 3;  // of a row: sent, received, lost
constexpr std::size_t period_length = std::size(rows) * counters;
constexpr std::size_t states = 4;  // of the phones, then of their accounts

// Row by row in total, then row by row currently, then the states. The answer has a line for each.
// clang-format off
constexpr const char* queries[] = {
    "get rtpstattotalsend 0 0", "get rtpstattotalrecv 0 0", "get rtpstattotallost 0 0",
    "get rtpstattotalsend 0 1", "get rtpstattotalrecv 0 1", "get rtpstattotallost 0 1",
    "get rtpstattotalsend 1 0", "get rtpstattotalrecv 1 0", "get rtpstattotallost 1 0",
    "get rtpstattotalsend 1 1", "get rtpstattotalrecv 1 1", "get rtpstattotallost 1 1",
    "get rtpstatcurrentsend 0 0", "get rtpstatcurrentrecv 0 0", "get rtpstatcurrentlost 0 0",
    "get rtpstatcurrentsend 0 1", "get rtpstatcurrentrecv 0 1", "get rtpstatcurrentlost 0 1",
    "get rtpstatcurrentsend 1 0", "get rtpstatcurrentrecv 1 0", "get rtpstatcurrentlost 1 0",
    "get rtpstatcurrentsend 1 1", "get rtpstatcurrentrecv 1 1", "get rtpstatcurrentlost 1 1",
    "get epstate 0", "get epstate 1", "get epregstate 0", "get epregstate 1",
};
// clang-format on
static_assert(std::size(queries) == 2 * period_length + states);
using Fields = std::array<const char*, std::size(queries)>;

void show_states(std::span<const char* const> fields) {
  const char* separator = "";
  for (const char* const state : fields) {
    shell::put(separator, shell::Cell{state != nullptr ? state : "", 19});
    separator = "|";
  }
  shell::put('\n');
}

// What is sent, received and lost in total, each beside the current count.
void show_counters(const Fields& fields, std::size_t row) {
  shell::put(rows[row]);
  for (std::size_t i = row * counters; i < (row + 1) * counters; ++i) {
    shell::put('|', shell::Number(field_number(fields[i]), 9), '|',
               shell::Number(field_number(fields[i + period_length]), 9));
  }
  shell::put('\n');
}

}  // namespace

void line_state() {
  shell::flush_output();
  Fields fields;
  if (voice_daemon_query(queries, fields) < 0) {
    return;
  }
  shell::put(
      "\n"
      "Phone 1            |Phone 2            |Account 1          |Account 2\n"
      "-------------------+-------------------+-------------------+------------------\n");
  show_states(std::span(fields).last(states));
  shell::put(
      "\n"
      "     |       |RTP Send Packets   |RTP Recv Packets   |Packet loss\n"
      "Phone|Channel|    Total|  Current|    Total|  Current|    Total|  Current\n");
  for (std::size_t row = 0; row < std::size(rows); ++row) {
    if (row % channels == 0) {
      shell::put("-----+-------+---------+---------+---------+---------+---------+--------------\n");
    }
    show_counters(fields, row);
  }
  shell::put('\n');
}

}  // namespace menus::status
