#include "system/obstacles/obstacle.h"

#include <fcntl.h>
#include <sched.h>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "system/screen_kills/books.h"

namespace system_test {
namespace {

constexpr int kLockError = 3218;
constexpr int kDiskError = 3043;

class Locked final : public Obstacle {
 public:
  ~Locked() override { End(); }
  int Number() const override { return kLockError; }
  bool Prepare(const std::string&) override { return true; }
  void Begin(const std::string& file, pid_t) override {
    if (sqlite3_open_v2(file.c_str(), &store_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK ||
        sqlite3_exec(store_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error("the file can't be locked");
  }
  void End() override {
    sqlite3_close(store_);
    store_ = nullptr;
  }

 private:
  sqlite3* store_ = nullptr;
};

/// The log of the customer file is grown first, so that the program's other files stay far below the limit.
class SizeLimit final : public Obstacle {
 public:
  int Number() const override { return kDiskError; }
  bool Prepare(const std::string&) override { return true; }
  void Begin(const std::string& file, pid_t program) override {
    constexpr std::size_t kBallast = 300'000;
    RunStatement(file, "UPDATE Customers SET Comments = '" + std::string(kBallast, 'b') + "' WHERE LastName = 'Ballast'");
    program_ = program;
    Set(std::filesystem::file_size(file + "-wal"));
  }
  void End() override {
    if (program_ != 0) Set(RLIM_INFINITY);
    program_ = 0;
  }

 private:
  void Set(rlim_t bytes) const {
    rlimit limit{};
    if (::prlimit(program_, RLIMIT_FSIZE, nullptr, &limit) != 0) throw std::runtime_error("the limit can't be read");
    limit.rlim_cur = bytes;
    if (::prlimit(program_, RLIMIT_FSIZE, &limit, nullptr) != 0) throw std::runtime_error("the limit can't be set");
  }
  pid_t program_ = 0;
};

class FullDisk final : public Obstacle {
 public:
  ~FullDisk() override {
    if (!mounted_.empty()) ::umount2(mounted_.c_str(), MNT_DETACH);
  }
  int Number() const override { return kDiskError; }
  bool Prepare(const std::string& company) override {
    const std::string folder = company + "/data";
    std::filesystem::create_directories(folder);
    if (!OwnMounts() || ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=8m") != 0) return false;
    mounted_ = folder;
    return true;
  }
  void Begin(const std::string&, pid_t) override {
    filler_ = mounted_ + "/filler";
    const int file = ::open(filler_.c_str(), O_WRONLY | O_CREAT, 0600);
    const std::string block(4096, 'x');
    while (::write(file, block.data(), block.size()) > 0) {
    }
    ::close(file);
  }
  void End() override { std::filesystem::remove(filler_); }

 private:
  /// Mounts of this process and its children alone; without the superuser's rights in a space of own users.
  static bool OwnMounts() {
    if (::unshare(CLONE_NEWNS) == 0) return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    const auto user = ::geteuid();
    const auto group = ::getegid();
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    return true;
  }
  std::string mounted_;
  std::string filler_;
};

}  // namespace

std::unique_ptr<Obstacle> MakeObstacle(const std::string& name) {
  if (name == "locked") return std::make_unique<Locked>();
  if (name == "limit") return std::make_unique<SizeLimit>();
  if (name == "disk") return std::make_unique<FullDisk>();
  return nullptr;
}

}  // namespace system_test
