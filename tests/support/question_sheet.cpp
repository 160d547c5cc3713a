#include "support/question_sheet.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

namespace tests {

std::string replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
    text.replace(at, what.size(), by);
  }
  return text;
}

void hold_to_sheet(int submenu, int item, bool asks_again, const std::string& opening,
                   const std::string& sheet, const std::string& per_phone) {
  const std::string both = replaced(per_phone, "#", "0") + replaced(per_phone, "#", "1");
  std::istringstream rows(replaced(sheet + both, "\\\n  ", ""));
  Desk stored, given[3];
  std::string kept, shown = opening, typed[3];
  std::vector<std::pair<std::string, std::string>> refused;  // what is typed, what is shown in the end
  for (std::string row; std::getline(rows, row);) {
    const auto column = [&row] {
      const std::string text = row.substr(0, row.find(" |"));
      row.erase(0, text.size() + 3);
      return replaced(text, "\\n", "\n");
    };
    const auto answers = [&column] {
      std::istringstream in(column());
      std::vector<std::string> all(std::istream_iterator<std::string>(in), {});
      for (std::string& answer : all) {
        answer = answer[0] == '%' ? std::string(std::stoul(answer.substr(1)), 't') : answer;
      }
      return all;
    };
    const std::string setting = column();
    const std::string field = setting.substr(0, setting.find('='));
    stored.set(field, setting.substr(field.size() + 1));
    const std::string question = replaced(column(), "@", field.substr(field.find('.') + 1));
    const std::vector<std::string> accepted = answers();
    for (const std::string& answer : answers()) {
      refused.emplace_back(typed[0] + answer + (asks_again ? "\nq\n" : "\n"),
                           question + illegal_value + (asks_again ? question + "q:Exit\n" : ""));
    }
    kept += "\n";
    shown += question + (!row.empty() ? column() : asks_again ? "\n" : "");
    const bool full = !asks_again && accepted.back()[0] == 't';  // a text that one character more empties
    const std::string too_long = full ? accepted.back() + "t>" : ">" + setting.substr(field.size() + 1);
    const std::string* const passes[] = {&accepted.front(), &accepted.back(), &too_long};
    for (std::size_t i = 0; i < std::size(passes); ++i) {
      const std::string& answer = *passes[i];
      const bool line_feed = i < 2 && setting.ends_with("\\x0a");  // stored with the text
      typed[i] += answer.substr(0, answer.find('>')) + "\n";
      given[i].set(field, answer.substr(answer.find('>') + 1) + (line_feed ? "\\x0a" : ""));
    }
  }
  const auto run = [&](const std::string& answers, const std::string& ending, const Desk& expected) {
    Desk desk = stored;
    const Visit seen = visit(desk, submenu, item, answers);
    EXPECT_TRUE(seen.shown.ends_with(ending) && seen.returned) << seen.shown << "\n-- not\n" << ending;
    EXPECT_EQ(differences(expected.settings, desk.settings), "") << answers;
  };
  for (const auto& [answers, ending] : refused) {
    run(answers, ending, stored);
  }
  run(kept, shown + saved_and_signalled, stored);
  for (std::size_t i = 0; i < std::size(given); ++i) {
    run(typed[i], saved_and_signalled, given[i]);
  }
}

}  // namespace tests
