"""The road of a change on the whole device: terminal, console, segment, flash partition, voice daemon."""

import re
import signal
import socket
import subprocess

import pexpect
import pytest
from desk import PROMPT, command_line


def set_sip_port(child, port):
    child.sendline("2")
    child.expect(PROMPT)
    child.sendline("0")
    child.expect("SIP Port Number")
    child.sendline(str(port))
    child.expect("Session Timer")
    for _ in range(13):
        child.sendline("")
    child.expect("Setting Save!!.*" + PROMPT)


def test_a_new_sip_port_is_stored_and_served_and_survives_a_restart(desk):
    child = desk.log_in(desk.console())
    set_sip_port(child, 5071)
    assert desk.show("sip_port") == {"sip_port": "5071"}
    watch = desk.spawn("tail", "-n", "+1", "-F", desk.state + "/root/var/tmp/messages")
    watch.expect("voice_daemon: serving SIP port 5060")
    watch.expect("voice_daemon: serving SIP port 5071")

    desk.inside("/sbin/bbreboot")
    child.expect("The desk restarted; ./run logs in again.")
    child.expect(pexpect.EOF)
    child.close()
    assert child.exitstatus == 0
    again = desk.log_in(desk.console())
    assert desk.show("sip_port") == {"sip_port": "5071"}
    watch.expect("bbreboot: the device restarts.*serving SIP port 5071")
    set_sip_port(again, 5072)


def test_a_second_login_is_turned_away_until_the_first_leaves(desk):
    first = desk.log_in(desk.console())
    second = desk.spawn("./run")
    second.expect(pexpect.EOF)
    second.close()
    assert (second.before, second.exitstatus) == ("Duplex Login with 127.0.0.1\r\n", 1)
    first.sendline("q")
    first.expect("Bye Bye!!")
    first.expect(pexpect.EOF)
    desk.log_in(desk.console())


def test_a_login_on_the_web_pages_ends_the_console_and_holds_others_off_until_it_expires(desk):
    child = desk.log_in(desk.console())
    desk.inside("/opt/httpd/sbin/web_server", "login", "192.168.1.77", "60")
    child.sendline("help")
    child.expect("Connection Time Out!! Please Re-Login!!\r\nBye Bye!!\r\n")
    keeper = desk.console()
    desk.inside("/opt/httpd/sbin/web_server", "login", "192.168.1.77", "60")
    assert desk.run(text="admin\nadmin\n").stdout == "Duplex Login with 192.168.1.77\n"
    desk.inside("/opt/httpd/sbin/web_server", "login", "192.168.1.77", "0")
    desk.log_in(keeper)


def test_a_script_gets_the_consoles_output_and_status(desk):
    done = desk.run(text="admin\nadmin\nq\n")
    assert done.returncode == 1
    assert done.stdout.startswith("Username:Password:0:Basic Network Setting\n")
    assert done.stdout.endswith("[4830NT]#Bye Bye!!\n")
    assert done.stderr == ""


def test_a_telnet_client_gets_a_console_of_its_own(desk):
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        port = str(probe.getsockname()[1])
    server = desk.spawn("./run", "--telnet", port)
    if server.expect([f"Telnet clients are served on 127.0.0.1 port {port}", "only namespaces"]):
        pytest.skip(server.before + server.after)
    client = desk.spawn("telnet", "127.0.0.1", port)
    client.expect("Username:")
    desk.log_in(client)
    other = desk.spawn("telnet", "127.0.0.1", port)
    other.expect("Duplex Login with 127.0.0.1")
    client.sendline("q")
    client.expect("Bye Bye!!")
    client.expect("Connection closed")
    server.sendintr()
    server.expect(pexpect.EOF)
    desk.wait_until_down()


def test_one_prompt_costs_at_most_one_write_and_one_read(desk, tmp_path):
    desk.console()  # keeps the desk up
    calls = tmp_path / "calls"
    child = desk.spawn("strace", "-f", "-e", "trace=read,write,execve", "-o", str(calls), "desk/join",
                       "/usr/sbin/console")
    child.expect("Username:")
    set_sip_port(desk.log_in(child), 5073)
    child.sendline("q")
    child.expect(PROMPT)
    child.sendline("q")
    child.expect(pexpect.EOF)

    process, trace = re.search(r'^(\d+) +execve\("/usr/sbin/console"(.*)', calls.read_text(), re.M | re.S).groups()
    mine = re.findall(rf"^{process} +(?:(r)ead\(0|(w)rite\(1),", trace, re.M)
    order = "".join(read or write for read, write in mine)
    # Name, password, "2", "0" and 14 answers; the save, whose message is out before the prompt; "q" twice.
    assert re.fullmatch("(wr){18}ww?(rw){2}", order)


def test_killing_the_session_leaves_nothing_behind(desk):
    before = subprocess.check_output(["ipcs", "-m"])
    for end in (signal.SIGKILL, signal.SIGHUP, signal.SIGINT):
        child = desk.log_in(desk.console())
        processes = desk.processes()
        assert len(processes) > 4
        child.kill(end)
        child.expect(pexpect.EOF)
        child.wait()
        desk.wait_until_down()
        assert [p for p in processes if command_line(p)] == []
    with open("/proc/self/mounts", encoding="utf-8") as mounts:
        assert desk.state not in mounts.read()
    assert subprocess.check_output(["ipcs", "-m"]) == before
