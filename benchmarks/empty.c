// A program that does nothing but ask and wait: the least memory that a console can take.
#include <unistd.h>

int main(void) {
  char answer;
  return write(STDOUT_FILENO, "?", 1) + read(STDIN_FILENO, &answer, 1) < 0;
}
