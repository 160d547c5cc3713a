// The phone book: entries with a number, a note and perhaps a speed-dial key of their own.
#include <algorithm>

#include "menus/voip/items.h"
#include "menus/voip/number_list.h"
#include "shell/apply.h"
#include "shell/output.h"
#include "shell/session.h"

namespace menus::voip {
namespace {

using config::PhoneBookEntry;

bool in_use(const PhoneBookEntry& entry) {
  return entry.phone_number.bytes[0] != '\0';
}

PhoneBookEntry& pick_entry(shell::Dialogue& ask) {
  auto& book = shell::segment().phone_book;
  return book[ask.pick("No=?(0-%d):", book.size())];
}

// Whoever had the entry's new key loses it, a free entry as well, before this one has it.
void ask_and_save(shell::Dialogue& ask, shell::Prompt<shell::Shows::nothing> key_prompt,
                  PhoneBookEntry& entry) {
  const auto key = ask.hidden_number(key_prompt, entry.dial_key, {0, PhoneBookEntry::no_dial_key});
  ask.hidden_text("phone number(Max 15 character):", entry.phone_number, phone_number_rule);
  ask.hidden_text("note(Max 255 character):", entry.note, {.max = 255, .may_be_empty = true});
  if (ask.ended()) {
    return;
  }
  for (PhoneBookEntry& other : shell::segment().phone_book) {
    if (other.dial_key == key) {
      other.dial_key = PhoneBookEntry::no_dial_key;
    }
  }
  shell::commit_and_signal_voice_daemon(ask);
}

void phone_book_add() {
  auto& book = shell::segment().phone_book;
  const auto free_entry = std::find_if_not(book.begin(), book.end(), in_use);
  if (free_entry == book.end()) {
    shell::put("Phone book is full\n");
    return;
  }
  shell::Dialogue ask(shell::Dialogue::ask_again, shell::Dialogue::Record::added);
  ask_and_save(ask, "Phone Book SpeedDial Digit?(0-9,10 = none):", *free_entry);
}

void phone_book_delete() {
  shell::Dialogue ask(shell::Dialogue::ask_again);
  PhoneBookEntry& entry = pick_entry(ask);
  ask.note_zero(entry.phone_number.bytes[0], entry.note.bytes[0]);
  shell::commit_and_signal_voice_daemon(ask);
}

void phone_book_modify() {
  shell::Dialogue ask(shell::Dialogue::ask_again);
  PhoneBookEntry& entry = pick_entry(ask);
  if (!in_use(entry)) {
    ask.refuse("input No error\n");
  }
  ask_and_save(ask, "DialKey=?(0-9,10 = none):", entry);
}

void phone_book_list() {
  constexpr std::string_view dashes = "---------------------------------------------------------\n";
  shell::put("Phone book\n", dashes);
  int number = 0;
  for (const PhoneBookEntry& entry : shell::segment().phone_book) {
    if (in_use(entry)) {
      const bool has_key = entry.dial_key != PhoneBookEntry::no_dial_key;
      shell::put("No.", shell::Number(number), " | DialKey=");
      if (has_key) {
        shell::put(shell::Number(entry.dial_key));
      } else {
        shell::put("None");
      }
      shell::put(" | Phone number=", entry.phone_number.view(), has_key ? "\nnote:" : "\nnoto:");
      shell::put(entry.note.view(), '\n', dashes);
    }
    ++number;
  }
  shell::put(dashes);
}

}  // namespace

void phone_book() {
  run_action_menu("Phone Book Action?", phone_book_add, phone_book_delete, phone_book_modify,
                  phone_book_list);
}

}  // namespace menus::voip
