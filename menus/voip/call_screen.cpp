// Call screening: for each telephone port a list of incoming and one of outgoing numbers.
#include <algorithm>
#include <iterator>
#include <tuple>

#include "menus/voip/items.h"
#include "menus/voip/number_list.h"
#include "shell/apply.h"
#include "shell/output.h"
#include "shell/session.h"

namespace menus::voip {
namespace {

using config::CallScreenEntry;
using shell::Dialogue;

bool in_use(const CallScreenEntry& entry) {
  return entry.screen_list != config::free_slot;
}

// Any digit is a type; the prompt names two of them.
constexpr std::size_t screen_types = 10;

constexpr std::string_view titles[] = {
    "\n\nPhone1 Incoming List\n",
    "\n\nPhone1 Outgoing List\n",
    "\n\nPhone2 Incoming List\n",
    "\n\nPhone2 Outgoing List\n",
};
static_assert(std::size(titles) == std::tuple_size_v<decltype(config::ConfigurationSegment::call_screen)>);

// The prompt names the lists in the order of their titles.
std::uint32_t pick_list(Dialogue& ask, const shell::Option& option = shell::no_option) {
  return ask.pick("Phone No.?\n0:Phone1 Incoming\n1:Phone1 Outgoing\n2:Phone2 Incoming\n3:Phone2 Outgoing\n:",
                  std::size(titles), option);
}

CallScreenEntry& pick_entry(Dialogue& ask, const shell::Option& option = shell::no_option) {
  auto& list = shell::segment().call_screen[pick_list(ask)];
  return list[ask.pick("Phone Number List No:", list.size(), option)];
}

void ask_phone_number(Dialogue& ask, CallScreenEntry& answers) {
  ask.hidden_text("input Phone Number:", answers.screen_number, phone_number_rule);
}

// The answers go to a record of their own: which entry is free is decided after the last question.
void call_screen_add() {
  CallScreenEntry answers{};
  Dialogue ask(Dialogue::ask_again, Dialogue::Record::added);
  const auto list_number = pick_list(ask);
  ask.note(answers.screen_list, static_cast<std::uint8_t>(list_number));
  ask.note(answers.screen_type,
           static_cast<std::uint8_t>(ask.pick("input type(0: in, 1:out):", screen_types)));
  ask_phone_number(ask, answers);
  if (!ask.commit()) {
    return;
  }
  shell::put('\n');
  auto& list = shell::segment().call_screen[list_number];
  const auto free_entry = std::find_if_not(list.begin(), list.end(), in_use);
  if (free_entry != list.end()) {
    *free_entry = answers;
    shell::save_and_signal_voice_daemon();
  }
}

void call_screen_delete() {
  Dialogue ask(Dialogue::ask_again);
  CallScreenEntry& entry = pick_entry(ask, {.no_empty_line = true});
  ask.note(entry.screen_list, config::free_slot);
  shell::commit_and_signal_voice_daemon(ask);
}

// A free entry gets the number and stays free.
void call_screen_modify() {
  Dialogue ask(Dialogue::ask_again);
  CallScreenEntry& entry = pick_entry(ask);
  CallScreenEntry answers{};
  answers.screen_number.assign(entry.screen_number.view().substr(0, phone_number_rule.max));
  ask_phone_number(ask, answers);
  if (ask.commit()) {
    entry.screen_number = answers.screen_number;
    shell::save_and_signal_voice_daemon();
  }
}

void call_screen_list() {
  constexpr std::string_view dashes = "--------------------------------\n";
  Dialogue ask(Dialogue::ask_again);
  const auto list_number = pick_list(ask, {.empty_is_zero = true, .no_empty_line = true});
  if (ask.ended()) {
    return;
  }
  shell::put(titles[list_number], dashes);
  int number = 0;
  for (const CallScreenEntry& entry : shell::segment().call_screen[list_number]) {
    if (in_use(entry)) {
      shell::put("No.", shell::Number(number), " phone_number=", entry.screen_number.view(), '\n');
    }
    ++number;
  }
  shell::put(dashes, '\n');
}

}  // namespace

void call_screen() {
  shell::put("Call_Screen 1\n");
  run_action_menu("Call Screen Action?", call_screen_add, call_screen_delete, call_screen_modify,
                  call_screen_list);
}

}  // namespace menus::voip
