// A dialogue written down as a table, and what must be true of it. Each row is a question:
//
//   field=stored | question | accepted answers | refused answers | what follows a kept answer
//
// "answer>value" when something else is stored than was typed, "%31" for 31 times t, "\n" in a question for a
// line feed, "@" for the field's name, a trailing "\" where a row goes on.
#pragma once

#include "support/session.h"

namespace tests {

// Keeps all; gives each first, then each last accepted answer, and texts one character longer than that where
// these leave the field empty; gives every refused answer behind first ones, and then q to the question that
// comes back. Rows of `per_phone` follow for "#" 0 and then 1.
void hold_to_sheet(int submenu, int item, bool asks_again, const std::string& opening,
                   const std::string& sheet, const std::string& per_phone = "");

// `text` with `by` wherever it had `what`.
std::string replaced(std::string text, std::string_view what, std::string_view by);

}  // namespace tests
