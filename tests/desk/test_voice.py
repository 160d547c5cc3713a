"""The voice daemon: what it takes over, what it answers, and the calls it has, as the status pages show them."""

import re

from desk import eventually

# A call in the call log: duration, phone and reason.
CALL = re.compile(r"\n\d+ *\| *(\d+)\| +([12])\|(.*)\r\n(?:.*\n){3}(?:dial out |call in  )"
                  r"(?:\|(?:[\d/]{10} [\d:]{8}|0 {18}) ){3}\r\n")


def counters(child, until):
    """Those of the line-state page, row by row, as soon as the page looks like that."""
    page = eventually(lambda: child.visit("Status", "Line State"), lambda page: re.search(until, page, re.S))
    return [int(count) for count in re.findall(r"(?<=\|) +(\d+)(?=[|\r])", page)]


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
    others = 'line 1 "?[31m?%s%n?b" at "sip.example.net", phone book 1, call service on, ' \
        'phone 0 forwards to "5553333", phone 1 busy to "5554444" unanswered to "5555555"\n'
    served = ': serving SIP port 5060, line 0 "5551000" at "sip.example.net", ' + others
    eventually(desk.log, lambda log: served in log)

    # Of the first phone's first channel: sent, received and lost, each in all and in the call it has.
    some = counters(child, r"\ntalking +\|\w+ +\|(registered +[|\r]){2}.* 1  \|   0   \| +\d+\| +[1-9]")
    more = counters(child, r" 1  \|   0   \|[^\r]* [1-9]\d*\r")
    assert len(some) == 24 and all(more[i] > some[i] for i in range(4)) and more[0:6:2] == more[1:6:2]
    # The first phone had no other call yet, the second one that nobody answered.
    assert CALL.findall(child.visit("Status", "Call Detailed Record"))[-1][:2] == ("0", "2")

    child.visit("SIP setting", "Account Setting", {"Phone 0 Enable?": "0"})
    ended = counters(child, r"\ndisabled +\|\w+ +\|disabled +\|registering ")
    assert ended[1:12:2] == [0] * 6 and ended[0] >= more[0]
    calls = CALL.findall(child.visit("Status", "Call Detailed Record"))
    assert "Service Unavailable" in [reason for _, phone, reason in calls if phone == "1"]
    served = ": serving SIP port 5060, line 0 disabled, " + others.replace("?b", "")  # the prompt cut it
    assert served in desk.log() and "secret" not in desk.log()


def test_past_calls_are_shown_whether_the_desk_was_up_or_not(desk):
    assert desk.run("--calls", "3").stderr == "The call log has 3 past calls.\n"
    child = desk.log_in()
    with open(desk.partition.with_name("6"), "ab") as file:
        file.write(b"1|5550000|0|0|0|1002|0\n\xff|1|1|1|1|1|1|1\n0|cut o")
    assert len(CALL.findall(child.visit("Status", "Call Detailed Record"))) == 3
    assert desk.run("--calls", "1000").stderr == "The call log has 1000 past calls.\n"
    assert desk.partition.with_name("6").read_bytes().count(b"\n") == 1000
    reasons = [reason for _, _, reason in CALL.findall(child.visit("Status", "Call Detailed Record"))]
    assert (len(reasons), len(set(reasons))) == (100, 36)
    assert desk.run("--calls", "1001").returncode == desk.run("--calls", "x").returncode == 1
