#include "suite/drive_map.h"

#include <filesystem>
#include <vector>

#include "platform/values/text.h"

namespace suite {

namespace fs = std::filesystem;

namespace {

bool IsSeparator(char c) { return c == '/' || c == '\\'; }
bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// The names of a path without its drive; "." says nothing and ".." never leaves the root.
std::vector<std::string> Names(std::string_view path) {
  std::vector<std::string> names;
  std::string name;
  const auto finish = [&] {
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.push_back(name);
    }
    name.clear();
  };
  for (const char c : path) {
    if (IsSeparator(c)) {
      finish();
    } else {
      name += c;
    }
  }
  finish();
  return names;
}

/// The entry of `folder` that `name` means: the one of exactly that name, else one that differs in case alone, else the
/// name itself for a file that is still to come.
fs::path EntryOf(const fs::path& folder, const std::string& name) {
  std::error_code problem;
  fs::path exact = folder / name;
  if (fs::exists(exact, problem)) return exact;
  std::string best;
  for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end; entry.increment(problem)) {
    const std::string found = entry->path().filename().string();
    if (platform::EqualsNoCase(found, name) && (best.empty() || found < best)) best = found;
  }
  return best.empty() ? exact : folder / best;
}

std::string Canonical(std::string_view folder) {
  std::error_code problem;
  fs::path path = fs::weakly_canonical(fs::path(folder), problem);
  if (problem) path = fs::absolute(fs::path(folder), problem).lexically_normal();
  std::string text = path.string();
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  return text;
}

}  // namespace

void DriveMap::Add(char letter, const std::string& folder) { drives_[Upper(letter)] = Canonical(folder); }

bool DriveMap::Has(char letter) const { return drives_.contains(Upper(letter)); }

std::string DriveMap::ToHostPath(std::string_view path, char currentDrive) const {
  if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) return {};
  fs::path host;
  if (path.size() >= 2 && IsLetter(path[0]) && path[1] == ':') {
    const auto drive = drives_.find(Upper(path[0]));
    if (drive == drives_.end()) return {};
    host = drive->second;
    path.remove_prefix(2);
  } else if (!path.empty() && IsSeparator(path[0])) {
    const auto drive = drives_.find(Upper(currentDrive));
    if (drive == drives_.end()) return {};
    host = drive->second;
  } else {
    std::error_code problem;
    host = fs::current_path(problem);
  }
  for (const auto& name : Names(path)) host = EntryOf(host, name);
  return host.string();
}

std::string DriveMap::FromHostPath(std::string_view hostPath) const {
  const std::string path = Canonical(hostPath);
  const std::pair<const char, std::string>* best = nullptr;
  for (const auto& drive : drives_) {
    const std::string& folder = drive.second;
    const bool inside = folder == "/" || path == folder || (path.starts_with(folder) && path[folder.size()] == '/');
    if (inside && (best == nullptr || folder.size() > best->second.size())) best = &drive;
  }
  if (best == nullptr) return {};
  std::string text{best->first, ':', '\\'};
  const auto names = Names(std::string_view(path).substr(best->second == "/" ? 0 : best->second.size()));
  for (std::size_t i = 0; i < names.size(); ++i) text += (i > 0 ? "\\" : "") + names[i];
  return text;
}

std::optional<DriveOption> ParseDriveOption(std::string_view text) {
  if (text.size() < 3 || !IsLetter(text[0]) || text[1] != '=') return std::nullopt;
  return DriveOption{Upper(text[0]), std::string(text.substr(2))};
}

}  // namespace suite
