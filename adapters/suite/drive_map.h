#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace suite {

/// Drive letters that stand for folders of the host. Names are matched without regard to case where no file of exactly
/// that name exists.
class DriveMap {
 public:
  /// Says that `letter` stands for `folder`, a host path. The letter's case does not count.
  void Add(char letter, const std::string& folder);
  bool Has(char letter) const;
  bool Empty() const { return drives_.empty(); }

  /// The host path of "C:\folder\file"; a path without a drive is taken from the root of `currentDrive`, or from the
  /// program's working folder when it has no leading separator. Empty for shares and for letters without a folder.
  std::string ToHostPath(std::string_view path, char currentDrive) const;
  /// "C:\folder\file" for a host path inside a drive's folder (the innermost one counts); empty outside of all.
  std::string FromHostPath(std::string_view hostPath) const;

 private:
  std::map<char, std::string> drives_;
};

/// "C=DIR" as letter and folder; nothing when it has another form.
struct DriveOption {
  char letter = 'C';
  std::string folder;
};
std::optional<DriveOption> ParseDriveOption(std::string_view text);

}  // namespace suite
