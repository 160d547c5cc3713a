"""The network and tool menus on the whole device: what they store is what the device does."""

import re

import pexpect
import pytest


@pytest.fixture
def lease(desk, tmp_path):
    """What a DHCP client with a MAC address is told on the LAN; nothing when nobody answers."""
    told = tmp_path / "told"
    told.write_text('#!/bin/sh\n[ "$1" != bound ] || echo "$ip $subnet $router $dns $lease"\n')
    told.chmod(0o755)

    def ask(mac, tries="30"):
        script = f"ip link set lan0 address {mac} && exec busybox udhcpc -i lan0 -fqn -t {tries} -T 1 -s {told}"
        return desk.run("sh", "-c", script, program="desk/street").stdout.split()
    return ask


def test_dhcp_clients_get_what_is_stored_for_them(desk, lease):
    child = desk.log_in()
    if not desk.owns_network():
        pytest.skip("Without namespaces the desk has no network of its own.")
    assert re.fullmatch(r"192\.168\.1\.1\d\d", lease("02:00:00:00:00:05")[0])
    child.visit("Basic Network Setting", "DHCP setting", {
        "What item": "0", "DHCP Server Start IP?": "192.168.1.40", "DHCP Server End IP?": "192.168.1.49",
        "DHCP IP Lease Time?": "6"})
    given = lease("02:00:00:00:00:06")
    assert re.fullmatch(r"192\.168\.1\.4\d", given[0]) and given[4] == "604800"
    for enable, ip, mac in ("1", "192.168.1.44", "02:00:00:00:00:07"), ("0", "192.168.1.45", "02:00:00:00:00:08"):
        child.visit("Basic Network Setting", "DHCP setting", {
            "What item": "1", "Add new rule": "0", "Enable this rule?": enable, "IP?": ip, "MAC?": mac,
            "Description?": "$(reboot) static_lease"})
        assert (lease(mac)[0] == ip) == (enable == "1")
    child.visit("Basic Network Setting", "DHCP setting", {"What item": "0", "DHCP Server Enable?": "0"})
    assert lease("02:00:00:00:00:07", tries="1") == []


def test_a_new_lan_address_moves_port_and_pool_and_a_factory_reset_brings_the_old_ones_back(desk, lease):
    desk.store("sip_port=5099\n")
    keeper, child = desk.console(), desk.log_in()
    child.visit("Basic Network Setting", "Lan Setting", {"Lan IP": "10.7.7.1"},
                until="Device will be restart, please re-connect!!\r\n\r\nBye Bye!!")
    child.expect(pexpect.EOF)
    assert desk.show("dhcp_start_ip", "dhcp_end_ip") == {"dhcp_start_ip": "10.7.7.100", "dhcp_end_ip": "10.7.7.199"}
    if desk.owns_network():
        assert desk.address("eth1")[1:] == ("10.7.7.1", "10.7.7.255", "255.255.255.0")
        ip, *others = lease("02:00:00:00:00:05")
        assert re.fullmatch(r"10\.7\.7\.1\d\d", ip) and others == ["255.255.255.0", "10.7.7.1", "10.7.7.1", "86400"]

    desk.log_in().visit("Tools", "System Setting", {"0:Ping command": "1", "Set defice configuration": "yes"},
                        until="System reboot ...")
    keeper.expect("The desk restarted")
    desk.log_in()
    assert desk.show("lan_ip", "sip_port") == {"lan_ip": "192.168.1.1", "sip_port": "5060"}
    assert desk.partition.stat().st_size > 0 and "cannot" not in desk.log()
    assert not desk.owns_network() or desk.address("eth1")[1] == "192.168.1.1"


def test_ping_gets_the_destination_as_it_was_typed(desk):
    child = desk.log_in()
    ping = desk.state / "root/bin/ping"
    ping.unlink()
    ping.write_text('#!/bin/sh\nlogger -t ping -- "$# $*"\nexit 1\n')
    ping.chmod(0o755)
    for destination in ";/sbin/bbreboot", "$(/sbin/bbreboot) a 'b":
        shown = child.visit("Tools", "System Setting", {"0:Ping command": "0", "PING Destination": destination},
                            {"[4830NT]": "q"})
        assert "Request timed out." in shown and f"ping: 3 -c 1 {destination}\n" in desk.log()
    assert "bbreboot: " not in desk.log()
