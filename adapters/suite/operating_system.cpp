#include "suite/operating_system.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "platform/services/data_path.h"
#include "platform/values/error.h"
#include "suite/clock.h"
#include "suite/host_file.h"
#include "suite/ini_file.h"

namespace suite {

namespace {

/// What both styles share: everything but the writing of paths.
class SystemBase : public platform::OperatingSystem {
 public:
  std::string ReadIniValue(std::string_view section, std::string_view key, std::string_view defaultValue, std::string_view iniPath,
                           int size) const override {
    return ReadIniFile(ToHostPath(iniPath), section, key, defaultValue, size);
  }

  std::int64_t FileLength(std::string_view path) const override {
    const std::string host = ToHostPath(path);
    if (host.empty() && !path.empty()) throw platform::error::PathNotFound();
    return HostFileLength(host);
  }

  platform::Date Today() const override { return clock_.Today(); }
  platform::Date Now() const override { return clock_.Now(); }
  void SetToday(std::optional<platform::Date> day) override { clock_.SetToday(day); }
  std::int32_t ProcessNumber() const override { return ::getpid(); }

 private:
  Clock clock_;
};

class NativeSystem final : public SystemBase {
 public:
  explicit NativeSystem(std::string localRoot) : localRoot_(std::move(localRoot)) {}

  std::string LocalRoot() const override { return localRoot_; }
  std::string Separator() const override { return "/"; }

  std::string ToHostPath(std::string_view path) const override {
    std::string host(path);
    if (platform::IsServerPath(path)) return host;
    std::replace(host.begin(), host.end(), '\\', '/');
    return host;
  }

  std::string FromHostPath(std::string_view hostPath) const override { return std::string(hostPath); }

 private:
  std::string localRoot_;
};

class WindowsStyleSystem final : public SystemBase {
 public:
  WindowsStyleSystem(DriveMap drives, const std::string& systemFolder)
      : drives_(std::move(drives)), localRoot_(systemFolder.substr(0, 3)) {}

  std::string LocalRoot() const override { return localRoot_; }
  std::string Separator() const override { return "\\"; }
  std::string ToHostPath(std::string_view path) const override {
    if (platform::IsServerPath(path)) return std::string(path);
    return drives_.ToHostPath(path, localRoot_.empty() ? 'C' : localRoot_[0]);
  }
  std::string FromHostPath(std::string_view hostPath) const override { return drives_.FromHostPath(hostPath); }

 private:
  DriveMap drives_;
  std::string localRoot_;
};

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && home[0] == '/') return home;
  std::array<char, 16384> space{};
  passwd entry{};
  passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &entry, space.data(), space.size(), &found) == 0 && found != nullptr) return found->pw_dir;
  return "/tmp";
}

}  // namespace

std::string UserStateFolder() {
  if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && state[0] == '/') return std::string(state) + "/orcussch/";
  return HomeFolder() + "/.local/state/orcussch/";
}

std::unique_ptr<platform::OperatingSystem> MakeNativeSystem(const std::string& localRoot) {
  std::string root = localRoot.empty() ? UserStateFolder() : localRoot;
  if (root.back() != '/') root += '/';
  return std::make_unique<NativeSystem>(std::move(root));
}

std::unique_ptr<platform::OperatingSystem> MakeWindowsStyleSystem(DriveMap drives, const std::string& systemFolder) {
  return std::make_unique<WindowsStyleSystem>(std::move(drives), systemFolder);
}

}  // namespace suite
