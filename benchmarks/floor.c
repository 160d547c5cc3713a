// The least a C program can do for a session: read the same lines, write the same bytes, do the same errands.
// transcript.h is recorded from the console: said[] has what it says, turn[] which of these it says at each turn,
// and ERRAND is what it does besides after reading line number ERRAND_AT.
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include <arpa/inet.h>
#include <sys/socket.h>

#include "transcript.h"

static inline void nothing(void) {
}

static inline void save_and_restart_device(void) {
  fflush(stdout);
  system("/opt/httpd/sbin/web_server dumpshare");
  system("/sbin/bbreboot &");
  sleep(1);
}

static inline void fetch_call_log(void) {
  static const char request[] = "get calllog\n\n";
  char reply[8192];
  const int daemon = socket(AF_INET, SOCK_DGRAM, 0);
  const struct sockaddr_in address = {
      .sin_family = AF_INET, .sin_port = htons(8118), .sin_addr.s_addr = htonl(INADDR_LOOPBACK)};
  const struct timeval patience = {.tv_sec = 5};
  setsockopt(daemon, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  connect(daemon, (const struct sockaddr *)&address, sizeof address);
  send(daemon, request, sizeof request - 1, 0);
  recv(daemon, reply, sizeof reply - 1, 0);
  for (int left = atoi(reply); left > 0 && recv(daemon, reply, sizeof reply - 1, 0) > 0;) {
    left--;
  }
  close(daemon);
}

int main(void) {
  char line[513];
  fputs(said[turn[0]], stdout);
  fflush(stdout);  // Whoever waits for the first prompt sees it; what was pasted behind it needs no flush.
  for (size_t at = 1; at <= LINES && fgets(line, sizeof line, stdin); at++) {
    if (at == ERRAND_AT) {
      ERRAND();
    }
    fputs(said[turn[at]], stdout);
  }
  return 1;
}
