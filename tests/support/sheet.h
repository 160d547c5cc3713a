// Dialogues written down as sheets, for example
//
//   == NAT traversal: 2 2 illegal
//   stun_enable=1 | STUN Enable?<$>(0:Disable,1:Enable): | [01] as 1
//   stun_server=old | STUN Server IP/URL?<$>: | text 63 empties
//   > 0/2/ | UPNP Enable?<0>(0:Disable,1:Enable):&illegal |
//
// The first line has a name, the submenu, the item, and what becomes of a refused answer: the dialogue ends,
// with message 1 or 2 by the "kind" of answer or with message 2 as "illegal", or it asks "again" until q.
//
// Questions come next. Columns: the field and what it holds, "-" for none; the text, with "$" for the value
// it shows (of a new record zero), none for a field that is written unasked; what is accepted, "!" and what
// is refused besides, "->" and another message; what is shown behind an answer; behind Enter. Kinds of
// answers, with all they refuse:
//
//   [012]     one of these digits                   1..65535  a number in range, digits throughout
//   ip        an address; also mask, mac            digits 9  up to so many digits
//   text 31   up to so many characters; a longer answer is refused, or "keeps" or "empties" the field
//   line 126  the same, stored with its line feed   07>7      07, which is stored as 7
//   as 1      of these only 1 leads to the next     firm      no wild value may be stored
//   required  refuses Enter                         enter>0   takes Enter for a new record, as 0
//
// "+ " begins a question about new records, "~ " one about stored ones; those from "for # 0 1" to "end" are
// asked for "#" 0 and for 1. A line without columns says what else is stored.
//
// Visits come last: what is typed, "/" behind each answer, "|" between answers that do the same; how that
// ends; what it changes. "= name=value" before it, or on a line by itself, are settings that it and those
// below start from, besides the questions'.
//
// "&name=text" says what &name stands for: &opening and &ending of the dialogue; &choose, typed to get to its
// first question; &leave, typed when it is over, which shows &left; &record, what its fields begin with;
// &vacant, what marks the slot of a new record, as "enable=255"; &list, and &wild for it when all bytes of
// the fields are 255. &keep &select &illegal &saved &range &full &ports are messages, &dump is the save, &bar
// a "|". "t*31" is 31 times t, "\n" a line feed, "_" a blank in what is typed or stored; "\" joins lines.
#pragma once

#include <string>
#include <string_view>

#include "support/session.h"

namespace tests {

// Holds the console to the sheets. All kept, over the stored values and over wild ones (bytes 255, texts with
// a line feed): the whole transcript, and nothing changes. With each accepted answer over either: the whole
// transcript, and these fields change and no other byte. With each refused answer behind accepted ones: the
// whole transcript, and nothing is saved or changes.
void hold(const std::string& sheets, const Desk& desk = {});

}  // namespace tests
