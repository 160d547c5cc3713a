"""A walk through all menus. Of each visit: submenu, item, and the answers with commas; ",*9" are nine empty ones."""

import re

VISITS = """
0 0 0,box,example.org,1,02:00:5e:00:00:99,1,1400,198.51.100.7,255.255.255.128,198.51.100.1,,0.0.0.0; 0 0 1,*3,0,,7
0 0 2,*3,0,,me,word,isp,1,203.0.113.9,0,120,0,,0.0.0.0; 0 0 4,*3,0,,0,vpn,me,word,0,0,7; 0 0 5,*3,0,me,word,2
0 0 3,*3,0,1399,1,203.0.113.9,255.255.255.0,203.0.113.1,vpn,me,word,2,9,7; 0 1 ,255.0.255.0
0 2 0,1,192.168.1.50,192.168.1.60,2; 0 2 1,0,1,192.168.1.55,00:11:22:aa:BB:cc,a printer; 0 2 1,0,1,10.0.0.1
0 2 1,1,0,1,,192.168.1.56,,
1 0 1,1,1,1,1,1,1,192.168.1.77; 1 1 0,1,192.168.1.20,2,8080,80,1,1,30,9,15,1,5; 1 1 1,0,1,*5,0
1 2 0,1,6000,0,6001,6010,1,0; 1 3 1; 1 4 0,1,0,198.51.100.0,255.255.255.0,192.168.1.9; 1 5 1,0,1,00:0a:0b:0c:0d:0e,0
1 6 1,0,1,192.168.1.1,192.168.1.9,1,65535,0,0; 1 6 1,0,1,192.168.1.9,192.168.1.1
1 7 1,0,1,192.168.1.2,192.168.1.3,games; 1 8 0,0,1,192.168.1.2,192.168.1.3,example.net
1 9 1,0,1,1,0,203.0.113.1,203.0.113.9,1,192.168.1.1,192.168.1.9,3,0
1 10 0; 1 10 1; 1 10 2; 1 10 3; 1 10 4; 1 10 5; 1 10 6; 1 10 7
2 0 5072,70000; 2 0 5073,*13; 2 2 1,stun.example.net
2 1 3600,1,1001,Reception,reception,secret,*3,60,1,sip:1001,Front desk,example.net,*4,1,proxy,5061,1,
3 0; 3 1 1,10,1,5,1,1,0,one,*3,30,0,1,100,0,*10; 3 2 3,2,20,1,0,1,*10; 3 3 1; 3 4 2,1; 3 6 1,16,8,1,7,1023,0,0
3 7 0,4,5551234,front door,3,q; 3 8 0,0,0,5559876,3,0,q
4 2 0,13,2010,3,14,15,9,26; 4 2 1,99,time.example.net; 4 3 1,2,someone,secret,host.example.net; 4 4 0,127.0.0.1,1,no,q
5 0 2; 5 1 q; 5 2; 5 3
""".strip().replace("\n", "; ").split("; ")


def session():
    """What is typed: after each visit the main menu comes again."""
    lines = ["admin", "admin"]
    for visit in VISITS:
        submenu, item, *answers = visit.split(" ", 2)
        answers = [re.sub(r",\*(\d+)", lambda empty: "," * int(empty[1]), some).split(",") for some in answers]
        lines += [submenu, item, *sum(answers, []), "q"]
    return "\n".join([*lines, "9", "help", "nothing", "", "q", ""])
