// The voice daemon's log of past calls.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <span>
#include <string_view>

#include "config/values.h"
#include "menus/status/items.h"
#include "menus/status/voice_daemon.h"
#include "platform/descriptor.h"
#include "shell/output.h"

namespace menus::status {
namespace {

using TimeCell = config::Text<21>;

// What does not fit a cell is cut.
struct CallRecord {
  config::Text<5> call_type;
  config::Text<17> phone_number;
  std::array<TimeCell, 3> times;  // of the call, of the answer, of the end
  config::Text<5> reason;
  config::Text<10> duration;
  config::Text<4> phone;  // the telephone port, from 0
};

// As the daemon sends them.
constexpr int fields_of_record = 8;

std::array<CallRecord, 100> call_records;

// Each behind its code and a blank.
constexpr char reasons[] =
    "1000 Unknown error\0"
    "1001 Can't handle a new call\0"
    "1002 Normal release by remote end\0"
    "1003 User cancelled the call\0"
    "1004 Response accepted\0"
    "1005 Forbidden\0"
    "1006 User not found/Gone\0"
    "1007 Request timeout\0"
    "1008 Conflict\0"
    "1009 Request Entity Too Large\0"
    "100a Media type unsupported\0"
    "100b Unsupported extension\0"
    "100c User temporarily unavailable\0"
    "100d Call leg does not exist\0"
    "100e Address is abmbiguous/too long/incomplete\0"
    "100f User busy\0"
    "1010 Bad event\0"
    "1011 Request pending\0"
    "1012 Internal Server Error\0"
    "1013 Service not Implemented\0"
    "1014 Bad Gateway\0"
    "1015 Service Unavailable\0"
    "1016 Gateway Timeout\0"
    "1017 Busy Everywhere\0"
    "1018 User declined the call\0"
    "1019 Does Not Exist Anywhere\0"
    "101a Not Acceptable\0"
    "2000 No more new calls are acceptable on that endpoint\0"
    "2001 Poor media quality\0"
    "2002 Parsing the remote SDP msg failed\0"
    "2003 No codecs matching with remote end\0"
    "2004 No more processing power available\0"
    "2005 Remote SDP is not received\0"
    "2006 Disconnection after blind transfer\0"
    "2007 Callee pattern not matched with listed digitmap\0";

// Where each begins.
constexpr auto reason_starts = [] {
  constexpr std::string_view all(reasons, sizeof reasons - 1);
  std::array<std::uint16_t, std::count(all.begin(), all.end(), '\0')> starts{};
  std::size_t at = 0;
  for (std::uint16_t& start : starts) {
    start = static_cast<std::uint16_t>(at);
    at = all.find('\0', at) + 1;
  }
  return starts;
}();

const char* reason_text(const CallRecord& record) {
  constexpr std::size_t code_length = 4;
  const std::string_view code = record.reason.view();
  for (const std::uint16_t start : reason_starts) {
    if (code == std::string_view(&reasons[start], code_length)) {
      return &reasons[start + code_length + 1];
    }
  }
  return "unknow reason";
}

const char* call_type_text(const CallRecord& record) {
  switch (field_number(record.call_type.bytes.data())) {
    case 0:
      return "dial out ";
    case 1:
      return "call in  ";
    default:
      return "         ";
  }
}

// YYYYMMDDhhmmss as YYYY/MM/DD hh:mm:ss, judged by its length alone; any other text as it is.
void format_cdr_time(const char* text, TimeCell& cell) {
  constexpr std::string_view pattern = "0000/00/00 00:00:00";
  static_assert(pattern.size() < sizeof(TimeCell));
  constexpr auto digits = static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), '0'));
  if (std::strlen(text) != digits) {
    cell.assign(text);
    return;
  }
  char* end = cell.bytes.data();
  for (const char character : pattern) {
    *end++ = character == '0' ? *text++ : character;
  }
  *end = '\0';
}

// Whatever ends it, the records before it are there to be shown. Returns how many.
std::size_t receive_call_log(int daemon) {
  std::array<char, voice_daemon_buffer_size> reply;
  if (voice_daemon_send(daemon, "get calllog\n\n") < 0 || voice_daemon_receive(daemon, reply) < 0) {
    return 0;
  }
  const int announced = field_number(reply.data());
  std::size_t received = 0;
  for (CallRecord& record : call_records) {
    // One field more than a record has, to notice a record with too many.
    std::array<const char*, fields_of_record + 1> fields;
    if (static_cast<int>(received) >= announced || voice_daemon_receive(daemon, reply) < 0 ||
        split_fields(reply.data(), "|", fields) != fields_of_record) {
      break;
    }
    const auto& [call_type, phone_number, call_time, answer_time, end_time, reason, duration, phone, none] =
        fields;
    record.call_type.assign(call_type);
    record.phone_number.assign(phone_number);
    format_cdr_time(call_time, record.times[0]);
    format_cdr_time(answer_time, record.times[1]);
    format_cdr_time(end_time, record.times[2]);
    record.reason.assign(reason);
    record.duration.assign(duration);
    record.phone.assign(phone);
    ++received;
  }
  return received;
}

std::span<const CallRecord> fetch_call_log() {
  const platform::Descriptor daemon(voice_daemon_open(voice_daemon_address, voice_daemon_port));
  return std::span(call_records).first(daemon.is_open() ? receive_call_log(daemon.number()) : 0);
}

void show_call(const CallRecord& record) {
  constexpr const char* dashes =
      "------------------------------------------------------------------------------\n";
  shell::put(dashes,
             "Phone Num       |Durace time|phone|Reason\n"
             "----------------+-----------+-----+-------------------------------------------\n");
  shell::put(shell::Cell{record.phone_number.view(), 16}, '|',
             shell::Number(field_number(record.duration.bytes.data()), 11), '|',
             shell::Number(field_number(record.phone.bytes.data()) + 1, 5), '|', reason_text(record), '\n');
  shell::put(dashes,
             "Call type|Call time           |Answer time         |Disconnect time     \n"
             "---------+--------------------+--------------------+--------------------------\n");
  shell::put(call_type_text(record));
  for (const TimeCell& time : record.times) {
    shell::put('|', shell::Cell{time.view(), 20});
  }
  shell::put('\n', dashes, '\n');
}

}  // namespace

void call_detail_records() {
  shell::flush_output();
  const std::span<const CallRecord> calls = fetch_call_log();
  shell::put('\n');
  for (const CallRecord& record : calls) {
    show_call(record);
  }
}

}  // namespace menus::status
