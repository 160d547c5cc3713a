// The two phones and accounts as the voice daemon sees them, and its RTP packet counters.
#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <span>
#include <tuple>

#include "menus/status/items.h"
#include "menus/status/voice_daemon.h"
#include "shell/output.h"

namespace menus::status {
namespace {

constexpr const char* periods[] = {"total", "current"};
constexpr const char* counters[] = {"send", "recv", "lost"};
constexpr std::size_t phones = 2;
constexpr std::size_t channels = 2;  // of each phone

// Where in the answer the counters of a period begin, and where the states do.
constexpr std::size_t period_length = phones * channels * std::size(counters);
constexpr std::size_t first_state = std::size(periods) * period_length;
constexpr std::size_t states = 2 * phones;  // of the phones, then of their accounts

using Query = std::array<char, sizeof "get rtpstatcurrentsend 0 0">;
using Queries = std::array<Query, first_state + states>;
// The answer has a line for each query, in the same order.
using Fields = std::array<const char*, std::tuple_size_v<Queries>>;

void write_queries(Queries& queries) {
  auto* query = queries.begin();
  for (const char* const period : periods) {
    for (std::size_t i = 0; i < phones * channels; ++i) {
      for (const char* const counter : counters) {
        std::snprintf(query->data(), query->size(), "get rtpstat%s%s %zu %zu", period, counter, i / channels,
                      i % channels);
        ++query;
      }
    }
  }
  for (const char* const state : {"epstate", "epregstate"}) {
    for (std::size_t phone = 0; phone < phones; ++phone) {
      std::snprintf(query->data(), query->size(), "get %s %zu", state, phone);
      ++query;
    }
  }
}

void show_states(std::span<const char* const> fields) {
  const char* separator = "";
  for (const char* const state : fields) {
    shell::put(separator, shell::Cell{state != nullptr ? state : "", 19});
    separator = "|";
  }
  shell::put('\n');
}

// A row of the packet table: what is sent, received and lost in total, each beside the current count.
void show_counters(const char* phone_and_channel, const Fields& fields, std::size_t row) {
  shell::put(phone_and_channel);
  const char* const* total = &fields[row * std::size(counters)];
  for (std::size_t i = 0; i < std::size(counters); ++i, ++total) {
    shell::put('|', shell::Number(field_number(*total), 9), '|',
               shell::Number(field_number(total[period_length]), 9));
  }
  shell::put('\n');
}

}  // namespace

void line_state() {
  shell::flush_output();
  Queries queries;
  write_queries(queries);
  std::array<const char*, std::tuple_size_v<Queries>> commands;
  std::transform(queries.begin(), queries.end(), commands.begin(),
                 [](const Query& query) { return query.data(); });
  Fields fields;
  if (voice_daemon_query(commands, fields) < 0) {
    return;
  }
  shell::put(
      "\n"
      "Phone 1            |Phone 2            |Account 1          |Account 2\n"
      "-------------------+-------------------+-------------------+------------------\n");
  show_states(std::span(fields).subspan(first_state));
  constexpr const char* separator =
      "-----+-------+---------+---------+---------+---------+---------+--------------\n";
  shell::put(
      "\n"
      "     |       |RTP Send Packets   |RTP Recv Packets   |Packet loss\n"
      "Phone|Channel|    Total|  Current|    Total|  Current|    Total|  Current\n");
  shell::put(separator);
  show_counters("  1  |   0   ", fields, 0);
  show_counters("     |   1   ", fields, 1);
  shell::put(separator);
  show_counters("  2  |   0   ", fields, 2);
  show_counters("     |   1   ", fields, 3);
  shell::put('\n');
}

}  // namespace menus::status
