#include <filesystem>
#include <iostream>

#include "streets/file/street_file.h"
#include "streets/import/base/base_map.h"
#include "streets/program/commands.h"
#include "suitefiles/program/command_line.h"

namespace streetsprogram {

namespace fs = std::filesystem;

namespace {

/// A file under another name that goes unless it has been put into its place.
class UnderWay {
 public:
  explicit UnderWay(const std::string& target) : target_(target), path_(target + ".new") { Remove(); }
  ~UnderWay() { Remove(); }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;

  const std::string& Path() const { return path_; }
  void Place() const { fs::rename(path_, target_); }

 private:
  void Remove() const {
    std::error_code ignored;
    fs::remove(path_, ignored);
    fs::remove(path_ + "-journal", ignored);
  }

  std::string target_;
  std::string path_;
};

}  // namespace

int RunBase(const std::vector<std::string>& words, const Console& console) {
  const suitefiles::CommandLine line(words, {{"--into", true}});
  line.ExpectOperands({"FOLDER"});
  const auto target = line.Value("--into");
  if (!target) throw suitefiles::UsageError("option --into is missing");
  const UnderWay made(*target);
  streets::BaseMapCounts counts;
  {
    const auto file = streets::OpenOrMakeStreetFile(made.Path());
    counts = streets::WriteBaseMap(line.Operands()[0], *file);
  }
  made.Place();
  console.out << *target << ": " << counts.borders << " borders, " << counts.zips << " ZIPs, " << counts.places << " places.\n";
  return kDone;
}

}  // namespace streetsprogram
