// The console's login and menus on libcli, the library that Debian has for such consoles.
#include <libcli.h>

#include <unistd.h>

static const char rule[] = "------------------------------------------------------------------------------";
enum { MENUS = 6, ITEMS = 11 };

static const char *const menus[MENUS] = {
    "Basic Network Setting", "Advanced Network Setting", "SIP setting", "VoIP Setting", "Tools", "Status"};

static const char *const items[MENUS][ITEMS] = {
    {"Wan Setting", "Lan Setting", "DHCP setting"},
    {"NAT Setting", "Virtual Server Setting", "Application Setting", "UPNP Setting", "Static Route Setting",
     "MAC Filter", "IP Filter", "URL Filter", "Domain Filter", "Firewall Setting", "Rule Summary"},
    {"Basic Setting", "Account Setting", "NAT Traversal"},
    {"Voice Setting", "Call Service", "Phone Setting", "E.164 Setting", "FAX Setting", "General Dialing Setting",
     "QOS/TOS Setting", "Phone Book Setting", "Call Screen"},
    {NULL, NULL, "Day/Time Setting", "DDNS Setting", "System Setting"},
    {"Device Infomation", "Log", "Line State", "Call Detailed Record"},
};

// The library's modes: MODE_EXEC is the main menu, first_submenu + n a submenu.
enum { first_submenu = MODE_CONFIG };

static void show(struct cli_def *cli) {
  const int main_menu = cli->mode == MODE_EXEC;
  const char *const *labels = main_menu ? menus : items[cli->mode - first_submenu];
  for (int i = 0; i < (main_menu ? MENUS : ITEMS); i++) {
    if (labels[i]) {
      cli_print(cli, "%d:%s", i, labels[i]);
    }
  }
  cli_print(cli, "%s", rule);
  cli_print(cli, "q:Exit");
  cli_print(cli, "%s", "");
}

static int enter(struct cli_def *cli, const char *command, char *arguments[], int count) {
  (void)arguments, (void)count;
  cli_set_configmode(cli, first_submenu + command[0] - '0', "");
  show(cli);
  return CLI_OK;
}

static int show_again(struct cli_def *cli, const char *command, char *arguments[], int count) {
  (void)command, (void)arguments, (void)count;
  show(cli);
  return CLI_OK;
}

static int leave(struct cli_def *cli, const char *command, char *arguments[], int count) {
  (void)command, (void)arguments, (void)count;
  if (cli->mode == MODE_EXEC) {
    return CLI_QUIT;
  }
  cli_set_configmode(cli, MODE_EXEC, NULL);
  show(cli);
  return CLI_OK;
}

static void add(struct cli_def *cli, const char *command, int mode,
                int (*callback)(struct cli_def *, const char *, char *[], int), const char *help) {
  cli_register_command(cli, NULL, command, callback, PRIVILEGE_UNPRIVILEGED, mode, help);
}

int main(void) {
  struct cli_def *cli = cli_init();
  cli_telnet_protocol(cli, 0);
  cli_set_hostname(cli, "[4830NT]");
  cli_set_promptchar(cli, "#");
  cli_allow_user(cli, "admin", "admin");
  cli_set_banner(cli, "");
  static const char digits[][3] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
  for (int menu = 0; menu < MENUS; menu++) {
    add(cli, digits[menu], MODE_EXEC, enter, menus[menu]);
    for (int item = 0; item < ITEMS; item++) {
      if (items[menu][item]) {
        add(cli, digits[item], first_submenu + menu, show_again, items[menu][item]);
      }
    }
  }
  add(cli, "q", MODE_ANY, leave, "Exit");
  cli_loop(cli, STDIN_FILENO);
  cli_done(cli);
  return 1;
}
