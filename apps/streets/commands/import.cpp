#include <filesystem>
#include <iostream>
#include <memory>

#include "streets/file/database.h"
#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/import/census/county_import.h"
#include "streets/import/census/inputs.h"
#include "streets/program/commands.h"
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

class Import {
 public:
  Import(Target& target, const Console& console) : target_(target), console_(console), progress_(console) {
    listener_.onRefused = [this](const std::string& file, std::int64_t record, const std::string& why) {
      progress_.Clear();
      console_.out << file << ", record " << record << ": " << why << "\n";
    };
    listener_.onProgress = [this](const std::string& file, std::int64_t done, std::int64_t all) { progress_.Show(file, done, all); };
  }

  /// False when something of the input could not be taken.
  bool Take(const std::string& input) {
    bool whole = true;
    try {
      streets::EachShapeFile(input, [&](const std::string& path, const std::string& shown) { whole = TakeCounty(path, shown) && whole; });
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

  void Tell(const streets::FileError& problem) {
    progress_.Clear();
    console_.out.flush();
    console_.err << "streets: " << problem.what() << "\n";
  }

  Target& target_;
  const Console& console_;
  suitefiles::Progress progress_;
  streets::ImportListener listener_;
};

}  // namespace

int RunImport(const std::vector<std::string>& words, const Console& console) {
  const suitefiles::CommandLine line(words, {{"--into", true}, {"--dry-run", false}});
  if (line.Operands().empty()) throw suitefiles::UsageError("FILE is missing");
  const auto into = line.Value("--into");
  if (!into) throw suitefiles::UsageError("option --into is missing");
  const std::vector<std::string> inputs = streets::FindInputs(line.Operands());
  Target target(line.Has("--dry-run") ? "" : *into);
  Import import(target, console);
  bool whole = true;
  for (const std::string& input : inputs) whole = import.Take(input) && whole;
  return whole ? kDone : kFailed;
}

}  // namespace streetsprogram
