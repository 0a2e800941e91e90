#include "library/options.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <filesystem>

#include "platform/values/text.h"
#include "suite/operating_system.h"

namespace library {
namespace {

/// What the first hosts were built with ended before this member.
constexpr std::size_t kFirstSize = offsetof(orcussch_options, support_log);

/// The options with all members that this library knows; those that an older host lacks are zero. What a newer host has beyond
/// them may only be unset, since it would be passed over.
orcussch_options Whole(const orcussch_options& given) {
  if (given.size < kFirstSize) throw OptionError("the options' size is not sizeof(orcussch_options)");
  orcussch_options whole{};
  std::memcpy(&whole, &given, std::min(given.size, sizeof whole));
  constexpr std::size_t kGreatestSize = 4096;
  if (given.size > kGreatestSize) throw OptionError("the options' size is not sizeof(orcussch_options)");
  if (given.size > sizeof whole) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(&given);
    if (std::any_of(bytes + sizeof whole, bytes + given.size, [](unsigned char byte) { return byte != 0; }))
      throw OptionError("the options hold what only a newer library knows");
  }
  return whole;
}

std::string Text(const char* text, const char* what) {
  if (!platform::IsValidUtf8(text)) throw OptionError(std::string(what) + " is no UTF-8 text");
  return text;
}

/// The program's own name, which tells its log from those of the user's other programs.
std::string ProgramName() {
  std::error_code problem;
  const std::string name = std::filesystem::read_symlink("/proc/self/exe", problem).filename().string();
  return problem || name.empty() || !platform::IsValidUtf8(name) ? "orcussch" : name;
}

std::string File(const char* given, const char* what, const std::string& otherwise) {
  const std::string file = given ? Text(given, what) : std::string();
  return file.empty() ? otherwise : AbsoluteName(file);
}

}  // namespace

DefaultApplicationOptions ReadOptions(const orcussch_options& given) {
  const orcussch_options options = Whole(given);
  if (!options.library_folder) throw OptionError("the library's folder is required");
  const std::string state = suite::UserStateFolder();

  DefaultApplicationOptions read;
  read.makeTemporaryFile = options.make_temporary_file != 0;
  read.accounts = HostAccounts(options.accounts_lookup, options.accounts_data);
  read.places.libraryFolder = Text(options.library_folder, "the library's folder");
  read.places.missingLocal = read.makeTemporaryFile ? MissingLocal::Make : MissingLocal::Refuse;
  if (options.local_folder && *options.local_folder) read.places.localFolder = Text(options.local_folder, "the local folder");
  for (const char* const* drive = options.drives; drive && *drive; ++drive) read.places.drives.push_back(Text(*drive, "a drive"));
  if (!read.places.drives.empty() && read.places.localFolder) throw OptionError("with drives, drive C is the local folder");

  if (!options.settings_folder || *options.settings_folder)
    read.settingsFolder = File(options.settings_folder, "the settings' folder", state);
  read.title = options.title ? *platform::Normalise(Text(options.title, "the title")) : std::string();
  if (read.title.empty()) read.title = "ORCusSch";
  read.errorLog = File(options.log_file, "the log's name", state + "orcussch-errors.log");
  if (!options.support_log || *options.support_log)
    read.supportLog = File(options.support_log, "the support log's name", state + ProgramName() + "-support.log");
  return read;
}

}  // namespace library
