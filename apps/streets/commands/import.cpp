#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "streets/file/database.h"
#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/import/census/county_import.h"
#include "streets/import/census/inputs.h"
#include "streets/import/osm/extract_import.h"
#include "streets/program/commands.h"
#include "streets/program/own_files.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/progress.h"

namespace streetsprogram {

namespace {

namespace fs = std::filesystem;

/// The file that is filled: opened at the first county, and gone again when it was made for nothing.
class Target {
 public:
  /// "" for a dry run.
  explicit Target(std::string path) : path_(std::move(path)), isNew_(!path_.empty() && !fs::exists(path_)) {}
  ~Target() {
    const bool forNothing = isNew_ && file_ && !filled_;
    file_.reset();
    std::error_code ignored;
    if (forNothing) fs::remove(path_, ignored);
  }
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  streets::Database* Open() {
    if (!path_.empty() && !file_) file_ = streets::OpenOrMakeStreetFile(path_);
    return file_.get();
  }
  void Filled() { filled_ = true; }

 private:
  std::string path_;
  bool isNew_;
  bool filled_ = false;
  std::unique_ptr<streets::Database> file_;
};

/// The map that tells ZIPs where an extract doesn't; opened at the first extract.
class BaseMap {
 public:
  BaseMap(std::optional<std::string> asked, const Console& console) : asked_(std::move(asked)), console_(console) {}

  /// nullptr without one.
  streets::Database* Open() {
    if (isOpen_) return file_.get();
    const std::string path = asked_.value_or(OwnBaseMap());
    std::error_code ignored;
    if (!asked_ && !fs::exists(path, ignored)) {
      console_.err << "streets: " << path << " is not there; what has no ZIP stays without.\n";
    } else {
      file_ = streets::OpenStreetFile(path);
    }
    isOpen_ = true;
    return file_.get();
  }

 private:
  std::optional<std::string> asked_;
  const Console& console_;
  bool isOpen_ = false;
  std::unique_ptr<streets::Database> file_;
};

class Import {
 public:
  Import(Target& target, BaseMap& map, const Console& console) : target_(target), map_(map), console_(console), progress_(console) {
    listener_.onRefused = [this](const std::string& file, std::int64_t record, const std::string& why) {
      Tell(file, "record " + std::to_string(record), why);
    };
    extractListener_.onRefused = [this](const std::string& file, const std::string& record, const std::string& why) { Tell(file, record, why); };
    listener_.onProgress = [this](const std::string& file, std::int64_t done, std::int64_t all) { progress_.Show(file, done, all); };
    extractListener_.onProgress = listener_.onProgress;
  }

  /// False when something of the input could not be taken.
  bool Take(const std::string& input) {
    bool whole = true;
    try {
      if (streets::IsExtract(input)) {
        TakeExtract(input);
      } else {
        streets::EachShapeFile(input, [&](const std::string& path, const std::string& shown) { whole = TakeCounty(path, shown) && whole; });
      }
    } catch (const streets::FileError& problem) {
      Tell(problem);
      whole = false;
    }
    return whole;
  }

 private:
  bool TakeCounty(const std::string& path, const std::string& shown) {
    streets::Database* const into = target_.Open();
    try {
      const streets::CountyCounts counts = streets::ImportCounty(path, shown, into, listener_);
      progress_.Clear();
      console_.out << shown << ": " << counts.records << " records, " << counts.refused << " not taken; " << counts.edges
                   << " pieces of street, " << counts.ranges << " ranges of house numbers.\n";
      target_.Filled();
      return true;
    } catch (const streets::FileError& problem) {
      Tell(problem);
      return false;
    }
  }

  void TakeExtract(const std::string& path) {
    const streets::ExtractCounts counts = streets::ImportExtract(path, target_.Open(), map_.Open(), extractListener_);
    progress_.Clear();
    console_.out << path << ": " << counts.records << " records, " << counts.refused << " not taken or not whole; " << counts.edges
                 << " pieces of street, " << counts.points << " houses.\n";
    target_.Filled();
  }

  void Tell(const std::string& file, const std::string& record, const std::string& why) {
    progress_.Clear();
    console_.out << file << ", " << record << ": " << why << "\n";
  }

  void Tell(const streets::FileError& problem) {
    progress_.Clear();
    console_.out.flush();
    console_.err << "streets: " << problem.what() << "\n";
  }

  Target& target_;
  BaseMap& map_;
  const Console& console_;
  suitefiles::Progress progress_;
  streets::ImportListener listener_;
  streets::ExtractListener extractListener_;
};

}  // namespace

int RunImport(const std::vector<std::string>& words, const Console& console) {
  const suitefiles::CommandLine line(words, {{"--into", true}, {"--map", true}, {"--dry-run", false}});
  if (line.Operands().empty()) throw suitefiles::UsageError("FILE is missing");
  const auto into = line.Value("--into");
  if (!into) throw suitefiles::UsageError("option --into is missing");
  const std::vector<std::string> inputs = streets::FindInputs(line.Operands());
  Target target(line.Has("--dry-run") ? "" : *into);
  BaseMap map(line.Value("--map"), console);
  Import import(target, map, console);
  bool whole = true;
  for (const std::string& input : inputs) whole = import.Take(input) && whole;
  return whole ? kDone : kFailed;
}

}  // namespace streetsprogram
