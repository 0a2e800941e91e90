#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <string>

/// Stands between a desk and a database server and counts what a slow line would be felt by: the round trips. A process of its own, which
/// goes with the program that started it.
class CountingProxy {
 public:
  /// `server`: the folder of the server's socket. Raises std::runtime_error when it can't listen.
  explicit CountingProxy(const std::string& server);
  ~CountingProxy();
  CountingProxy(const CountingProxy&) = delete;
  CountingProxy& operator=(const CountingProxy&) = delete;

  /// The folder of its own socket: the host for the client library.
  const std::string& Socket() const { return folder_; }
  /// How a path through it begins: "postgresql://%2F...%2Fproxy/DATABASE/".
  std::string PathOf(const std::string& database) const;

  /// Trips of all connections so far: how often something was sent to the server behind an answer of it. A connection's first words count.
  std::uint64_t Trips() const;
  /// Bytes that the server has sent.
  std::uint64_t Received() const;
  /// Each way takes so long from now on.
  void Delay(std::chrono::milliseconds eachWay);

 private:
  struct Shared;

  std::string folder_;
  Shared* shared_ = nullptr;  ///< with the process
  pid_t process_ = 0;
};
