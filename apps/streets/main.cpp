#include <unistd.h>

#include <iostream>

#include "streets/program/commands.h"

int main(int count, char** words) {
  std::ios::sync_with_stdio(false);
  const suitefiles::Console console{std::cin, std::cout, std::cerr, ::isatty(STDERR_FILENO) == 1};
  return streetsprogram::Run({words + (count > 0 ? 1 : 0), words + count}, console);
}
