#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

/// A process of its own between a desk and a database server: it goes with the program that started it.
class ProxyProcess {
 public:
  /// Where desks find it: at a socket in a folder of its own, or at a port of this machine that nobody else has.
  enum class At { Socket, Port };

  /// Calls `serve` in the process, with the socket on which desks come. Raises std::runtime_error when it can't listen.
  explicit ProxyProcess(const std::function<void(int listener)>& serve, At at = At::Socket);
  ~ProxyProcess();
  ProxyProcess(const ProxyProcess&) = delete;
  ProxyProcess& operator=(const ProxyProcess&) = delete;

  /// The folder of its own socket: the host for the client library.
  const std::string& Socket() const { return folder_; }
  /// How a path through it begins: "postgresql://%2F...%2Fproxy/DATABASE/", "postgresql://127.0.0.1:PORT/DATABASE/".
  std::string PathOf(const std::string& database) const;

 private:
  std::string folder_;
  int port_ = 0;  ///< 0: at the socket
  pid_t process_ = 0;
};

/// A connection to the server whose socket lies in that folder; -1 when there is none.
int ConnectToServer(const std::string& folder);

/// Memory that a program and the processes that it starts from now on see alike; `size` bytes of zero.
void* SharedMemory(std::size_t size);
void FreeSharedMemory(void* memory, std::size_t size);
