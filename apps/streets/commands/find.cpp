#include <iostream>

#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/file/street_files.h"
#include "streets/geocoder/geocoder.h"
#include "streets/index/file_index.h"
#include "streets/program/commands.h"
#include "streets/program/own_files.h"
#include "suitefiles/program/command_line.h"

namespace streetsprogram {

namespace {

/// Looks addresses up and tells what is found, a line each.
class Finder {
 public:
  Finder(const std::vector<std::string>& paths, std::ostream& out) : files_(paths), index_(files_), geocoder_(index_), out_(out) {
    if (!files_.Complaint().empty()) throw suitefiles::CommandError(files_.Complaint());
  }

  void Find(const std::string& address) {
    const platform::GeocodeAnswer answer = geocoder_.Find(address);
    const char* how = !answer.positionFound ? "nothing" : answer.result == streets::Geocoder::kMatch ? "match" : "guess";
    allFound_ = allFound_ && answer.positionFound;
    for (const std::string& line : answer.candidates) out_ << address << "\t" << how << "\t" << line << "\n";
    if (!answer.candidates.empty()) return;
    out_ << address << "\t" << how << "\t";
    if (answer.positionFound) out_ << answer.longitude << " " << answer.latitude;
    out_ << "\n";
  }

  bool AllFound() const { return allFound_; }

 private:
  streets::StreetFiles files_;
  streets::FileIndex index_;
  streets::Geocoder geocoder_;
  std::ostream& out_;
  bool allFound_ = true;
};

}  // namespace

int RunFind(const std::vector<std::string>& words, const Console& console) {
  const suitefiles::CommandLine line(words, {{"--streets", true}, {"--map", true}});
  if (line.Operands().empty()) throw suitefiles::UsageError("ADDRESS is missing");
  Finder finder({line.Value("--map").value_or(OwnBaseMap()), line.Value("--streets").value_or("streets.zds")}, console.out);
  for (const std::string& operand : line.Operands()) {
    if (operand != "-") {
      finder.Find(operand);
      continue;
    }
    for (std::string address; std::getline(std::cin, address);) finder.Find(address);
  }
  return finder.AllFound() ? kDone : kFailed;
}

}  // namespace streetsprogram
