#include "support/proxy_process.h"

#include <netinet/in.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace {

sockaddr_un AddressIn(const std::string& folder) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = folder + "/.s.PGSQL.5432";
  if (path.size() >= sizeof(address.sun_path)) throw std::runtime_error("the path of a socket is too long");
  std::memcpy(address.sun_path, path.c_str(), path.size());
  return address;
}

// The socket, or -1.
int Listen(int family, const sockaddr* address, socklen_t size) {
  const int listener = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (::bind(listener, address, size) == 0 && ::listen(listener, 16) == 0) return listener;
  ::close(listener);
  return -1;
}

int ListenIn(const std::string& folder) {
  const sockaddr_un address = AddressIn(folder);
  return Listen(AF_UNIX, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
}

int ListenAtAnyPort(int& port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof(address);
  const int listener = Listen(AF_INET, reinterpret_cast<const sockaddr*>(&address), size);
  if (listener >= 0 && ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) == 0) port = ntohs(address.sin_port);
  return listener;
}

}  // namespace

ProxyProcess::ProxyProcess(const std::function<void(int listener)>& serve, At at) {
  std::string folder = (std::filesystem::temp_directory_path() / "suite-proxy-XXXXXX").string();
  if (::mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  folder_ = folder;
  const int listener = at == At::Socket ? ListenIn(folder_) : ListenAtAnyPort(port_);
  if (listener < 0) throw std::runtime_error("the proxy can't listen");
  process_ = ::fork();
  if (process_ == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    serve(listener);
    ::_exit(1);
  }
  ::close(listener);
}

ProxyProcess::~ProxyProcess() {
  if (process_ > 0) {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string ProxyProcess::PathOf(const std::string& database) const {
  if (port_ != 0) return "postgresql://127.0.0.1:" + std::to_string(port_) + '/' + database + '/';
  std::string host;
  for (const char c : folder_) host += c == '/' ? std::string("%2F") : std::string(1, c);
  return "postgresql://" + host + '/' + database + '/';
}

int ConnectToServer(const std::string& folder) {
  const sockaddr_un address = AddressIn(folder);
  const int made = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (::connect(made, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return made;
  ::close(made);
  return -1;
}

void* SharedMemory(std::size_t size) {
  void* const memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::runtime_error("no memory for the proxy");
  return memory;
}

void FreeSharedMemory(void* memory, std::size_t size) { ::munmap(memory, size); }
