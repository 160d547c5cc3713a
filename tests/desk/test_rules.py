"""The advanced menus on the whole device: a rule is in force as soon as it is stored, and from boot on."""

import re

SCHEDULE = {"Schedule?": "1", "Start Time Hour?": "8", "Start Time Minute?": "5", "End Time Hour?": "17",
            "End Time Minute?": "30", "Start Day?": "5", "End Day?": "1"}
HOME = {"Start IP?": "192.168.1.10", "End IP?": "192.168.1.20"}
# Item of the menu, answers after "Enable this rule?", how the rule reads in force.
RULES = [
    ("Virtual Server Setting",
     {"Private IP?": "192.168.1.10", "Protocol Type?": "2", "Private Port?": "80", "Public Port?": "8080", **SCHEDULE},
     "virtual server {}: TCP and UDP port 8080 to 192.168.1.10 port 80, 8:05-17:30 on Sun Mon Fri Sat"),
    ("Application Setting",
     {"Trigger Port?": "6112", "Trigger Type?": "1", "Public Port Start?": "6113", "Public Port End?": "6119",
      "Public Type?": "0", "Schedule?": "0"},
     "special application {}: UDP to port 6112 opens TCP ports 6113-6119, always"),
    ("Static Route Setting",
     {"Type?": "0", "Target?": "10.9.8.7", "Netmask?": "255.255.0.0", "Gateway?": "192.168.1.9"},
     "-net 10.9.0.0 netmask 255.255.0.0 gw 192.168.1.9"),
    ("Static Route Setting", {"Type?": "1", "Target?": "10.9.8.7", "Gateway?": "203.0.113.2"},
     "-host 10.9.8.7 gw 203.0.113.2"),
    ("MAC Filter", {"MAC Address": "02:00:5e:aa:BB:0c", **SCHEDULE},
     "MAC filter {}: 02:00:5e:aa:bb:0c, 8:05-17:30 on Sun Mon Fri Sat"),
    ("IP Filter", {**HOME, "Start Port?": "1", "End Port?": "1023", "Type?": "0", "Schedule?": "0"},
     "IP filter {}: 192.168.1.10-192.168.1.20 TCP ports 1-1023, always"),
    ("URL Filter", {**HOME, "URL Filter String?": "a=b;$(reboot) %s"},
     "URL filter {}: 192.168.1.10-192.168.1.20: a=b;$(reboot) %s"),
    ("Domain Filter", {**HOME, "Domain Filter String?": "ads.example.com"},
     "domain filter {}: 192.168.1.10-192.168.1.20: ads.example.com"),
    ("Firewall Setting",
     {"Action?": "1", "Source interface?": "2", "Source IP Range Start?": "203.0.113.1",
      "Source IP Range End?": "203.0.113.9", "Destination IP Range Start?": "192.168.1.10",
      "Destination IP Range End?": "192.168.1.20", "Protocol?": "0", "Destination Port Start?": "80",
      "Destination Port End?": "81", **SCHEDULE},
     "firewall {}: allow TCP from any 203.0.113.1-203.0.113.9 to WAN 192.168.1.10-192.168.1.20 ports 80-81, "
     "8:05-17:30 on Sun Mon Fri Sat"),
]


def table(item, *answers, switch="1"):
    """Answers in a table of rules; the filters and the firewall ask for their switch first."""
    switched = "Filter" in item or "Firewall" in item
    return {f"Enable {item.removesuffix(' Setting')} Function?": switch} if switched else {}, *answers


def add(answers, enable="1"):
    return {"Add new rule": "0", "Enable this rule?": enable, **answers}


def delete(rule):
    return {"Add new rule": "1", "What item": rule, "Del or Edit": "0"}


def in_force(desk):
    rules = desk.inside("/bin/sh", "-c", "cd /var/run && cat nat.rules filter.rules staticroute.rules upnpd.rules")
    return re.findall("^(?!pass-through|application).+", rules, re.M)


def test_a_rule_of_each_table_is_in_force_from_add_to_delete(desk):
    child = desk.log_in()
    for item, answers, line in RULES:
        # The first rule is off by the table's switch, or of its own where there is none; the second one is on.
        switched = len(table(item)[0])
        both = [line.format(0), line.format(1)] if switched else [line.format(1)]
        for change, switch, expected in ((add(answers, enable="1" if switched else "0"), "0", []),
                                         (add(answers), "1", both), (delete("0"), "1", both[-1:]),
                                         (delete("1"), "1", [])):
            child.visit("Advanced Network Setting", item, *table(item, change, switch=switch))
            assert in_force(desk) == expected
            if desk.owns_network():
                routes = desk.inside("/sbin/route", "-n").count("\n10.9.")
                assert routes == (len(expected) if "Route" in item else 0)


def test_stored_rules_are_in_force_from_boot_whatever_they_are_and_translation_and_upnp_follow_their_switches(desk):
    desk.store("mac_filter_enable=200\nmac_filter_table[31].enable=1\nmac_filter_table[31].schedule_mode=9\n"
               "mac_filter_table[31].week_mask=\\x00\\xff\\x0a1$`1\nmac_filter_table[30].enable=200\n")
    child = desk.log_in()
    stored, dmz = in_force(desk), ["DMZ host: 192.168.1.33"]
    assert stored == ["MAC filter 31: 00:00:00:00:00:00, 0:00-0:00 on Wed Sat"]
    server, upnp = [RULES[0][2].format(0)], ["UPnP: programs of the LAN open ports at 192.168.1.1"]
    for item, answers, nat, ports in (
            ("Virtual Server Setting", add(RULES[0][1]), server, []),
            ("NAT Setting", {"DMZ Enable?": "1", "DMZ Lan IP": "192.168.1.33"}, dmz + server, []),
            ("UPNP Setting", {"UPNP Enable?": "1"}, dmz + server, upnp),
            ("NAT Setting", {"NAT Enable?": "0"}, [], upnp),
            ("UPNP Setting", {"UPNP Enable?": "1"}, [], []),
            ("NAT Setting", {"NAT Enable?": "1", "DMZ Enable?": "0"}, server, []),
            ("UPNP Setting", {"UPNP Enable?": ""}, server, upnp),
            ("UPNP Setting", {"UPNP Enable?": "0"}, server, [])):
        child.visit("Advanced Network Setting", item, answers)
        assert in_force(desk) == nat + stored + ports
    assert "nat.sh: asked to stop" in desk.log() and "nat.sh: rules in force: 0" in desk.log()
