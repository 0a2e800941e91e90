#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/values/value.h"

namespace platform {

/// What the library asks of the system it runs on: where paths start, how they are written, the settings files and the
/// clock. Paths that the program builds are texts of the program's own style (native, or with drive letters and
/// backslashes); ToHostPath turns them into the names of real files. A path that comes in may use either separator.
class OperatingSystem {
 public:
  virtual ~OperatingSystem() = default;

  /// The root under which local work folders lie, with its separator at the end: the drive of the system folder ("C:\"),
  /// or the user's state folder ("/home/u/.local/state/orcussch/").
  virtual std::string LocalRoot() const = 0;

  /// What stands between the parts of a path: "\" or "/".
  virtual std::string Separator() const = 0;

  /// The file or folder of the host that a path of the program's style names. Empty when nothing can stand for it (a
  /// drive letter without a folder, a network share): callers treat that as a path whose folder is missing.
  virtual std::string ToHostPath(std::string_view path) const = 0;

  /// The program's own text for a host path, the reverse of ToHostPath.
  virtual std::string FromHostPath(std::string_view hostPath) const = 0;

  /// A value of a settings file; `defaultValue` when file, section or key is missing. `size` is that of the caller's
  /// buffer with its end mark: at most `size` - 1 characters come back, longer values are cut. Never raises.
  virtual std::string ReadIniValue(std::string_view section, std::string_view key, std::string_view defaultValue, std::string_view iniPath,
                                   int size) const = 0;

  /// Bytes of a file. Errors: 53 when it is missing (a folder too), 76 when its folder is.
  virtual std::int64_t FileLength(std::string_view path) const = 0;

  /// Today at midnight; the present moment, in whole seconds of local time.
  virtual Date Today() const = 0;
  virtual Date Now() const = 0;
  /// From here on `day` is today (the time of day goes on); an empty one gives the real clock back.
  virtual void SetToday(std::optional<Date> day) = 0;

  /// A number that differs between the copies of the program that run on this machine.
  virtual std::int32_t ProcessNumber() const = 0;
};

/// `path` with one separator of the system's own at its end.
inline std::string WithSeparator(const OperatingSystem& system, std::string path) {
  if (path.empty() || (path.back() != '/' && path.back() != '\\')) path += system.Separator();
  return path;
}

}  // namespace platform
