"""The network and tool menus on the whole device: what they store is what the restarted device does."""

import os
import re

import pexpect
import pytest


def address(desk, interface):
    shown = desk.inside("/sbin/ifconfig", interface).stdout
    return re.search(r"HWaddr (\S+)\s+inet addr:(\S+)\s+Bcast:(\S+)\s+Mask:(\S+)", shown).groups()


def need_network(desk):
    if not desk.owns_network():
        pytest.skip("Without namespaces the desk has no network of its own.")


@pytest.fixture
def lease(desk, tmp_path):
    """What a DHCP client with a MAC address is told on the LAN; None when nobody answers."""
    told = tmp_path / "told"
    told.write_text('#!/bin/sh\n[ "$1" != bound ] || echo "$ip $subnet $router $dns $lease"\n')
    told.chmod(0o755)

    def ask(mac, tries=4):
        assert desk.street("ip", "link", "set", "lan0", "address", mac).returncode == 0
        client = desk.street("busybox", "udhcpc", "-i", "lan0", "-fqn", "-t", str(tries), "-T", "1", "-s", told)
        return client.stdout.split() if client.returncode == 0 else None
    return ask


def test_a_static_wan_comes_with_the_restart(desk):
    child = desk.log_in(desk.console())
    for line in ("0", "0", "0", "", "", "1", "02:00:5e:00:00:99", "", "1400", "198.51.100.7", "255.255.255.128",
                 "198.51.100.1", "198.51.100.53", "198.51.100.54"):
        child.sendline(line)
    child.expect("Device will be reboot, please wait 60 seconds and re-connect!!")
    child.expect("The desk restarted; ./run logs in again.")
    child.expect(pexpect.EOF)
    desk.log_in(desk.console())
    assert desk.show("wan_type", "static_ip", "static_broadcast", "dns_mode") == {
        "wan_type": "0", "static_ip": "198.51.100.7", "static_broadcast": "198.51.100.127", "dns_mode": "0"}
    servers = desk.inside("/bin/cat", "/etc/resolv.conf").stdout
    assert servers == "nameserver 198.51.100.53\nnameserver 198.51.100.54\n"
    need_network(desk)
    assert address(desk, "eth0") == ("02:00:5E:00:00:99", "198.51.100.7", "198.51.100.127", "255.255.255.128")
    assert "MTU:1400" in desk.inside("/sbin/ifconfig", "eth0").stdout
    assert re.search(r"^0\.0\.0\.0 +198\.51\.100\.1 .* eth0$", desk.inside("/sbin/route", "-n").stdout, re.M)


def test_a_new_lan_address_moves_port_and_pool_and_ends_the_login(desk, lease):
    desk.console()  # keeps the desk up
    child = desk.log_in(desk.console())
    for line in ("0", "1", "10.7.7.1", "", ""):
        child.sendline(line)
    child.expect("Device will be restart, please re-connect!!\r\n\r\nBye Bye!!")
    child.expect(pexpect.EOF)
    assert desk.show("dhcp_start_ip", "dhcp_end_ip") == {"dhcp_start_ip": "10.7.7.100", "dhcp_end_ip": "10.7.7.199"}
    need_network(desk)
    assert address(desk, "eth1")[1:] == ("10.7.7.1", "10.7.7.255", "255.255.255.0")
    ip, *others = lease("02:00:00:00:00:05")
    assert re.fullmatch(r"10\.7\.7\.1\d\d", ip) and others == ["255.255.255.0", "10.7.7.1", "10.7.7.1", "86400"]


def test_dhcp_clients_get_what_is_stored_for_them(desk, lease):
    child = desk.log_in(desk.console())
    need_network(desk)
    assert re.fullmatch(r"192\.168\.1\.1\d\d", lease("02:00:00:00:00:05")[0])
    desk.choose(child, "0", "2", "0", "", "192.168.1.40", "192.168.1.49", "6")
    given = lease("02:00:00:00:00:06")
    assert re.fullmatch(r"192\.168\.1\.4\d", given[0]) and given[4] == "604800"
    for enable, ip, mac in ("1", "192.168.1.44", "02:00:00:00:00:07"), ("0", "192.168.1.45", "02:00:00:00:00:08"):
        assert "Setting Save!!" in desk.choose(child, "0", "2", "1", "0", enable, ip, mac, "$(reboot) static_lease")
        assert (lease(mac)[0] == ip) == (enable == "1")
    desk.choose(child, "0", "2", "0", "0", "", "", "")
    assert lease("02:00:00:00:00:07", tries=1) is None


def test_a_factory_reset_brings_the_defaults_back(desk):
    desk.store("lan_ip=10.1.1.1\nlan_broadcast=10.1.1.255\nsip_port=5099\nadmin_password=admin\n")
    keeper = desk.console()
    child = desk.log_in(desk.console())
    lan = address(desk, "eth1")[1] if desk.owns_network() else None
    for line in ("4", "4", "1", "yes"):
        child.sendline(line)
    child.expect("System reboot ...\r\nBye Bye!!")
    keeper.expect("The desk restarted")
    desk.log_in(desk.console())
    assert desk.show("lan_ip", "sip_port") == {"lan_ip": "192.168.1.1", "sip_port": "5060"}
    assert os.path.getsize(desk.partition) > 0 and "cannot" not in desk.log()
    need_network(desk)
    assert (lan, address(desk, "eth1")[1]) == ("10.1.1.1", "192.168.1.1")


def test_ping_gets_its_destination_as_one_argument(desk):
    child = desk.log_in(desk.console())
    for line in ("4", "4", "0", "127.0.0.1"):
        child.sendline(line)
    child.expect("PING Success.")
    ping = os.path.join(desk.state, "root/bin/ping")
    os.remove(ping)
    with open(ping, "w", encoding="ascii") as script:
        script.write('#!/bin/sh\nlogger -t ping -- "$# $*"\nexit 1\n')
    os.chmod(ping, 0o755)
    for destination in (";/sbin/bbreboot", "$(/sbin/bbreboot) a 'b"):
        child.sendline("0")
        child.sendline(destination)
        child.expect("Request timed out.")
        assert f"ping: 3 -c 1 {destination}\n" in desk.log()
    assert "bbreboot: " not in desk.log()


def test_clock_and_dynamic_dns_are_told_to_the_log_without_the_password(desk):
    child = desk.log_in(desk.console())
    desk.choose(child, "4", "2", "1", "13", "time.example.net $(reboot)")
    desk.choose(child, "4", "3", "1", "2", "me", "s3cret", "home.example.net")
    shown = desk.choose(child, "4", "2", "0", "", "2010", "", "", "", "", "")
    assert "can't set date: Operation not permitted" in shown  # it would be the clock of the machine around
    log = desk.log()
    for told in ("ntp.sh: time zone GMT+1, time from the server time.example.net $(reboot)",
                 "ntp.sh: time zone GMT+1, time set by hand", "ddns.sh: registers home.example.net with easydns as me"):
        assert told in log
    assert "s3cret" not in log
