#pragma once

#include <sys/types.h>

#include <csignal>
#include <chrono>
#include <string>
#include <vector>

/// A database server of the tests' own: a throw-away cluster in a temporary folder, reached by a socket there and by nothing else,
/// which trusts everybody and never waits for the disk. As root it runs as the user that the server's package made. It goes with the
/// program that started it, however that ends; its folder is removed at the program's end.
class TestServer {
 public:
  /// The program's one server, started at the first call. Raises std::runtime_error with what the server said.
  static TestServer& Shared();

  TestServer();
  ~TestServer();
  TestServer(const TestServer&) = delete;
  TestServer& operator=(const TestServer&) = delete;

  /// The folder of its socket: the host for the client library.
  const std::string& Socket() const { return socket_; }
  /// How a path on it begins: "postgresql://%2F...%2Fsocket/DATABASE/".
  std::string PathOf(const std::string& database) const;

  /// Makes an empty database, or one like the other, which nobody may be connected to.
  void CreateDatabase(const std::string& name, const std::string& like = "template0");
  void DropDatabase(const std::string& name);
  /// Runs a statement of anybody else's; what it printed.
  std::string Run(const std::string& database, const std::string& sql) const;
  /// Runs a file of statements with the program's own variables ("NAME=VALUE"); what was said.
  std::string RunFile(const std::string& database, const std::string& file, const std::vector<std::string>& variables) const;
  /// Copies all of a database into an empty one as an administrator does; what was said.
  std::string CopyByDump(const std::string& from, const std::string& to) const;

  /// Makes a role that must name its password, unlike all others.
  void AddRoleWithPassword(const std::string& role, const std::string& password);

  /// Ends it without a warning to anybody, and starts it again.
  void Kill() { End(SIGQUIT); }
  void Start();
  /// Ends it as an administrator does: who is connected is told so.
  void Stop() { End(SIGINT); }
  /// It ends at once, and leaves everything as it is.
  void Crash() { End(SIGKILL); }

 private:
  bool Starts(const std::string& log, std::chrono::steady_clock::time_point end);
  void End(int signal);
  std::string Tool(const std::string& name, const std::string& database) const;

  std::string folder_;
  std::string socket_;
  pid_t server_ = 0;
};
