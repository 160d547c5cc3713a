#!/bin/busybox ash
# The console's login and menus as a shell script, the way device consoles are often written.
TAIL='------------------------------------------------------------------------------
q:Exit
'
MAIN='0:Basic Network Setting
1:Advanced Network Setting
2:SIP setting
3:VoIP Setting
4:Tools
5:Status'
MENU_0='0:Wan Setting
1:Lan Setting
2:DHCP setting'
MENU_1='0:NAT Setting
1:Virtual Server Setting
2:Application Setting
3:UPNP Setting
4:Static Route Setting
5:MAC Filter
6:IP Filter
7:URL Filter
8:Domain Filter
9:Firewall Setting
10:Rule Summary'
MENU_2='0:Basic Setting
1:Account Setting
2:NAT Traversal'
MENU_3='0:Voice Setting
1:Call Service
2:Phone Setting
3:E.164 Setting
4:FAX Setting
5:General Dialing Setting
6:QOS/TOS Setting
7:Phone Book Setting
8:Call Screen'
MENU_4='2:Day/Time Setting
3:DDNS Setting
4:System Setting'
MENU_5='0:Device Infomation
1:Log
2:Line State
3:Call Detailed Record'

show() {
  echo "$1
$TAIL"
}

leave() {
  echo 'Bye Bye!!'
  exit 1
}

printf 'Username:'
read -r user || leave
printf 'Password:'
read -r password || leave
if [ "$user" != admin ] || [ "$password" != admin ]; then
  echo 'Username or Password Error'
  leave
fi

menu=$MAIN
show "$menu"
while printf '[4830NT]#' && read -r line; do
  case $line in
    '') ;;
    help) show "$menu" ;;
    q)
      [ "$menu" != "$MAIN" ] || leave
      menu=$MAIN
      show "$menu"
      ;;
    [0-9] | [0-9][0-9])
      if [ "$menu" = "$MAIN" ]; then
        case $line in
          0) menu=$MENU_0 ;;
          1) menu=$MENU_1 ;;
          2) menu=$MENU_2 ;;
          3) menu=$MENU_3 ;;
          4) menu=$MENU_4 ;;
          5) menu=$MENU_5 ;;
          *) continue ;;
        esac
        show "$menu"
      fi
      ;;
    *) echo 'This command is not define!' ;;
  esac
done
leave
