// Dialogues written down as tables: every question with what it takes, and what follows from that.
//
//   field=stored | question | answers | what is shown behind the answer
//
// "$" in a question is the value it shows; "-" is no field; a row without a question is a field that is
// written unasked. Answers are what is accepted, behind "!" what is refused beyond that, and behind "->" the
// message where it is not the dialogue's usual one:
//
//   [012]       exactly one of these digits        1..65535    a number in range, digits throughout
//   ip mask mac an address                         digits 15   up to so many digits
//   text 31     up to so many characters; a longer one is refused, or is reported and "empties" or "keeps"
//   the field line 126    the same, stored with its line feed 07 07>7     this very answer; what is behind
//   ">" is stored where it is not what was typed as 1        only this answer leads to the questions below
//   firm       the field holds no wild value required    Enter is refused judged     a kept 0.0.0.0 is
//   refused rising:range  not below the answer before it, or that message  shows:ret  what is shown behind
//   Enter or0 orempty optional    what Enter means for a new record: 0, "", what the slot holds
//
// "each 0 1" repeats the rows behind it, for "#" 0 and 1. Rows that begin with "+ " are about new records
// only, with "~ " about stored ones only. Visits follow, and settings they start from besides the stored ones
// above:
//
//   > answers, "/" behind each, "|" between alternatives | how it ends | what changes
//   = name=value name=value
//
// Everywhere "t*31" is 31 times t, "\n" a line feed, "@" the record, "_" in a value a blank; &keep &select
// &illegal &saved &range &full &ports are messages, &dump is the save, &done the ending, &list the list, &bar
// a "|"; a
// "\" at the end of a line goes on in the next one.
#pragma once

#include <string>

#include "support/session.h"

namespace tests {

struct Dialogue {
  int submenu;
  int item;
  enum Refusal { by_kind, as_illegal, asks_again } refusal = by_kind;
  std::string opening = "&keep";
  // How most end: saved, and signalled to the voice daemon.
  std::string ending = "&dump&saved{attach 1357}{voice change 1}";
  std::string record = {};  // "mac_filter_table[0].": whose fields they are
  std::string vacant = {};  // "enable=255": this is about a new record; what marks its slot, full of rubbish
  std::string list = {};    // what &list stands for,
  std::string wild_list = {};  // and when all bytes of the rows' fields are 255
  std::string choose = {};     // typed to get to the first question, with what it shows in the opening
  std::string leave = {};      // typed when the dialogue is over,
  std::string left = {};       // and what that shows
  Desk desk = {};
};

// Holds the console to the sheet. All kept, over the stored values and over wild ones (all bytes 255; texts
// with a line feed, addresses 0): the whole transcript, and nothing changes. With each accepted answer: the
// whole transcript, and these fields change and no other byte. With each refused answer, behind accepted
// ones, and with the connection cut at each question: the whole transcript, nothing is saved and nothing
// changes.
void hold(const Dialogue& dialogue, const std::string& sheet);

// `text` with `by` wherever it had `what`.
std::string replaced(std::string text, std::string_view what, std::string_view by);

}  // namespace tests
