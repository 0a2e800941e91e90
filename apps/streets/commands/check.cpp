#include <iostream>

#include "streets/check/check_file.h"
#include "streets/program/commands.h"
#include "suitefiles/program/command_line.h"

namespace streetsprogram {

int RunCheck(const std::vector<std::string>& words, const Console& console) {
  const suitefiles::CommandLine line(words, {});
  if (line.Operands().empty()) throw suitefiles::UsageError("FILE is missing");
  int findings = 0;
  for (const std::string& path : line.Operands()) {
    for (const std::string& sentence : streets::CheckStreetFile(path)) {
      console.out << sentence << "\n";
      ++findings;
    }
  }
  if (findings > 0) return kFailed;
  console.out << line.Operands().size() << (line.Operands().size() == 1 ? " file" : " files") << ", nothing wrong.\n";
  return kDone;
}

}  // namespace streetsprogram
