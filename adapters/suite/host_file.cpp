#include "suite/host_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/values/error.h"

namespace suite {

namespace {

/// An open file that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace

std::int64_t HostFileLength(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) {
    if (!S_ISREG(status.st_mode)) throw platform::error::FileNotFound();
    return status.st_size;
  }
  const auto folder = std::filesystem::path(path).parent_path();
  std::error_code ignored;
  if (!folder.empty() && !std::filesystem::is_directory(folder, ignored)) throw platform::error::PathNotFound();
  throw platform::error::FileNotFound();
}

std::optional<std::string> ReadFileStart(const std::string& path, std::size_t limit) {
  // Without waiting: a pipe under that name must not hold the program up.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (file.Number() < 0 || ::fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  std::string bytes;
  char block[16384];
  while (bytes.size() < limit) {
    const auto count = ::read(file.Number(), block, sizeof block);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    bytes.append(block, static_cast<std::size_t>(count));
  }
  if (bytes.size() > limit) bytes.resize(limit);
  return bytes;
}

}  // namespace suite
