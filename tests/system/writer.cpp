#include <unistd.h>

#include <cstdint>
#include <iostream>
#include <string>

#include "platform/values/error.h"
#include "system/numbered_writes.h"

/// writer FILE FIRST COUNT: does the writes FIRST, FIRST+1 ... (COUNT of them, 0 for ever) and says each number on its output
/// when it is done. Made to be killed.
namespace {

void Acknowledge(std::int64_t number) {
  const std::string line = std::to_string(number) + "\n";
  if (::write(STDOUT_FILENO, line.data(), line.size()) != static_cast<ssize_t>(line.size())) ::_exit(3);
}

/// A user whose save is refused because others write tries again.
void PerformWithPatience(system_test::Session& session, std::int64_t number) {
  constexpr int kLocked = 3218;
  for (int attempt = 1;; ++attempt) {
    try {
      return system_test::Perform(session.Database(), number);
    } catch (const platform::Error& error) {
      if (error.Number() != kLocked || attempt == 10) throw;
    }
  }
}

}  // namespace

int main(int count, char** words) {
  if (count != 4) return 2;
  try {
    system_test::Session session(words[1]);
    const std::int64_t first = std::stoll(words[2]);
    const std::int64_t wanted = std::stoll(words[3]);
    for (std::int64_t done = 0; wanted == 0 || done < wanted; ++done) {
      PerformWithPatience(session, first + done);
      Acknowledge(first + done);
    }
    return 0;
  } catch (const platform::Error& error) {
    std::cerr << "writer: " << error.Number() << ' ' << error.Description() << '\n';
    return 1;
  }
}
