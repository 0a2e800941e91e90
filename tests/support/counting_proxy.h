#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "support/proxy_process.h"

/// Stands between a desk and a database server and counts what a slow line would be felt by: the round trips.
class CountingProxy {
 public:
  /// `server`: the folder of the server's socket. Raises std::runtime_error when it can't listen.
  explicit CountingProxy(const std::string& server);
  ~CountingProxy();
  CountingProxy(const CountingProxy&) = delete;
  CountingProxy& operator=(const CountingProxy&) = delete;

  /// The folder of its own socket.
  const std::string& Socket() const { return process_.Socket(); }
  /// How a path through it begins.
  std::string PathOf(const std::string& database) const { return process_.PathOf(database); }

  /// Trips of all connections so far: how often something was sent to the server behind an answer of it. A connection's first words count.
  std::uint64_t Trips() const;
  /// Bytes that the server has sent.
  std::uint64_t Received() const;
  /// Each way takes so long from now on; 5 ms before.
  void Delay(std::chrono::milliseconds eachWay);

 private:
  struct Shared;

  Shared* shared_;  ///< with the process
  ProxyProcess process_;
};
