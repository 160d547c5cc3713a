// Asking. A dialogue is a list of statements, one per prompt, that states text, kind, bounds and field
// together:
//
//   Dialogue ask(Dialogue::refuse_by_kind);
//   ask.choice("UPNP Enable?<%d>(0:Disable, 1:Enable):", segment().upnp_enable, "01");
//   if (ask.commit()) { save_settings(); ... }
//
// Each statement shows the stored value, reads a line and has it judged; an empty line keeps the stored
// value. The answers, kept ones included, are noted in a journal and reach the segment in commit(), so a
// dialogue that does not get there changes nothing. Once a dialogue has ended early, its remaining statements
// do nothing and return 0.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

#include "config/values.h"
#include "shell/answer.h"
#include "shell/journal.h"
#include "shell/message.h"
#include "shell/prompt.h"

namespace shell {

// How one prompt departs from its dialogue. What it points to has to live until the prompt is answered.
struct Option {
  const char* refusal = nullptr;    // printed in place of the dialogue's
  bool judge_kept = false;          // a kept value must pass the test as well
  bool empty_is_zero = false;       // when adding: an empty line counts as 0
  bool rest_ignored = false;        // only a choice's first character, a number's leading digits count
  bool no_empty_line = false;       // when asking again: the dialogue prints something else behind the answer
  const char* kept_note = nullptr;  // printed, without a line end, when the value was kept
};
inline constexpr Option no_option;
// Those that several prompts share: built once, not at each of them.
inline constexpr Option judge_kept{.judge_kept = true};
inline constexpr Option empty_is_zero{.empty_is_zero = true};

struct TextRule {
  // What happens to an answer that is too long, or that is empty because it begins with a NUL.
  enum class Unfit : std::uint8_t {
    refused,        // as any bad answer of the dialogue
    leaves_empty,   // message 2, the field becomes empty, the dialogue goes on
    keeps_the_old,  // message 2, the field keeps its text, the dialogue goes on
  };
  Unfit unfit = Unfit::refused;
  std::uint16_t max = UINT16_MAX;  // characters; the field with its NUL is the limit in any case
  bool digits_only = false;        // an answer must be decimal digits throughout
  bool with_line_feed = false;     // stored, shown and kept with the line feed that ended it
  bool optional = false;           // when adding: an empty line keeps what the slot holds
  bool may_be_empty = false;       // when adding: an empty line stores an empty text
};

class Dialogue {
  using Bytes = std::span<char>;

  template <typename Field>
  static Bytes bytes_of(Field& field) {
    static_assert(std::is_trivially_copyable_v<Field>);
    return {reinterpret_cast<char*>(&field), sizeof field};
  }

 public:
  // What is done about a refused answer.
  struct Policy {
    bool asks_again;  // the same question again; a line that is exactly q leaves; an empty line after each
                      // answer
    const char* bad_choice;
    const char* bad_value;
  };
  static constexpr Policy refuse_by_kind = {
      .asks_again = false, .bad_choice = message::wrong_choice, .bad_value = message::illegal_value};
  static constexpr Policy refuse_as_illegal = {
      .asks_again = false, .bad_choice = message::illegal_value, .bad_value = message::illegal_value};
  static constexpr Policy ask_again = {
      .asks_again = true, .bad_choice = message::illegal_value, .bad_value = message::illegal_value};

  // A new record is asked for by the same statements as a stored one: every prompt shows zero instead of what
  // the free slot holds, and an answer is required.
  enum class Record : std::uint8_t { stored, added };

  // Not inline: the linker would repeat it in every dialogue.
  [[gnu::noinline]] explicit Dialogue(const Policy& policy, Record record = Record::stored);
  Dialogue(const Dialogue&) = delete;
  Dialogue& operator=(const Dialogue&) = delete;

  bool adding() const { return adding_; }

  // The telephone port or line that the next prompts are about: a "%d" before the value shows its number.
  void about(std::size_t number) { shown_number_ = static_cast<std::uint32_t>(number); }

  // ---- Kinds of answer, as shell/answer.h describes them; each returns the resulting value ----

  std::uint8_t choice(Prompt<Shows::number> prompt, std::uint8_t& field, OneOf choices);
  std::uint8_t choice(Prompt<Shows::number> prompt, std::uint8_t& field, OneOf choices, const Option& option);

  // A choice among things with names: the prompt shows the name of the current one, whose number is
  // `current`. Returns the chosen number; the caller knows what to write.
  std::uint32_t named_choice(Prompt<Shows::text> prompt, std::string_view name, std::uint32_t current,
                             OneOf choices, const Option& option);

  // A number of the record, whatever its type.
  struct NumberField {
    template <std::integral Number>
    NumberField(Number& number) : bytes(bytes_of(number)) {}
    Bytes bytes;
  };
  // A field narrower than the range's end keeps, and the call returns, the number's low bits.
  std::uint32_t number(Prompt<Shows::number> prompt, NumberField field, Range range);
  std::uint32_t number(Prompt<Shows::number> prompt, NumberField field, Range range, const Option& option);

  // The same for a prompt that does not show the value.
  std::uint32_t hidden_number(Prompt<Shows::nothing> prompt, std::uint8_t& field, Range range);

  // Its prompt shows the value twice.
  std::uint8_t listed(Prompt<Shows::number> prompt, std::uint8_t& field, OneOf numbers);

  // A number that is no field of its own: shown and kept like one, and only returned.
  std::uint32_t number_of(Prompt<Shows::number> prompt, std::uint32_t current, Range range);

  // Whatever is kept passes, 0.0.0.0 as well, unless option.judge_kept.
  config::Ipv4 address(Prompt<Shows::address> prompt, config::Ipv4& field);
  config::Ipv4 address(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option);
  config::Ipv4 netmask(Prompt<Shows::address> prompt, config::Ipv4& field, const Option& option = no_option);
  void mac(Prompt<Shows::mac> prompt, config::Mac& field);

  // A stored text that is about to be shown is first cut at its newline, in the segment, and stays cut.
  template <std::size_t N>
  void text(Prompt<Shows::text> prompt, config::Text<N>& field, TextRule rule = {}) {
    ask_text(prompt, field.bytes, rule);
  }
  // The same for a prompt that does not show the text, which is not cut then.
  template <std::size_t N>
  void hidden_text(Prompt<Shows::nothing> prompt, config::Text<N>& field, TextRule rule = {}) {
    ask_text(prompt, field.bytes, rule);
  }

  // ---- Answers that are no settings: which of `count` things, numbered from 0 ----
  // Required unless option.empty_is_zero, and refused as a choice. A "%d" in the prompt shows the last
  // number.

  // As a number of any length:
  std::uint32_t pick(Prompt<Shows::nothing> prompt, std::size_t count, const Option& option = no_option);
  // The same under a heading.
  std::uint32_t pick(Prompt<Shows::text> prompt, std::string_view heading, std::size_t count,
                     const Option& option = no_option);
  // As exactly one character:
  std::uint32_t pick_digit(Prompt<Shows::nothing> prompt, std::size_t count);

  // ---- Without a prompt ----

  // What commit() writes into a field that was not asked for.
  template <typename Field>
  Field note(Field& field, Field value) {
    note(bytes_of(field), bytes_of(value).data());
    return value;
  }
  // Zero bytes: the number 0, an empty text.
  template <typename... Fields>
  void note_zero(Fields&... fields) {
    (note(bytes_of(fields), nullptr), ...);
  }

  // ---- The order in which the fields are written ----
  // Other programs see it. It is that of the statements above, but for these.

  // What is noted from here on is written before all that was noted until now.
  void note_ahead() { journal_.note_ahead(); }
  // These fields are written one right behind the other, where the last one was noted. Those in front of a
  // field that was not noted stay where they are.
  template <typename First, typename Second, typename... More>
  void note_in_order(const First& first, const Second& second, const More&... more) {
    if constexpr (sizeof...(more) > 0) {
      note_in_order(second, more...);
    }
    journal_.put_before(&second, &first);
  }

  // Reports and ends the dialogue, unless it has ended.
  void refuse(const char* refusal);

  bool ended() const { return ended_; }

  // Writes all answers. False, with nothing written, when the dialogue has ended early.
  bool commit();

 private:
  struct Question {
    PromptText prompt;
    AnswerKind kind;
    std::string_view text = {};  // what a prompt shows that shows a text
  };

  // Nothing stored: an answer is required.
  Value ask(const Question& question, std::optional<Value> stored, const Option& option);
  Value ask_and_note(const Question& question, Bytes field, const Option& option);
  config::Ipv4 ask_address(const Question& question, config::Ipv4& field, const Option& option);
  std::uint32_t ask_pick(Question question, std::size_t count, const Option& option);
  void ask_text(PromptText prompt, Bytes field, TextRule rule);
  bool has_left();
  void report(const char* refusal);
  void answered(const Option& option, std::size_t typed);
  void note(Bytes field, const void* value);  // no value: zero bytes

  const Policy& policy_;
  bool adding_;
  bool ended_ = false;
  std::uint32_t shown_number_{};  // what a "%d" before the value shows
  Journal journal_;
};

}  // namespace shell
