"""The road of a change on the whole device: terminal, console, segment, flash partition, voice daemon."""

import pathlib
import re
import signal
import socket
import subprocess

import pexpect
import psutil
import pytest
from desk import eventually


def test_what_is_set_is_stored_and_served_and_survives_a_restart(desk):
    child = desk.log_in()
    watch = desk.spawn("tail", "-n", "+1", "-F", str(desk.state / "root/var/tmp/messages"))
    assert "Setting Save!!" in child.visit("SIP setting", "Basic Setting", {"SIP Port Number?": "5071"})
    assert desk.show("sip_port") == {"sip_port": "5071"}
    watch.expect("voice_daemon: serving SIP port 5060.*voice_daemon: serving SIP port 5071")
    child.visit("Basic Network Setting", "Wan Setting", {
        "WAN Type?": "0", "WAN MAC Type?": "1", "Set MAC": "02:00:5e:00:00:99", "MTU?": "1400", "IP?": "198.51.100.7",
        "Subnet Mask?": "255.255.255.128", "Gateway?": "198.51.100.1", "Primary DNS IP": "198.51.100.53",
        "Secondary DNS IP": "198.51.100.54"}, until="Device will be reboot, please wait 60 seconds and re-connect!!")
    child.expect("The desk restarted; ./run logs in again.")
    assert (child.read(), child.wait()) == ("\r\n", 0)

    desk.log_in()
    watch.expect("bbreboot: the device restarts.*serving SIP port 5071")
    stored = {"sip_port": "5071", "wan_type": "0", "static_broadcast": "198.51.100.127", "dns_mode": "0"}
    assert desk.show(*stored) == stored
    servers = "nameserver 198.51.100.53\nnameserver 198.51.100.54\n"
    assert desk.inside("/bin/cat", "/etc/resolv.conf") == servers
    if desk.owns_network():
        assert desk.address("eth0") == ("02:00:5E:00:00:99  ", "198.51.100.7", "198.51.100.127", "255.255.255.128")
        assert "MTU:1400" in desk.inside("/sbin/ifconfig", "eth0")
        assert re.search(r"^0\.0\.0\.0 +198\.51\.100\.1 .* eth0$", desk.inside("/sbin/route", "-n"), re.M)


def test_a_login_on_the_web_pages_holds_others_off_and_ends_the_console(desk):
    child = desk.log_in()
    desk.inside("/opt/httpd/sbin/web_server", "login", "192.168.1.77", "60")
    turned_away = desk.run(text="admin\nadmin\n")
    assert (turned_away.stdout, turned_away.returncode) == ("Duplex Login with 192.168.1.77\n", 1)
    child.sendline("help")
    child.expect("Connection Time Out!! Please Re-Login!!\r\nBye Bye!!\r\n")


def test_telnet_clients_get_a_console_of_their_own_one_after_the_other(desk):
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        port = str(probe.getsockname()[1])
    server = desk.spawn("./run", "--telnet", port)
    if server.expect([f"Telnet clients are served on 127.0.0.1 port {port}", r"use \./run here"]):
        pytest.skip(server.before + server.after)
    client = desk.spawn("telnet", "127.0.0.1", port)
    client.expect("Username:")
    desk.log_in(client)
    desk.spawn("telnet", "127.0.0.1", port).expect("Duplex Login with 127.0.0.1")
    client.choose("Exit")
    client.expect("Bye Bye!!.*Connection closed")
    desk.spawn("telnet", "127.0.0.1", port).expect("Username:")
    server.sendintr()
    server.expect(pexpect.EOF)


def test_one_prompt_costs_at_most_one_write_and_one_read(desk, tmp_path):
    desk.console()  # keeps the desk up
    child = desk.spawn("strace", "-f", "-e", "trace=read,write,execve", "-o", str(tmp_path / "calls"), "desk/join",
                       "/usr/sbin/console", "--version")
    child.expect("Username:")
    assert child.before == ""  # it takes no arguments
    desk.log_in(child).visit("SIP setting", "Basic Setting")
    child.choose("Exit")
    child.expect(pexpect.EOF)
    calls = (tmp_path / "calls").read_text()
    process, trace = re.search(r'^(\d+) +execve\("/usr/sbin/console"(.*)', calls, re.M | re.S).groups()
    order = "".join(read or write for read, write in re.findall(rf"^{process} +(?:(r)ead\(0|(w)rite\(1),", trace, re.M))
    # Name, password, "2", "0" and 14 answers; the save, whose message is out before the prompt; "q" twice.
    assert re.fullmatch("(wr){18}ww?(rw){2}", order)


def test_killing_the_session_leaves_nothing_behind(desk):
    for end in (signal.SIGKILL, signal.SIGHUP, signal.SIGINT):
        child = desk.log_in()
        processes = desk.processes()
        assert len(processes) > 6
        own_memory = desk.owns_network()  # by namespaces; else the device's records are among the machine's
        child.kill(end)
        child.expect(pexpect.EOF)
        desk.end()
        eventually(lambda: [one for one in psutil.process_iter(["status"])
                            if one in processes and one.info["status"] != psutil.STATUS_ZOMBIE], lambda left: not left)
        assert str(desk.state) not in pathlib.Path("/proc/mounts").read_text()
        assert own_memory or not re.search("0x0000(04d2|162e|054d)", subprocess.getoutput("ipcs -m"))
