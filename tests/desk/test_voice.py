"""The voice daemon: what it takes over, what it answers, and the calls it has."""

import re

LINE_STATE = [f"get rtpstat{span}{count} {phone} {channel}" for span in ("total", "current")
              for phone in (0, 1) for channel in (0, 1) for count in ("send", "recv", "lost")]
LINE_STATE += ["get epstate 0", "get epstate 1", "get epregstate 0", "get epregstate 1"]
RECORD = re.compile(r"[01]\|\d{1,16}\|\d{14}\|(?P<answered>\d{14}|0)\|\d{14}\|(?P<reason>[0-9a-f]{4})\|"
                    r"(?P<duration>\d+)\|(?P<phone>[01])")
UNKNOWN, EMPTY, TOO_LONG = b"error unknown command\n", b"error empty request\n", b"error request too long\n"


def call_log(desk):
    """How many calls are announced, and as many records as the console takes."""
    voice = desk.voice()
    count = int(voice.ask(b"get calllog\n\n"))
    return count, [RECORD.fullmatch(voice.recv(8192).decode()) for _ in range(min(count, 100))]


def line_state(voice, until):
    """The answers to the line-state page's queries, as soon as they are such."""
    return voice.wait_for("\n".join(LINE_STATE).encode() + b"\n\n", lambda reply: until(reply.split("\n"))).split("\n")


def test_lines_follow_the_stored_accounts_and_have_calls(desk):
    desk.store(r"""sip_line[*].phone_enable=1
sip_line[0].phone_number=5551000
sip_line[*].auth_password=secret
sip_server[*].registrar_address=sip.example.net
sip_line[1].phone_number=\x1b[31m\x7f%s%n\x0ab
phone_call_service[0].call_forward_always_uri=5553333\x0a
phone_call_service[1].call_forward_busy_uri=5554444
phone_call_service[1].call_forward_noans_uri=5555555
phone_book[3].phone_number=77
""")
    child = desk.log_in()
    voice = desk.voice()
    others = 'line 1 "?[31m?%s%n?b" at "sip.example.net", phone book 1, call service on, ' \
        'phone 0 forwards to "5553333", phone 1 busy to "5554444" unanswered to "5555555"\n'
    assert ': serving SIP port 5060, line 0 "5551000" at "sip.example.net", ' + others in desk.log()

    state = line_state(voice, lambda field: int(field[12]) > 0)
    assert len(state) == 29 and state[28] == "" and state[24:27:2] == ["talking", "registered"]
    later = line_state(voice, lambda field: int(field[14]) > 0)
    assert all(int(later[i]) > int(state[i]) for i in (0, 1, 12, 13)) and later[:3] == later[12:15]
    # The first phone had no other call yet, the second one that nobody answered.
    assert [(call["answered"], call["duration"], call["phone"]) for call in call_log(desk)[1]][-1:] == [("0", "0", "1")]

    desk.choose(child, "2", "1", "", "0", "", *[""] * 16)  # line 0 is disabled, all of line 1 kept
    ended = line_state(voice, lambda field: field[24:] == ["disabled", field[25], "disabled", "registering", ""])
    assert ended[12:18] == ["0"] * 6 and int(ended[0]) >= int(later[0])
    assert "1015" in [call["reason"] for call in call_log(desk)[1] if call["phone"] == "0"]
    assert ": serving SIP port 5060, line 0 disabled, " + others.replace("?b", "") in desk.log()  # the prompt cut it
    assert "secret" not in desk.log()


def test_whatever_is_asked_is_answered_with_lines(desk):
    desk.console()
    voice = desk.voice()
    for request, reply in {
        b"": EMPTY, b"\n\nget epstate 0\n\n": EMPTY, b"get epstate 1\n\nget epstate 0\n\n": b"disabled\n",
        b"get epregstate 0\nget\nget  epstate 0\nset epstate 0\n\0\xff\r\n\n":
            b"disabled\n" + UNKNOWN + b"error unknown item\n" + 2 * UNKNOWN,
        b"get epstate 2\nget rtpstattotalsend 0\nget epstate 0 \n\n": 3 * b"error wrong arguments\n",
        b"get calllog\nget epregstate 1\n\n": b"error calllog is a request of its own\ndisabled\n",
        8192 * b"x": UNKNOWN, 8193 * b"\n": TOO_LONG, 4096 * b"x\n": 8191 // len(UNKNOWN) * UNKNOWN,
    }.items():
        assert (request[:80], voice.ask(request)) == (request[:80], reply)


def test_past_calls_are_shown_whether_the_desk_was_up_or_not(desk):
    assert desk.run("--calls", "3").stderr == "The call log has 3 past calls.\n"
    child = desk.log_in()
    with open(desk.partition[:-1] + "6", "ab") as file:
        file.write(b"1|5550000|0|0|0|1002|0\n\xff|1|1|1|1|1|1|1\n1||0|0|0|1002|0|0\n0|cut o")
    assert call_log(desk)[0] == desk.choose(child, "5", "3").count("Phone Num ") == 3
    assert desk.run("--calls", "1000").returncode == 0
    count, records = call_log(desk)
    page = desk.choose(child, "5", "3")
    reasons = set(re.findall(r"\|    [12]\|(.*)\r\n", page))
    assert (count, all(records), page.count("Phone Num "), len(reasons)) == (1000, True, 100, 36)
    assert {"Unknown error", "No codecs matching with remote end", "unknow reason"} <= reasons
    for calls in "1001", "-1", "x", "":
        refused = desk.run("--calls", calls)
        assert (refused.returncode, refused.stderr) == (1, "A number of calls is from 0 to 1000: ./run --calls 5\n")
