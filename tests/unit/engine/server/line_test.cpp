// The line to a server in a network: what is asked of it, so that it stays open and a dead one is found.
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <cstdlib>
#include <fstream>

#include "support/faulty_proxy.h"
#include "support/temporary_folder.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

using Fault = FaultyProxy::Fault;

// What the system was asked of this program's line to that port.
struct Asked {
  int keepsAlive = -1;
  int idle = -1;         ///< seconds until the first sign of life
  int between = -1;      ///< seconds
  int count = -1;        ///< unanswered ones that end it
  unsigned patience = 0; ///< milliseconds for what was sent
};

Asked AskedOf(int port) {
  constexpr int kMostFiles = 1'024;
  Asked asked;
  for (int file = 0; file < kMostFiles; ++file) {
    sockaddr_in peer{};
    socklen_t size = sizeof(peer);
    if (::getpeername(file, reinterpret_cast<sockaddr*>(&peer), &size) != 0 || peer.sin_family != AF_INET || ntohs(peer.sin_port) != port) continue;
    const auto read = [&](int level, int name, auto& value) {
      socklen_t length = sizeof(value);
      ::getsockopt(file, level, name, &value, &length);
    };
    read(SOL_SOCKET, SO_KEEPALIVE, asked.keepsAlive);
    read(IPPROTO_TCP, TCP_KEEPIDLE, asked.idle);
    read(IPPROTO_TCP, TCP_KEEPINTVL, asked.between);
    read(IPPROTO_TCP, TCP_KEEPCNT, asked.count);
    read(IPPROTO_TCP, TCP_USER_TIMEOUT, asked.patience);
  }
  return asked;
}

class InANetwork : public ServerTest {
 protected:
  InANetwork() : line(server_.Socket(), ProxyProcess::At::Port), target(ParseTarget(line.PathOf(database_) + "x.zdb")) {}
  ~InANetwork() override {
    ::unsetenv("PGSERVICE");
    ::unsetenv("PGSERVICEFILE");
  }
  FaultyProxy line;
  Target target;
};

TEST_F(InANetwork, SignsOfLifeKeepAnIdleLineOpenAndADeadOneIsFoundInHalfAMinute) {
  ServerConnection connection(target, Short());
  Ask(connection, "SELECT 1");
  const Asked asked = AskedOf(std::stoi(target.ports));
  EXPECT_EQ(asked.keepsAlive, 1);
  EXPECT_EQ(asked.idle, 60);
  EXPECT_EQ(asked.between, 10);
  EXPECT_EQ(asked.count, 3);
  EXPECT_EQ(asked.patience, 30'000U);
}

TEST_F(InANetwork, AServiceFileThatSaysOtherwiseCounts) {
  const TemporaryFolder folder;
  ::setenv("PGSERVICEFILE", folder.Write("services", "[office]\nuser=office\nkeepalives_idle=7\ntcp_user_timeout=4000\n").c_str(), 1);
  ::setenv("PGSERVICE", "office", 1);
  ServerConnection connection(target, Short());
  Ask(connection, "SELECT 1");
  const Asked asked = AskedOf(std::stoi(target.ports));
  EXPECT_EQ(asked.idle, 7);
  EXPECT_EQ(asked.between, 10) << "what it leaves open stays ours";
  EXPECT_EQ(asked.patience, 4'000U);
}

// A firewall drops what goes over a line that it has forgotten, and tells nobody.
TEST_F(InANetwork, AnIdleLineThatIsDroppedIsToldOnceThenMadeAnew) {
  ServerConnection connection(target, {.lock = 150, .connect = 1'000, .silence = 1'000});
  Ask(connection, "SELECT 1");
  line.Next(Fault::Silence);
  EXPECT_EQ(ErrorOf([&] { Ask(connection, "SELECT 1"); }), 3043);
  line.Next(Fault::None);
  EXPECT_EQ(Ask(connection, "SELECT 1"), std::vector<std::string>{"1"});
}

}  // namespace
}  // namespace engine::postgres
