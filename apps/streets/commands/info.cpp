#include <iostream>

#include "streets/file/database.h"
#include "streets/file/street_file.h"
#include "streets/program/commands.h"
#include "suitefiles/program/command_line.h"

namespace streetsprogram {

int RunInfo(const std::vector<std::string>& words, const Console& console) {
  const suitefiles::CommandLine line(words, {});
  line.ExpectOperands({"FILE"});
  const auto file = streets::OpenStreetFile(line.Operands()[0]);
  streets::Statement sources(*file, "SELECT code, name, records, refused, notice FROM Sources ORDER BY code");
  while (sources.Step()) {
    console.out << sources.Text(0) << "\t" << sources.Text(1) << ": " << sources.Int(2) << " records, " << sources.Int(3) << " not taken.";
    if (!sources.Text(4).empty()) console.out << " " << sources.Text(4) << ".";
    console.out << "\n";
  }
  struct Count {
    const char* what;
    const char* table;
  };
  for (const Count& count : {Count{"street names", "Streets"}, Count{"pieces of street", "Edges"}, Count{"ranges of house numbers", "Ranges"},
                             Count{"address points", "Points"}, Count{"ZIPs", "Zips"}, Count{"places", "Places"}}) {
    console.out << file->Ask(std::string("SELECT count(*) FROM ") + count.table) << " " << count.what << "\n";
  }
  console.out << "format " << file->Ask("PRAGMA user_version") << "\n";
  return kDone;
}

}  // namespace streetsprogram
