#include "support/sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <utility>

#include "config/field_table.h"

namespace tests {

using std::string;

namespace {

string repeated(string text) {
  for (std::size_t at = 0; (at = text.find('*', at)) != string::npos; ++at) {
    std::size_t times = 0;
    int length = 0;
    if (std::sscanf(&text[at], "*%zu%n", &times, &length) == 1) {
      text.replace(at, static_cast<std::size_t>(length), times - 1, text[at - 1]);
    }
  }
  return text;
}

// Takes a text off, and the separator behind it.
string column(string& row, std::string_view separator = " |") {
  const string text = row.substr(0, row.find(separator));
  row.erase(0, text.size() + separator.size());
  return text.starts_with(' ') ? text.substr(1) : text;
}

// What kinds of address accept, and refuse.
const std::map<string, string> kinds = {
    {"ip", R"(1.0.0.0 255.255.255.255 001..02.3>1.0.2.3 .1.2.>0.1.2.0 !
0.0.0.0 192.168.0 1.2.3.4.5 1.2.3.0256 1.2.3.256 1.2.3.x 1.2.3.4- -1.2.3.4 1,2,3,4 )" +
               string("1.2.3.4\0", 8)},
    {"mask", R"(128.0.0.0 255.255.255.255 255.255.128.0 255.255.255.254 ! 0.0.0.0 255.0.255.0 255.255.255.1
0.255.255.255 255.254.128.0 253.0.0.0 255.255.0.255 128.128.0.0 255.x)"},
    {"mac", R"(00:11:22:AA:bb:cF ff:FF:09:90:af:fa 00:00:00:00:00:00 ! 00-11-22-33-44-55 0:11:22:33:44:55
00:11:22:33:44:55: 00:11:22:33:4:455 00:11:22:33:44:5g 00:11:22:33:44:5G 00:11:22:33:44:/5 00:11:22:33:44:@5
00:11:22:33:44:`5 00:11:22:33:44.55 )" +
                string("00:11:22:33:44:55x\0", 19)}};

// The same of numbers and texts.
string range_words(std::uint64_t low, std::uint64_t high) {
  const string lowest = std::to_string(low), highest = std::to_string(high);
  return lowest + " " + highest + " 0" + lowest + ">" + lowest + " ! " + highest + "x -" + highest + " +" + highest +
         " " + std::to_string(high + 1) + " " + std::to_string((std::uint64_t{1} << 32) + low) + " " +
         (low > 0 ? std::to_string(low - 1) : "-1") + " " + highest + string("\0 x\0", 4);
}

string text_words(const string& kind, std::size_t longest) {
  const bool digits = kind == "digits";
  const string one = digits ? "7" : "t", line_feed = kind == "line" ? "\\x0a" : "";
  const string most = digits ? string(longest, '7') : "%n" + string(longest - 2, 't');
  return one + ">" + one + line_feed + " " + most + ">" + most + line_feed + " ! " + most + one + " " +
         string(511, one[0]) + " " + string("\0t ", 3) + (digits ? "12a 1-2 " + string("7\0", 2) : "");
}

struct Answer {
  string typed;
  std::optional<string> stored;  // nothing: the old value stays
  string shown = {};
};

struct Question {
  string field, text, message = {}, follows = {}, follows_enter = {};
  bool adding, firm = false, keeps = !adding;  // keeps: on Enter
  std::vector<Answer> accepted = {};
  std::vector<string> refused = {};
  std::optional<config::FieldElement> element = config::find_field(field);

  bool is_text() const { return element && element->field->kind == config::Field::Kind::text; }
  std::span<std::uint8_t> bytes(Desk& desk) const {
    return config::field_bytes(*element->field, element->index, desk.settings);
  }
  string value(const config::ConfigurationSegment& settings) const {
    if (is_text()) {
      const auto stored = config::field_bytes(*element->field, element->index, settings);
      return {stored.begin(), std::find(stored.begin(), stored.end(), 0)};
    }
    const string number = element ? config::field_value(*element->field, element->index, settings) : "";
    return number == "4294967295" ? "-1" : number;  // shown as a signed number
  }

  void read(const string& answers) {
    std::istringstream words(answers);
    bool refuses = false;
    unsigned low = 0, high = 0;
    char end = 0;
    for (string word; words >> word;) {
      if (word == "!") {
        refuses = true;
      } else if (kinds.count(word) > 0) {
        read(kinds.at(word));
      } else if (word.starts_with('[')) {
        string taken, others;
        for (const char digit : string("0123456789/:x")) {
          (word.find(digit) == string::npos ? others : taken) += string(" ") + digit;
        }
        read(taken + " ! 0" + word[1] + others);
      } else if (std::sscanf(word.c_str(), "%u..%u%c", &low, &high, &end) == 2) {
        read(range_words(low, high));
      } else if (word == "text" || word == "line" || word == "digits") {
        words >> high;
        read(text_words(word, high));
      } else if (word == "empties" || word == "keeps") {
        for (const string& longer : std::exchange(refused, {})) {
          accepted.push_back({longer, word == "empties" ? std::optional("") : std::nullopt, "&illegal"});
        }
      } else if (word == "as") {
        words >> word;
        accepted = {{word, word}};
        firm = true;
      } else if (word == "firm" || word == "required") {
        (word == "firm" ? firm : keeps) = word == "firm";
      } else if (refuses) {
        refused.push_back(word);
      } else if (adding || !word.starts_with("enter")) {
        const bool as_typed = word.find('>') == string::npos;
        const string typed = column(word, ">");
        accepted.push_back({typed == "enter" ? "" : typed, as_typed ? typed : word});
        if (as_typed && typed == "enter") {
          accepted.back().stored.reset();
        }
        if (typed == "enter") {
          std::erase(refused, string("\0t", 2));
        }
      }
    }
  }
};

// A visit under way: the desk before it, what that is to be after it, what is typed and shown.
struct Road {
  Desk desk, expected = desk;
  string typed = "&choose", shown = "&opening";
};

class Sheet {
 public:
  Sheet(const string& title, const Desk& desk) : stored_(desk) {
    std::istringstream(title.substr(title.find(": ") + 1)) >> submenu_ >> item_ >> refusal_;
    for (const char* const name : {"&choose", "&leave", "&left", "&list", "&wild", "&record", "&vacant"}) {
      meaning_[name] = "";
    }
  }

  void read(const string& line) {
    if (line.starts_with('&')) {
      meaning_[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
    } else if (line.starts_with("> ") || line.starts_with("= ")) {
      visits_.push_back(line);
    } else if (line.starts_with(adding() ? "+ " : "~ ")) {
      read(line.substr(2));
    } else if (line.find(" |") == string::npos) {
      set(stored_, line);
    } else if (!line.starts_with("+ ") && !line.starts_with("~ ")) {
      read_row(line);
    }
  }

  void hold() {
    set(stored_, meaning_["&vacant"]);
    Desk wild = stored_;
    std::size_t passes = 0;
    for (const Question& question : questions_) {
      passes = std::max(passes, question.accepted.size());
      if (!adding() && question.element && !question.firm) {
        std::ranges::fill(question.bytes(wild), std::uint8_t{0xFF});
        // Every second text has a line feed, where no list shows it.
        if (question.is_text() && (&question - questions_.data()) % 2 == 0 && meaning_["&list"].empty()) {
          question.bytes(wild)[1] = '\n';
        }
      }
    }
    refuse_all({stored_});
    Desk before = stored_;
    for (string line : visits_) {
      if (const string settings = column(line, ">"); settings.starts_with('=')) {
        set(before = stored_, settings.substr(2));
      }
      line.empty() ? void() : visit_as_told(before, line);
    }
    for (const Desk& start : {stored_, wild}) {
      pass({start}, {});
      for (std::size_t i = 0; i < passes; ++i) {
        pass({start}, i);
      }
      std::swap(meaning_["&list"], meaning_[meaning_["&wild"].empty() ? "&list" : "&wild"]);
    }
  }

 private:
  bool adding() const { return !meaning_.at("&vacant").empty(); }

  string full_name(const string& name) const { return config::find_field(name) ? name : meaning_.at("&record") + name; }

  void set(Desk& desk, const string& settings) const {
    std::istringstream words(settings);
    for (string setting; words >> setting;) {
      const string name = column(setting, "=");
      desk.set(full_name(name), replaced(setting, "_", " "));
    }
  }

  string in_full(string text) const {
    for (int depth = 0; depth < 3; ++depth) {
      for (const auto& [name, meaning] : meaning_) {
        text = replaced(text, name, meaning);
      }
    }
    return replaced(text, "\\n", "\n");
  }

  void read_row(string row) {
    const string setting = column(row), text = column(row);
    string answers = column(row);
    Question question{.field = full_name(setting.substr(0, setting.find('='))), .text = text, .adding = adding()};
    question.follows = !row.empty() ? column(row) : refusal_ == "again" && !text.empty() ? "\n" : "";
    question.follows_enter = row.empty() ? question.follows : column(row);
    const string usual = column(answers, "-> ");
    const bool wrong_choice = usual.starts_with('[') && refusal_ == "kind";
    question.message = !answers.empty() ? answers : wrong_choice ? "&select" : "&illegal";
    question.read(usual);
    if (!text.empty() && !question.keeps && !question.accepted.back().typed.empty()) {
      question.refused.push_back("");
    }
    if (question.element && !(adding() && question.field.starts_with(meaning_["&record"]))) {
      set(stored_, setting);
    } else if (question.element) {
      std::ranges::fill(question.bytes(stored_), std::uint8_t{0xEE});
    }
    questions_.push_back(question);
  }

  // ---- Going from question to question ----

  // Shows the question, of a new record with zeros. A text that it shows is cut at its line feed, unless it
  // is stored with one.
  void ask(Road& road, const Question& question) const {
    static const config::ConfigurationSegment zeros{};
    string value = question.value(adding() ? zeros : road.expected.settings);
    const std::size_t line_feed = value.find('\n');
    if (question.is_text() && question.text.find('$') != string::npos && line_feed != string::npos &&
        !question.accepted[0].stored->ends_with("\\x0a")) {
      question.bytes(road.expected)[line_feed] = 0;
      value.resize(line_feed);
    }
    road.shown += replaced(question.text, "$", value);
  }

  static void answer(Road& road, const Question& question, const Answer& answer) {
    road.typed += question.text.empty() ? "" : answer.typed + "\n";
    if (answer.stored && question.element) {
      road.expected.set(question.field, *answer.stored);
    }
    const string& follows = answer.typed.empty() ? question.follows_enter : question.follows;
    road.shown += answer.shown + replaced(follows, "$", question.value(road.expected.settings));
  }

  // What is shown, or how it ends.
  void expect(const Road& road, const string& shown, bool whole = true) const {
    Desk desk = road.desk;
    const string typed = in_full(road.typed), expected = in_full(shown);
    const string seen = visit(desk, submenu_, item_, typed);
    EXPECT_EQ(whole ? seen : seen.substr(seen.size() - std::min(seen.size(), expected.size())), expected) << typed;
    EXPECT_EQ(differences(road.expected.settings, desk.settings), "") << typed;
  }

  // All questions answered with their answer of that number, or the last one they have; or with Enter.
  void pass(Road road, std::optional<std::size_t> number) const {
    for (const Question& question : questions_) {
      ask(road, question);
      const std::size_t last = question.accepted.size() - 1;
      answer(road, question,
             !number && question.keeps ? Answer{} : question.accepted[std::min(number.value_or(0), last)]);
    }
    road.typed += "&leave";
    if (!questions_.empty()) {
      expect(road, road.shown + "&ending&left");
    }
  }

  // Each refusal, where the questions before have their first answers: nothing is to change.
  void refuse_all(Road road) const {
    for (const Question& question : questions_) {
      const string before = std::exchange(road.shown, "");
      ask(road, question);
      const string asked = std::exchange(road.shown, before + road.shown);
      for (const string& refused : question.refused) {
        Road end{.desk = stored_, .typed = road.typed + refused + (refusal_ == "again" ? "\nq\n" : "\n")};
        end.typed += "&leave";
        expect(end, road.shown + question.message + (refusal_ == "again" ? asked + "q:Exit\n" : "") + "&left");
      }
      answer(road, question, question.accepted[0]);
    }
  }

  void visit_as_told(const Desk& before, string line) const {
    string answers = replaced(replaced(column(line), " ", ""), "_", " ");
    const string ending = column(line);
    EXPECT_NE(ending, "") << answers;
    Road road{before};
    set(road.expected, line);
    do {
      road.typed = replaced(column(answers, "|"), "/", "\n");
      expect(road, ending, false);
    } while (!answers.empty());
  }

  Desk stored_;
  int submenu_ = 0, item_ = 0;
  string refusal_;
  std::vector<Question> questions_;
  std::vector<string> visits_;
  std::map<string, string> meaning_ = {
      {"&opening", "&keep"},
      {"&ending", "&dump&saved{attach 1357}{voice change 1}"},
      {"&dump", "{uninterrupted /opt/httpd/sbin/web_server dumpshare}"},
      {"&keep", "Please answer the question and use [enter] to keep original setting value\n\n"},
      {"&select", "Your select is wrong!!\n\n"},
      {"&illegal", "Your input value is illegal!!\n\n"},
      {"&saved", "Setting Save!!\n\n"},
      {"&range", "IP Range Error!!\n\n"},
      {"&full", "No more space to creat new rule!!\n\n"},
      {"&ports", "Port Range Error!!\n\n"},
      {"&bar", "|"}};
};

}  // namespace

void hold(const string& sheets, const Desk& desk) {
  std::istringstream parts(replaced(replaced("\n" + repeated(sheets), "\\\n", ""), "\n== ", "\f"));
  string part, line;
  for (std::getline(parts, part, '\f'); std::getline(parts, part, '\f');) {
    SCOPED_TRACE(part.substr(0, part.find(':')));
    if (string rest = part; column(rest, "for # 0 1\n") != part) {
      const string rows = column(rest, "end\n") + "\n";
      part = column(part, "for # 0 1\n") + replaced(rows, "#", "0") + replaced(rows, "#", "1") + rest;
    }
    std::istringstream lines(part);
    std::getline(lines, line);
    Sheet sheet(line, desk);
    while (std::getline(lines, line)) {
      sheet.read(line);
    }
    sheet.hold();
  }
}

}  // namespace tests
