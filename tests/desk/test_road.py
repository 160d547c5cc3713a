"""The road of a change on the whole device: terminal or telnet, console, segment, flash partition, what serves it."""

import re
import signal
import socket

import pexpect
import psutil
import pytest
from desk import eventually


def test_what_is_set_is_stored_and_served_and_survives_a_restart(desk):
    child = desk.console().log_in()
    assert "Setting Save!!" in child.visit("SIP setting", "Basic Setting", {"SIP Port Number?": "5071"})
    assert desk.show("sip_port") == "sip_port=5071\n"
    desk.wait_for_log("voice_daemon: serving SIP port 5071")
    child.visit("Basic Network Setting", "Wan Setting", {
        "WAN Type?": "0", "WAN MAC Type?": "1", "Set MAC": "02:00:5e:00:00:99", "MTU?": "1400", "IP?": "198.51.100.7",
        "Subnet Mask?": "255.255.255.128", "Gateway?": "198.51.100.1", "Primary DNS IP": "198.51.100.53",
        "Secondary DNS IP": "198.51.100.54"}, until="Device will be reboot, please wait 60 seconds and re-connect!!")
    assert child.read().endswith("The desk restarted; ./run logs in again.\r\n") and child.wait() == 0

    child = desk.console().log_in()
    desk.wait_for_log("voice_daemon: serving SIP port 5071")
    assert desk.show("static_broadcast", "dns_mode") == "static_broadcast=198.51.100.127\ndns_mode=0\n"
    assert desk.shell("cat /etc/resolv.conf") == "nameserver 198.51.100.53\nnameserver 198.51.100.54\n"
    if desk.owns_network():
        port = desk.shell("ifconfig eth0")
        assert "HWaddr 02:00:5E:00:00:99" in port and "MTU:1400" in port
        assert "inet addr:198.51.100.7  Bcast:198.51.100.127  Mask:255.255.255.128" in port
        assert re.search(r"^0\.0\.0\.0 +198\.51\.100\.1 .* eth0$", desk.shell("route -n"), re.M)
    child.visit("Tools", "System Setting", {"0:Ping command": "1", "Set defice configuration": "yes"},
                until="System reboot ...")
    child.expect(pexpect.EOF)
    desk.console()
    assert desk.show("sip_port", "wan_type") == "sip_port=5060\nwan_type=1\n"


def test_telnet_clients_get_a_console_of_their_own_one_after_the_other(desk):
    with socket.create_server(("127.0.0.1", 0)) as other:
        port = str(other.getsockname()[1])
        assert "served" not in desk.run("--telnet", port).stderr
    server = desk.spawn("./run", "--telnet", port)
    if server.expect([f"Telnet clients are served on 127.0.0.1 port {port}", r"use \./run here"]):
        pytest.skip(server.before + server.after)
    client = desk.console("telnet", "127.0.0.1", port).log_in()
    desk.spawn("telnet", "127.0.0.1", port).expect("Duplex Login with 127.0.0.1")
    client.choose("Exit")
    client.expect("Bye Bye!!.*Connection closed")
    client = desk.console("telnet", "127.0.0.1", port).log_in()
    desk.shell("/opt/httpd/sbin/web_server login 192.168.1.77 60")
    desk.spawn("telnet", "127.0.0.1", port).expect("Duplex Login with 192.168.1.77")
    client.sendline("help")
    client.expect("Connection Time Out!! Please Re-Login!!\r\nBye Bye!!\r\n")
    server.sendintr()
    server.expect(pexpect.EOF)


def test_killing_the_session_leaves_nothing_behind(desk):
    for end in (signal.SIGKILL, signal.SIGHUP, signal.SIGINT):
        child = desk.console().log_in()
        device, *_ = (desk.state / "up").read_text().split()
        supervisor = psutil.Process(int(device)).parent()
        processes = [supervisor, *supervisor.children(recursive=True), *psutil.Process().children(recursive=True)]
        started = {one.pid for one in processes}
        child.kill(end)
        child.expect(pexpect.EOF)
        eventually(lambda: started & {one.pid for one in psutil.process_iter(["status"])
                                      if one.info["status"] != psutil.STATUS_ZOMBIE}, lambda left: not left)
