#!/usr/bin/python3
"""Prints docs/menus.md: every menu item as the console shows it with the factory settings.

docs/pages/menus.py VISITS DEFAULTS, the program of docs/pages/visits.cpp and the factory settings. What a question
accepts, how it refuses the rest, what it sets and what happens at the end is found out by answering it.
"""

import functools
import json
import re
import subprocess
import sys

ADDRESS, NETMASK, MAC = "192.168.1.150", "255.255.0.0", "00:11:22:33:44:66"
ADDRESSES = [
    ("a MAC address", [MAC, "00:11:22:33:44:77"], []),
    ("an IPv4 address", [ADDRESS, "192.168.1.151", "192.168.1.152"], ["192.168.1.1"]),
    ("a netmask", [NETMASK, "255.0.0.0"], ["255.0.255.0"]),
]
# Answers by which any question lets one go on.
PLAIN = ["", "0", "1", ADDRESS, NETMASK, MAC, "5", "x", "12345", "q"]
WRONG = ["x", "1x", "-1", "99999999999", "1.2.3", "0.0.0.0", "00:11", ""]
LONGEST = 511

visits = subprocess.Popen(sys.argv[1:3], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)


@functools.cache
def visit(*fields):
    visits.stdin.write("".join(field + "\t" for field in fields) + "\n")
    visits.stdin.flush()
    return json.loads(visits.stdout.readline())


# ---- What is shown ----

ACTION = re.compile(r"\{((?:[^{}]|\{[^{}]*\})*)\}")  # what the console does stands in the text


def text_of(shown):
    return ACTION.sub("", shown)


def question_in(shown):
    """The question at the end of what is shown, with the choices that stand in it."""
    lines = text_of(shown).strip("\n").split("\n")
    first = len(lines) - 1
    while first > 0 and re.match(r"[\s<0-9:]|.{0,3}$", lines[first]):
        first -= 1
    return "\n".join(lines[first:])


def key_of(shown):
    """By which a question is known again, whatever value it shows."""
    return re.sub(r"<[^<>]*>", "<>", question_in(shown))


def complaint_in(shown):
    """What an answer is refused with: the first line that follows it."""
    line = next((line for line in text_of(shown).split("\n") if line), "")
    complains = re.search(r"!!$|[Ee]rror| full$|not define", line) and not re.match("Setting Save|Device will", line)
    return line if complains else ""


# ---- Answers ----


class Question:
    """What is asked behind some answers, and what becomes of one more."""

    def __init__(self, way, answers):
        self.way, self.answers = way, answers
        self.shown = visit(*way, *answers)["shown"][-1]
        self.key = key_of(self.shown)

    def outcome(self, answer):
        """What it is refused with, "" for nothing, and the next question, None behind the last one."""
        seen = visit(*self.way, *self.answers, answer)
        after = seen["shown"][len(self.answers) + 1]
        is_last = seen["over"] and len(seen["shown"]) == len(self.answers) + 2
        complaint = complaint_in(after)
        if question_in(self.shown) == text_of(after).strip("\n"):
            complaint = "nothing"
        return complaint, None if is_last else key_of(after)

    def accepts(self, answer):
        return self.outcome(answer)[0] == "" and not text_of(self.after(answer)).lstrip().startswith("q:Exit")

    def after(self, answer):
        return visit(*self.way, *self.answers, answer)["shown"][len(self.answers) + 1]

    def bound(self, made, accepted, refused):
        """The last one that is accepted on the way from an accepted to a refused number of a row."""
        while abs(refused - accepted) > 1:
            middle = (accepted + refused) // 2
            accepted, refused = (middle, refused) if self.accepts(made(middle)) else (accepted, middle)
        return accepted

    @functools.cached_property
    def numbers(self):
        """Those that are accepted: the small ones, and the bounds of the others."""
        named = {int(word) for word in re.findall(r"\d+", self.key)}
        tried = sorted(set(range(61)) | {max(0, n + step) for n in named for step in (-1, 0, 1)} | {2**32, 2**64})
        return [number for number in tried if self.accepts(str(number))]

    @functools.cached_property
    def kind(self):
        """In words, some accepted answers, and some that go beyond it."""
        if self.accepts("a b") and self.accepts("3") and self.accepts("17"):
            longest = self.bound(lambda length: "a" * length, 1, LONGEST + 1)
            return f"a text of up to {longest} characters", ["a", "b"], ["a" * (longest + 1)]
        if not any(self.accepts(str(digit)) for digit in range(10)):
            for words, accepted, refused in ADDRESSES:
                if self.accepts(accepted[0]):
                    return words, accepted, refused
        if self.accepts("1234567") and self.accepts("0001") and not self.accepts("1x"):
            longest = self.bound(lambda length: "1" * length, 1, LONGEST + 1)
            if longest > 10:
                return f"up to {longest} digits", ["12", "13"], ["1" * (longest + 1)]
        digits = [str(digit) for digit in range(10) if self.accepts(str(digit))]
        if digits and self.accepts(digits[-1] + "x99") and self.accepts(digits[-1] + "99"):
            return ", ".join(digits) + " as the first character", digits, []
        numbers = self.numbers
        if not numbers:
            return "", [], []
        low, high = numbers[0], numbers[-1]
        if len(numbers) > 11 or high > 60:
            high = self.bound(str, high, 10 * high + 10)
            low = self.bound(str, low, -1)
            if all(number in numbers for number in range(low, min(high, 60))):
                return f"{low} to {high}", [str(low), str(high), str(low + 1)], [str(low - 1), str(high + 1)]
        return ", ".join(map(str, numbers)), [str(n) for n in numbers], [str(n) for n in range(high + 2) if n not in numbers]

    @property
    def label(self):
        return re.sub(r"[<(?].*| *:$", "", self.key.split("\n")[0]).strip()

    @property
    def is_choice(self):
        return 1 < len(self.kind[1]) <= 11 and "," in self.kind[0]

    @property
    def usual(self):
        """An answer to go on with: Enter, when that keeps the value."""
        return next((answer for answer in PLAIN if self.accepts(answer)), "q")


class Dialogue:
    """A menu item, explored."""

    def __init__(self, way, known=()):
        self.way = way
        self.asked = []  # each question with the condition under which it is asked, and the fields it sets
        self.known = set(known)  # what was asked, with what it sets
        self.endings = {}  # what is done at the end, and under which condition
        self.filled = None  # answers that made an entry of a table

    def completed(self, answers):
        """With usual answers to the end; q leaves a menu that comes back."""
        answers, keys = tuple(answers), []
        while True:
            seen = visit(*self.way, *answers)
            if seen["over"] or len(answers) > 150:
                return seen, answers, keys
            question = Question(self.way, answers)
            answers += ("q" if answers and question.key == key_of(seen["shown"][0]) else question.usual,)
            keys.append(question.key)

    def explore(self, answers=(), conditions=(), path=()):
        """Conditions are pairs: in words, and the questions that come whether it holds or not."""
        seen = visit(*self.way, *answers)
        if seen["over"]:
            done = tuple(ACTION.findall("".join(seen["shown"])))
            self.endings.setdefault(done, conditions[-1][0] if conditions else "")
            return
        question = Question(self.way, answers)
        if question.key in path[:1] + path[-1:]:
            return
        path += (question.key,)
        names = self.sets(question)
        identity = question.key, tuple(re.sub(r"\[[0-9]+\]", "", name) for name in names)
        if identity in self.known:
            self.explore((*answers, question.usual), conditions, path)
            return
        self.known.add(identity)
        if not question.kind[0]:  # before there is anything to choose
            self.explore((*answers, question.usual), conditions, path)
            return
        condition = next((words for words, common in reversed(conditions) if question.key not in common), "")
        self.asked.append((question, condition, names))
        groups = {}  # answers, by what is asked behind them
        for answer in [question.usual, *(question.kind[1] if question.is_choice else [])]:
            _, _, keys = self.completed((*answers, answer))
            groups.setdefault(tuple(keys), []).append(answer)
        common = set.intersection(*map(set, groups))
        for chosen in groups.values():
            named = " or ".join(dict.fromkeys(filter(None, chosen)))
            own = ((f"{question.label} is {named}", common),) if len(groups) > 1 and named else ()
            self.explore((*answers, chosen[0]), conditions + own, path)

    def sets(self, question):
        """The names of the fields that differ with what is answered."""
        results = []
        for answer in question.kind[1][:4]:
            seen, answers, _ = self.completed((*question.answers, answer))
            if seen["saved"]:
                results.append(seen["changed"])
                if any(re.search(r"\.(enable|phone_number)$", name) for name in seen["changed"]):
                    self.filled = self.filled or answers
        differing = [
            sorted(name for name in {*one, *other} if one.get(name) != other.get(name))
            for index, one in enumerate(results)
            for other in results[index + 1 :]
        ]
        return min(filter(None, differing), key=len, default=[])


# ---- The page ----

DONE = {
    r"uninterrupted /opt/httpd/sbin/web_server dumpshare": "saves the settings",
    r"voice change 1": "tells the voice daemon",
    r"(setsid )?/sbin/bbreboot.*": "restarts the device",
    r"attach 1357|sleep \d+|sync|silence .*": "",
    r"udp .*": "asks the voice daemon",
}


def told(action):
    for pattern, words in DONE.items():
        if re.fullmatch(pattern, action):
            return words
    return "runs `" + re.sub(r"/etc/init.d/| > /dev/null.*", "", action).strip() + "`"


def told_all(actions):
    return ", ".join(dict.fromkeys(filter(None, map(told, actions))))


def cell(text):
    return "<br>".join(f"`{line}`" for line in text.replace("|", "\\|").split("\n") if line)


def refusals(question):
    found = []
    for answer in WRONG + question.kind[2]:
        complaint, following = question.outcome(answer)
        if complaint:
            saved = visit(*question.way, *question.answers, answer)["saved"]
            then = "saves without it" if saved else "ends" if following is None else "asks again" if following == question.key else "goes on"
            found.append(then if complaint == "nothing" else f"{complaint}; {then}")
            if not answer:
                found.append("Enter is refused as well")
    return "<br>".join(dict.fromkeys(found))


def shortened(screen):
    """Of a long screen, its beginning, and behind that the lines that are new."""
    lines = screen.split("\n")
    begin = lines if len(lines) < 100 else lines[:20]
    return "\n".join(begin + [line for line in dict.fromkeys(lines[len(begin):]) if line not in begin])


def links(names):
    return ", ".join("[`{}`](segment-map.md#{})".format(name, re.sub(r"\[[0-9]+\]", "", name)) for name in names)


def print_item(way, label):
    dialogue = Dialogue(way)
    seen, answers, _ = dialogue.completed(())
    print(f"\n### {label}\n\n```text")
    print(shortened("\n".join(text_of(shown) + answer for shown, answer in zip(seen["shown"], [*answers, ""]))))
    print("```")
    dialogue.explore()
    rows, endings = dialogue.asked, dialogue.endings
    if dialogue.filled:  # now there is something to change or to delete
        again = Dialogue((*way, *dialogue.filled, "then", *way), dialogue.known)
        again.explore()
        described = {question.key for question, _, _ in rows}
        rows = rows + [row for row in again.asked if row[0].key not in described]
        endings = {**again.endings, **endings}
    if rows:
        print("\n| Question | Takes | Refuses with | Sets | Asked when |\n|---|---|---|---|---|")
    for question, condition, names in rows:
        print(f"| {cell(question.key)} | {question.kind[0]} | {refusals(question)} | {links(names)} | {condition} |")
    endings = {told_all(done): condition for done, condition in endings.items() if told_all(done)}
    for done, condition in endings.items():
        print(f"\nDone{f' when {condition}' if condition and len(endings) > 1 else ''}: {done}.")


def main():
    print(HEAD)
    visits.stdin.write("menus\n")
    visits.stdin.flush()
    main_menu, *submenus = json.loads(visits.stdout.readline())
    for title, submenu in zip(main_menu.splitlines(), submenus):
        number, _ = title.split(":")
        print(f"\n## {title.replace(':', ': ')}")
        for item, label in re.findall(r"^(\d+):(.*)$", submenu, re.MULTILINE):
            print_item((number, item), f"{number}, {item}: {label}")
    print(GLOSSARY, end="")


HEAD = """# Every menu

What an administrator sees in each menu item of a device with factory settings: first a visit in which every question is
answered with Enter, or with something small where Enter is refused; then what each question takes, how it refuses the
rest, which [field](segment-map.md) it sets, and what is done in the end.

A refused answer *ends* the dialogue with nothing changed, or the console *asks again*, or it *goes on* with the next
question. `<>` stands for the value that is shown. Of a long list the first entries are whole, and of the others only what
is new is shown. Words of the telephone trade are [explained below](#words).

This page is printed by `docs/pages/print`, which asks the console itself; `./test` fails when it is stale."""
GLOSSARY = """
## Words

| Word | What it is |
|---|---|
| ALG | application layer gateway: lets a protocol through that names addresses in what it sends |
| BigPond | a provider's login over a cable connection |
| caller ID | the caller's number, shown on the telephone; sent as tones (DTMF) or as a modem signal (FSK Bellcore, FSK ETSI, BT; CLIP and JCLIP in Japan) |
| alert signal | what wakes the telephone for a caller ID: DTAS, a dual tone; RPAS, a short ring; LR, a reversal of the line's polarity |
| CTR21 | the electrical properties that European telephones have in common |
| DDNS | dynamic DNS: a name that follows the device's changing address |
| DMZ | the one machine that gets all that is sent to the device and is not for anybody else |
| DND | do not disturb: a call is refused |
| DNS SRV | a record that names a service's servers |
| E.164 | telephone numbers with the country's code in front |
| hook flash | the hook pressed for a moment, to ask the exchange for something; the bounds tell it from hanging up |
| hotline | lifting the handset calls one number |
| hunting | a call that is not answered goes on to the next telephone |
| IPSec, PPTP, L2TP pass through | lets tunnels of machines behind the device through |
| MTU | the largest packet that the WAN carries, in bytes |
| MWI | message waiting indication: a light or a tone that says that there is voice mail |
| NAT | network address translation: many machines behind one address |
| P-Asserted identity | who calls, as stated to a trusted provider |
| registrar | the server where a line says at which address it can be called |
| RTP, RTCP | what carries the voice, and what reports how well it arrives |
| STUN | a server that tells the device its address outside of NAT |
| T.38 | fax as data instead of as sounds; pass through sends the sounds |
| ToS, DiffServ | marks in each packet by which routers prefer it |
| UPnP | lets machines behind the device open ports by themselves |
| VLAN, priority | which virtual network a packet belongs to, and its rank there (802.1p) |
"""

if __name__ == "__main__":
    main()
