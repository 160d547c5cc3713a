"""The advanced menus on the whole device: a rule is in force as soon as it is stored, and from boot on."""

import re

SCHEDULE, SOURCE, HOME = "1/8/5/17/30/5/1", "203.0.113.1/203.0.113.9", "192.168.1.10/192.168.1.20"
# Item of the menu, answers after "Enable this rule?", how the rule reads in force.
TABLES = [
    ("1", f"192.168.1.10/2/80/8080/{SCHEDULE}",
     "virtual server {}: TCP and UDP port 8080 to 192.168.1.10 port 80, 8:05-17:30 on Sun Mon Fri Sat"),
    ("2", "6112/1/6113/6119/0/0", "special application {}: UDP to port 6112 opens TCP ports 6113-6119, always"),
    ("4", "0/10.9.8.7/255.255.0.0/192.168.1.9", "-net 10.9.0.0 netmask 255.255.0.0 gw 192.168.1.9"),
    ("4", "1/10.9.8.7/203.0.113.2", "-host 10.9.8.7 gw 203.0.113.2"),
    ("5", f"02:00:5e:aa:BB:0c/{SCHEDULE}", "MAC filter {}: 02:00:5e:aa:bb:0c, 8:05-17:30 on Sun Mon Fri Sat"),
    ("6", f"{HOME}/1/1023/0/0", "IP filter {}: 192.168.1.10-192.168.1.20 TCP ports 1-1023, always"),
    ("7", f"{HOME}/a=b;$(reboot) %s", "URL filter {}: 192.168.1.10-192.168.1.20: a=b;$(reboot) %s"),
    ("8", f"{HOME}/ads.example.com", "domain filter {}: 192.168.1.10-192.168.1.20: ads.example.com"),
    ("9", f"1/0/{SOURCE}/1/{HOME}/0/80/81/{SCHEDULE}",
     "firewall {}: allow TCP from WAN 203.0.113.1-203.0.113.9 to LAN 192.168.1.10-192.168.1.20 ports 80-81, "
     "8:05-17:30 on Sun Mon Fri Sat"),
    ("9", f"/2/{SOURCE}//{HOME}/3/0",
     "firewall {}: deny ICMP from any 203.0.113.1-203.0.113.9 to WAN 192.168.1.10-192.168.1.20, always"),
]


def in_force(desk):
    rules = desk.inside("/bin/sh", "-c", "cd /var/run && cat nat.rules filter.rules staticroute.rules upnpd.rules")
    return re.findall("^(?!pass-through|application).+", rules, re.M)


def test_a_rule_of_each_table_is_in_force_from_add_to_delete(desk):
    child = desk.log_in()
    for item, answers, line in TABLES:
        # The tables from the MAC filter on have a switch. One rule is off by that or of its own; the next one is on.
        switch, off, on = ("1/", "0/0/1/", "1/0/1/") if item >= "5" else ("", "0/0/", "0/1/")
        both = [line.format(0), line.format(1)] if switch else [line.format(1)]
        for change, expected in ((off + answers, []), (on + answers, both), (switch + "1/0/0", both[-1:]),
                                 (switch + "1/1/0", [])):
            desk.choose(child, f"1/{item}/{change}")
            assert in_force(desk) == expected
            routes = desk.inside("/sbin/route", "-n").count("\n10.9.")
            assert routes == (len(expected) if item == "4" and desk.owns_network() else 0)


def test_stored_rules_are_in_force_from_boot_whatever_they_are_and_translation_and_upnp_follow_their_switches(desk):
    desk.store("mac_filter_enable=200\nmac_filter_table[31].enable=1\nmac_filter_table[31].schedule_mode=9\n"
               "mac_filter_table[31].week_mask=\\x00\\xff\\x0a1$`1\nmac_filter_table[30].enable=200\n")
    child = desk.log_in()
    stored, dmz = in_force(desk), ["DMZ host: 192.168.1.33"]
    assert stored == ["MAC filter 31: 00:00:00:00:00:00, 0:00-0:00 on Wed Sat"]
    server, upnp = [TABLES[0][2].format(0)], ["UPnP: programs of the LAN open ports at 192.168.1.1"]
    for visit, nat, ports in (("1/1/0/1/" + TABLES[0][1], server, []), ("1/0///////1/192.168.1.33", dmz + server, []),
                              ("1/3/1", dmz + server, upnp), ("1/0/0", [], upnp), ("1/3/1", [], []),
                              ("1/0/1//////0", server, []), ("1/3/", server, upnp), ("1/3/0", server, [])):
        desk.choose(child, visit)
        assert in_force(desk) == nat + stored + ports
    assert "nat.sh: asked to stop" in desk.log() and "nat.sh: rules in force: 0" in desk.log()
