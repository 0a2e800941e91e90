#include "system/child.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <stdexcept>

namespace system_test {

Child::Child(const std::vector<std::string>& words) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
  number_ = ::fork();
  if (number_ < 0) throw std::runtime_error("no process");
  if (number_ == 0) {
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[0]);
    ::close(ends[1]);
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::execv(arguments[0], arguments.data());
    ::_exit(127);
  }
  ::close(ends[1]);
  output_ = ends[0];
}

Child::~Child() {
  if (number_ > 0) {
    Kill();
    Wait();
  }
  ::close(output_);
}

bool Child::ReadLine(std::string& line) {
  for (;;) {
    const auto end = read_.find('\n');
    if (end != std::string::npos) {
      line = read_.substr(0, end);
      read_.erase(0, end + 1);
      return true;
    }
    char block[4096];
    const auto got = ::read(output_, block, sizeof block);
    if (got < 0 && errno == EINTR) continue;
    // A line without its end is no line: what wrote it was killed in the middle.
    if (got <= 0) return false;
    read_.append(block, static_cast<std::size_t>(got));
  }
}

bool Child::HasEnded() {
  siginfo_t end{};
  // The end is left there for Wait.
  return ::waitid(P_PID, static_cast<id_t>(number_), &end, WEXITED | WNOHANG | WNOWAIT) == 0 && end.si_pid == number_;
}

void Child::Kill() { ::kill(number_, SIGKILL); }

int Child::Wait() {
  int status = 0;
  while (::waitpid(number_, &status, 0) < 0 && errno == EINTR) {
  }
  number_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace system_test
