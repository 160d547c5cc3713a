// The voice daemon's log of past calls.
#include <array>
#include <cstdio>
#include <cstring>

#include "config/values.h"
#include "menus/status/items.h"
#include "menus/status/voice_daemon.h"
#include "platform/platform.h"
#include "shell/output.h"

namespace menus::status {
namespace {

// What does not fit a cell is cut.
struct CallRecord {
  config::Text<4> sequence;  // from 1; empty in an empty record, which ends the list
  config::Text<5> call_type;
  config::Text<17> phone_number;
  config::Text<21> call_time;
  config::Text<21> answer_time;
  config::Text<21> disconnect_time;
  config::Text<5> reason;
  config::Text<10> duration;
  config::Text<4> phone;  // the telephone port, from 0
};

// As the daemon sends them: all but the sequence.
constexpr int fields_of_record = 8;

std::array<CallRecord, 100> call_records;
static_assert(call_records.size() < 1000, "the sequence has three digits");

struct Reason {
  char code[5];
  char text[55];
};

constexpr const char* unknown_reason = "unknow reason";
constexpr Reason reasons[] = {
    {"1000", "Unknown error"},
    {"1001", "Can't handle a new call"},
    {"1002", "Normal release by remote end"},
    {"1003", "User cancelled the call"},
    {"1004", "Response accepted"},
    {"1005", "Forbidden"},
    {"1006", "User not found/Gone"},
    {"1007", "Request timeout"},
    {"1008", "Conflict"},
    {"1009", "Request Entity Too Large"},
    {"100a", "Media type unsupported"},
    {"100b", "Unsupported extension"},
    {"100c", "User temporarily unavailable"},
    {"100d", "Call leg does not exist"},
    {"100e", "Address is abmbiguous/too long/incomplete"},
    {"100f", "User busy"},
    {"1010", "Bad event"},
    {"1011", "Request pending"},
    {"1012", "Internal Server Error"},
    {"1013", "Service not Implemented"},
    {"1014", "Bad Gateway"},
    {"1015", "Service Unavailable"},
    {"1016", "Gateway Timeout"},
    {"1017", "Busy Everywhere"},
    {"1018", "User declined the call"},
    {"1019", "Does Not Exist Anywhere"},
    {"101a", "Not Acceptable"},
    {"2000", "No more new calls are acceptable on that endpoint"},
    {"2001", "Poor media quality"},
    {"2002", "Parsing the remote SDP msg failed"},
    {"2003", "No codecs matching with remote end"},
    {"2004", "No more processing power available"},
    {"2005", "Remote SDP is not received"},
    {"2006", "Disconnection after blind transfer"},
    {"2007", "Callee pattern not matched with listed digitmap"},
};

const char* reason_text(const CallRecord& record) {
  for (const Reason& reason : reasons) {
    if (record.reason.view() == reason.code) {
      return reason.text;
    }
  }
  return unknown_reason;
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
void format_cdr_time(const char* text, config::Text<21>& cell) {
  cell.assign(text);
  if (std::strlen(text) == 14) {
    std::snprintf(cell.bytes.data(), cell.bytes.size(), "%.4s/%.2s/%.2s %.2s:%.2s:%.2s", text, text + 4,
                  text + 6, text + 8, text + 10, text + 12);
  }
}

void receive_call_log(int daemon) {
  std::array<char, voice_daemon_buffer_size> reply;
  if (voice_daemon_send(daemon, "get calllog\n\n") < 0 || voice_daemon_receive(daemon, reply) < 0) {
    return;
  }
  const int announced = field_number(reply.data());
  int sequence = 0;
  for (CallRecord& record : call_records) {
    // One field more than a record has, to notice a record with too many.
    std::array<const char*, fields_of_record + 1> fields;
    if (++sequence > announced || voice_daemon_receive(daemon, reply) < 0 ||
        split_fields(reply.data(), "|", fields) != fields_of_record) {
      return;
    }
    std::snprintf(record.sequence.bytes.data(), record.sequence.bytes.size(), "%d", sequence);
    record.call_type.assign(fields[0]);
    record.phone_number.assign(fields[1]);
    format_cdr_time(fields[2], record.call_time);
    format_cdr_time(fields[3], record.answer_time);
    format_cdr_time(fields[4], record.disconnect_time);
    record.reason.assign(fields[5]);
    record.duration.assign(fields[6]);
    record.phone.assign(fields[7]);
  }
}

// Whatever ends the fetch, the records before it are there to be shown.
void fetch_call_log() {
  call_records.fill({});
  const int daemon = voice_daemon_open(voice_daemon_address, voice_daemon_port);
  if (daemon >= 0) {
    receive_call_log(daemon);
    platform::close_socket(daemon);
  }
}

void show_call(const CallRecord& record) {
  constexpr const char* rule =
      "------------------------------------------------------------------------------\n";
  shell::put(rule);
  shell::put(
      "Phone Num       |Durace time|phone|Reason\n"
      "----------------+-----------+-----+-------------------------------------------\n");
  shell::print("%-16s|%11d|%5d|%s\n", record.phone_number.bytes.data(),
               field_number(record.duration.bytes.data()), field_number(record.phone.bytes.data()) + 1,
               reason_text(record));
  shell::put(rule);
  shell::put(
      "Call type|Call time           |Answer time         |Disconnect time     \n"
      "---------+--------------------+--------------------+--------------------------\n");
  shell::print("%s|%-20s|%-20s|%-20s\n", call_type_text(record), record.call_time.bytes.data(),
               record.answer_time.bytes.data(), record.disconnect_time.bytes.data());
  shell::put(rule);
  shell::put("\n");
}

}  // namespace

void call_detail_records() {
  shell::flush_output();
  fetch_call_log();
  shell::put("\n");
  for (const CallRecord& record : call_records) {
    if (field_number(record.sequence.bytes.data()) == 0) {
      break;
    }
    show_call(record);
  }
}

}  // namespace menus::status
