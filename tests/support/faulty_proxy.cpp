#include "support/faulty_proxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <list>
#include <memory>
#include <string_view>
#include <vector>

struct FaultyProxy::Shared {
  std::atomic<Fault> next{Fault::None};
  std::atomic<bool> ofSaves{false};
  std::atomic<bool> refuses{false};
};

namespace {

using Fault = FaultyProxy::Fault;

constexpr std::string_view kSaves = "~saves";  ///< stands in every trip that saves
constexpr std::string_view kSync("S\0\0\0\4", 5);  ///< ends what the server does as one, and commits it
constexpr std::size_t kSomeOfAnAnswer = 20'000;

struct Line {
  int desk = -1;
  int server = -1;
  Fault fault = Fault::None;  ///< that it has met
  std::size_t passed = 0;     ///< of the answer behind it
};

void SendAll(int to, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t sent = ::send(to, bytes, count, MSG_NOSIGNAL);
    if (sent <= 0) return;
    bytes += sent;
    count -= static_cast<std::size_t>(sent);
  }
}

// From the desk; false when the line is to be cut.
template <class Shared>
bool Up(Line& line, Shared& shared) {
  std::array<char, 262'144> buffer{};
  const ssize_t read = ::recv(line.desk, buffer.data(), buffer.size(), MSG_DONTWAIT);
  if (read <= 0) return false;
  const auto count = static_cast<std::size_t>(read);
  const bool due = !shared.ofSaves || std::string_view(buffer.data(), count).find(kSaves) != std::string_view::npos;
  if (due && shared.next == Fault::Silence) return true;
  if (due && shared.next != Fault::None) line.fault = shared.next.exchange(Fault::None);
  if (line.fault == Fault::CutBefore) return false;
  const std::string_view sent(buffer.data(), count);
  SendAll(line.server, buffer.data(), line.fault == Fault::HalfOpen ? std::min(sent.find(kSync), count) : count);
  if (line.fault == Fault::HalfOpen) {
    ::close(line.desk);
    line.desk = -1;
  }
  return true;
}

// From the server.
bool Down(Line& line, const std::atomic<Fault>& next) {
  std::array<char, 65'536> buffer{};
  const ssize_t read = ::recv(line.server, buffer.data(), buffer.size(), MSG_DONTWAIT);
  if (read <= 0) return false;
  const auto count = static_cast<std::size_t>(read);
  if (next == Fault::Silence || line.fault == Fault::HalfOpen) return true;
  // Its last byte tells that it has committed: "idle".
  if (line.fault == Fault::CutBehind) return buffer[count - 1] != 'I';
  if (line.fault == Fault::AnswerLost && buffer[count - 1] == 'I') {
    line.fault = Fault::None;
    return true;
  }
  SendAll(line.desk, buffer.data(), count);
  line.passed += count;
  return line.fault != Fault::CutInAnswer || line.passed < kSomeOfAnAnswer;
}

template <class Shared>
[[noreturn]] void Serve(int listener, const std::string& server, Shared& shared) {
  std::list<Line> lines;
  for (;;) {
    std::vector<pollfd> asked{{listener, POLLIN, 0}};
    for (const Line& line : lines) {
      asked.push_back({line.desk, POLLIN, 0});
      asked.push_back({line.server, POLLIN, 0});
    }
    ::poll(asked.data(), asked.size(), 1'000);
    std::size_t place = 1;
    for (auto line = lines.begin(); line != lines.end(); place += 2) {
      const bool open = (asked[place + 1].revents == 0 || Down(*line, shared.next)) && (asked[place].revents == 0 || Up(*line, shared));
      if (open) {
        ++line;
        continue;
      }
      if (line->desk >= 0) ::close(line->desk);
      ::close(line->server);
      line = lines.erase(line);
    }
    if (asked[0].revents == 0) continue;
    const int desk = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (desk < 0) continue;
    const int there = shared.refuses ? -1 : ConnectToServer(server);
    if (there < 0)
      ::close(desk);
    else
      lines.push_back({desk, there});
  }
}

}  // namespace

FaultyProxy::FaultyProxy(const std::string& server, ProxyProcess::At at)
    : shared_(std::construct_at(static_cast<Shared*>(SharedMemory(sizeof(Shared))))),
      process_([this, &server](int listener) { Serve(listener, server, *shared_); }, at) {}

FaultyProxy::~FaultyProxy() { FreeSharedMemory(shared_, sizeof(Shared)); }

void FaultyProxy::Arm(Fault fault, bool saves) {
  shared_->next = Fault::None;
  shared_->ofSaves = saves;
  shared_->next = fault;
}

void FaultyProxy::Refuse(bool refuse) { shared_->refuses = refuse; }
