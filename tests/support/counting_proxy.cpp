#include "support/counting_proxy.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <deque>
#include <list>
#include <memory>
#include <vector>

struct CountingProxy::Shared {
  std::atomic<std::uint64_t> trips{0};
  std::atomic<std::uint64_t> received{0};
  /// Microseconds. Without any the answer to the first piece of a trip can come before the desk has sent the next piece.
  std::atomic<std::int64_t> delay{5'000};
};

namespace {

using Clock = std::chrono::steady_clock;


/// What is on its way in one direction.
struct Way {
  struct Piece {
    Clock::time_point due;
    std::vector<char> bytes;
  };
  int from = -1;
  int to = -1;
  std::deque<Piece> pieces{};
};

struct Pair {
  Way up;    ///< to the server
  Way down;  ///< from it
  bool answered = true;
};

// False when that side has closed.
bool TakeFrom(Way& way, std::chrono::microseconds delay, std::size_t& taken) {
  std::array<char, 65'536> buffer{};
  const ssize_t read = ::recv(way.from, buffer.data(), buffer.size(), MSG_DONTWAIT);
  taken = read > 0 ? static_cast<std::size_t>(read) : 0;
  if (taken > 0) way.pieces.push_back({Clock::now() + delay, {buffer.begin(), buffer.begin() + read}});
  return read > 0 || (read < 0 && (errno == EAGAIN || errno == EINTR));
}

// Sends what is due; false when nobody takes it any more.
bool PassOn(Way& way, Clock::time_point now) {
  while (!way.pieces.empty() && way.pieces.front().due <= now) {
    std::vector<char>& bytes = way.pieces.front().bytes;
    const ssize_t sent = ::send(way.to, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0) return errno == EAGAIN || errno == EINTR;
    bytes.erase(bytes.begin(), bytes.begin() + sent);
    if (!bytes.empty()) return true;
    way.pieces.pop_front();
  }
  return true;
}

int MillisecondsUntilDue(const std::list<Pair>& pairs, Clock::time_point now) {
  constexpr std::int64_t kLong = 1'000;
  std::int64_t least = kLong;
  for (const Pair& pair : pairs)
    for (const Way* way : {&pair.up, &pair.down})
      if (!way->pieces.empty())
        least = std::min(least, std::chrono::ceil<std::chrono::milliseconds>(way->pieces.front().due - now).count());
  return static_cast<int>(std::max<std::int64_t>(least, 0));
}

template <class Shared>
[[noreturn]] void Serve(int listener, const std::string& server, Shared& shared) {
  std::list<Pair> pairs;
  for (;;) {
    std::vector<pollfd> asked{{listener, POLLIN, 0}};
    for (const Pair& pair : pairs) {
      asked.push_back({pair.up.from, POLLIN, 0});
      asked.push_back({pair.down.from, POLLIN, 0});
    }
    ::poll(asked.data(), asked.size(), MillisecondsUntilDue(pairs, Clock::now()));
    std::size_t place = 1;
    for (auto pair = pairs.begin(); pair != pairs.end();) {
      bool open = true;
      std::size_t taken = 0;
      const std::chrono::microseconds delay(shared.delay.load());
      // The answer first: what is sent behind it is another trip.
      if (asked[place + 1].revents != 0) {
        open = TakeFrom(pair->down, delay, taken);
        shared.received += taken;
        pair->answered = pair->answered || taken > 0;
      }
      if (asked[place].revents != 0) {
        open = TakeFrom(pair->up, delay, taken) && open;
        if (taken > 0 && pair->answered) {
          ++shared.trips;
          pair->answered = false;
        }
      }
      const auto now = Clock::now();
      open = PassOn(pair->up, now) && open;
      open = PassOn(pair->down, now) && open;
      place += 2;
      if (open) {
        ++pair;
        continue;
      }
      ::close(pair->up.from);
      ::close(pair->down.from);
      pair = pairs.erase(pair);
    }
    if (asked[0].revents == 0) continue;
    const int desk = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (desk < 0) continue;
    const int there = ConnectToServer(server);
    if (there < 0)
      ::close(desk);
    else
      pairs.push_back({{desk, there}, {there, desk}});
  }
}

}  // namespace

CountingProxy::CountingProxy(const std::string& server)
    : shared_(std::construct_at(static_cast<Shared*>(SharedMemory(sizeof(Shared))))),
      process_([this, &server](int listener) { Serve(listener, server, *shared_); }) {}

CountingProxy::~CountingProxy() { FreeSharedMemory(shared_, sizeof(Shared)); }

std::uint64_t CountingProxy::Trips() const { return shared_->trips; }
std::uint64_t CountingProxy::Received() const { return shared_->received; }
void CountingProxy::Delay(std::chrono::milliseconds eachWay) { shared_->delay = std::chrono::microseconds(eachWay).count(); }
