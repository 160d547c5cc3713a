// Dialogues written down as sheets. A sheet begins with "== NAME: submenu item REFUSAL": a refused answer
// ends the dialogue with message 1 or 2 by the "kind" of answer, or always as "illegal" with message 2, or
// the question comes "again" until q. Then come its questions, a row each:
//
//   field=stored | question | what is accepted ! what is refused -> with this message | shown behind it |
//   behind Enter
//
// "$" in a question is the value it shows; "-" is no field; a row without a question is a field that is
// written unasked. These words stand for all that a kind of answer accepts and refuses:
//
//   [012]        exactly one of these digits       1..65535     a number in range, digits throughout
//   ip mask mac  an address                        digits 15    up to so many digits
//   text 31      up to so many characters; a longer answer is refused, or "keeps" or "empties" the field
//   line 126     the same, stored with its line feed
//   07 07>7      this very answer; what is behind ">" is stored where it is not what was typed
//   enter>0      Enter, where a new record is asked for; otherwise it is refused there
//   required     Enter is refused in a stored record as well
//   as 1         only this answer leads to the questions below
//   firm         the field holds no wild value
//
// "+ " begins a row about new records, "~ " one about stored ones. A line of settings says what else is
// stored. Visits come last, and the settings that they start from:
//
//   > answers, "/" behind each, "|" between alternatives | how it ends | what changes
//   = name=value ...
//
// "&name=text" says what &name stands for: &opening, &ending, &choose (typed to get to the first question),
// &leave and &left (typed, and shown, when all is over), &record ("mac_filter_table[0].", what fields begin
// with), &vacant
// ("enable=255": the record is a new one, in a slot full of rubbish), &list, and &wild in place of &list when
// the fields' bytes are 255. &keep &select &illegal &saved &range &full &ports are messages, &dump is the
// save. "t*31" is 31 times t, "\n" a line feed, "_" in a value or an answer a blank; "\" at its end continues
// a line.
#pragma once

#include <string>
#include <string_view>

#include "support/session.h"

namespace tests {

// Holds the console to the sheets. All kept, over the stored values and over wild ones (bytes 255, texts with
// a line feed): the whole transcript, and nothing changes. With each accepted answer: the whole transcript,
// and these fields change and no other byte. With each refused answer behind accepted ones, and with the
// connection cut at each question: the whole transcript, and nothing is saved or changes.
void hold(const std::string& sheets, const Desk& desk = {});

// `text` with `by` wherever it had `what`.
std::string replaced(std::string text, std::string_view what, std::string_view by);

}  // namespace tests
