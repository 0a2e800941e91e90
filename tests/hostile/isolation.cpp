#include "hostile/isolation.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <regex>

namespace hostile {
namespace {

constexpr unsigned kSecondsForACase = 120;
constexpr int kTellingFrames = 4;

/// The first lines of a sanitizer's report: what happened, and the frames of our own.
std::string TellingLines(const std::string& file) {
  std::ifstream messages(file);
  static const std::regex ours("/(src|adapters|tests)/");
  std::string telling;
  int frames = 0;
  for (std::string line; std::getline(messages, line);) {
    const bool what = line.find("ERROR:") != std::string::npos || line.find("runtime error") != std::string::npos ||
                      line.find("Assertion") != std::string::npos || line.find("freed by") != std::string::npos ||
                      line.find("terminate called") != std::string::npos;
    const bool frame = line.find("    #") == 0 && std::regex_search(line, ours);
    if (frame && ++frames > kTellingFrames) continue;
    if (what || frame) telling += "      " + line + "\n";
  }
  return telling;
}

[[noreturn]] void Child(const Image& image, int pipe, const std::function<void(const Teller&)>& body) {
  const int messages = ::open(image.Messages().c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (messages >= 0) ::dup2(messages, STDERR_FILENO);
  body(Teller(pipe));
  ::_exit(0);
}

void ReadLines(int pipe, const std::function<void(char, const std::string&)>& onLine) {
  std::string held;
  std::array<char, 4096> piece{};
  for (ssize_t got = 0; (got = ::read(pipe, piece.data(), piece.size())) > 0;) {
    held.append(piece.data(), static_cast<std::size_t>(got));
    for (std::size_t end = 0; (end = held.find('\n')) != std::string::npos; held.erase(0, end + 1))
      if (end >= 2) onLine(held[0], held.substr(2, end - 2));
  }
}

}  // namespace

void Teller::Tell(char kind, const std::string& text) const {
  std::string line = std::string(1, kind) + " " + text;
  for (char& letter : line)
    if (letter == '\n' || letter == '\r') letter = ' ';
  line += '\n';
  for (std::size_t at = 0; at < line.size();) {
    const ssize_t written = ::write(pipe_, line.data() + at, line.size() - at);
    if (written <= 0) return;
    at += static_cast<std::size_t>(written);
  }
}

void BeginOfCase() { ::alarm(kSecondsForACase); }

Ending InProcessOfItsOwn(const Image& image, const std::function<void(const Teller&)>& body,
                         const std::function<void(char, const std::string&)>& onLine) {
  std::fflush(nullptr);
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) return {false, "no pipe", ""};
  const pid_t child = ::fork();
  if (child < 0) return {false, "no process", ""};
  if (child == 0) {
    ::close(ends[0]);
    Child(image, ends[1], body);
  }
  ::close(ends[1]);
  ReadLines(ends[0], onLine);
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {true, "", ""};
  std::string how = WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status)) : "status " + std::to_string(WEXITSTATUS(status));
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) how = "no end in " + std::to_string(kSecondsForACase) + " s";
  return {false, how, TellingLines(image.Messages())};
}

}  // namespace hostile
