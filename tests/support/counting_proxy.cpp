#include "support/counting_proxy.h"

#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <deque>
#include <filesystem>
#include <list>
#include <memory>
#include <stdexcept>
#include <vector>

struct CountingProxy::Shared {
  std::atomic<std::uint64_t> trips{0};
  std::atomic<std::uint64_t> received{0};
  std::atomic<std::int64_t> delay{0};  ///< microseconds
};

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kSocketName = "/.s.PGSQL.5432";

sockaddr_un AddressIn(const std::string& folder) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = folder + kSocketName;
  if (path.size() >= sizeof(address.sun_path)) throw std::runtime_error("the path of a socket is too long");
  std::memcpy(address.sun_path, path.c_str(), path.size());
  return address;
}

int ConnectTo(const std::string& folder) {
  const sockaddr_un address = AddressIn(folder);
  const int made = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (::connect(made, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return made;
  ::close(made);
  return -1;
}

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
    const int there = ConnectTo(server);
    if (there < 0)
      ::close(desk);
    else
      pairs.push_back({{desk, there}, {there, desk}});
  }
}

}  // namespace

CountingProxy::CountingProxy(const std::string& server) {
  std::string folder = (std::filesystem::temp_directory_path() / "suite-proxy-XXXXXX").string();
  if (::mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  folder_ = folder;
  const sockaddr_un address = AddressIn(folder_);
  const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 || ::listen(listener, 16) != 0)
    throw std::runtime_error("the proxy can't listen");
  void* const memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::runtime_error("no memory for the proxy");
  shared_ = std::construct_at(static_cast<Shared*>(memory));
  process_ = ::fork();
  if (process_ == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    Serve(listener, server, *shared_);
  }
  ::close(listener);
}

CountingProxy::~CountingProxy() {
  if (process_ > 0) {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
  ::munmap(shared_, sizeof(Shared));
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string CountingProxy::PathOf(const std::string& database) const {
  std::string host;
  for (const char c : folder_) host += c == '/' ? std::string("%2F") : std::string(1, c);
  return "postgresql://" + host + '/' + database + '/';
}

std::uint64_t CountingProxy::Trips() const { return shared_->trips; }
std::uint64_t CountingProxy::Received() const { return shared_->received; }
void CountingProxy::Delay(std::chrono::milliseconds eachWay) { shared_->delay = std::chrono::microseconds(eachWay).count(); }
