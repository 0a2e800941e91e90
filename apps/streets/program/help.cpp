#include "streets/program/commands.h"

namespace streetsprogram {

namespace {

constexpr const char* kProgram =
    R"(streets makes, fills and looks into the files of the street map.

  streets import FILE... --into STREETS [--map FILE] [--dry-run]
  streets find ADDRESS... [--streets STREETS] [--map FILE]
  streets info FILE
  streets check FILE...
  streets base FOLDER --into FILE
  streets help COMMAND
  streets --help
  streets --version

STREETS is the file that the map reads, streets.zds in the folder of the library.
Exit status: 0 done, 1 failed or (check) something is wrong, 2 wrong usage.
)";

constexpr const char* kImport =
    R"(streets import FILE... --into STREETS [--map FILE] [--dry-run]

Takes the streets and house numbers of counties and extracts into the file
STREETS, which is made when it is not there. FILE is one of
  what the Census ships for a county, address ranges with their lines
    (tl_YEAR_COUNTY_addrfeat): the .shp, with its .shx and .dbf beside it, or the
    ZIP archive as it comes;
  an extract of OpenStreetMap (SOMEWHERE.osm.pbf): its named streets and its
    houses;
  a folder, for all that lie in it.

A county that is there already is replaced, and so is an extract of that name.
Each comes whole or not at all, also when the program is stopped; then run it
again. Programs may have STREETS open meanwhile.

Records that can't be taken are told, one a line, with the reason. A file that
can't be read is told and passed over; the exit status is then 1.

  --into STREETS  the file to fill
  --map FILE      the base map, instead of the one that came with the program;
                  its nearest ZIP is taken where an extract tells none
  --dry-run       reads and tells, and writes nothing
)";

constexpr const char* kFind =
    R"(streets find ADDRESS... [--streets STREETS] [--map FILE]

Tells where addresses lie, as the customer map finds them: "Addr1,City,State,Zip",
parts of which may be missing. For each candidate, the best first, a line with
the address, how good the best one is ("match" or "guess") and the candidate:
longitude and latitude in hundred-thousandths of a degree, and its text. A ZIP or
town alone has a position and no text. "nothing" is told for what can't be found;
the exit status is then 1.

  -                  reads addresses from the input, one a line
  --streets STREETS  the streets file, instead of streets.zds in the working folder
  --map FILE         the base map, instead of the one that came with the program
)";

constexpr const char* kInfo =
    R"(streets info FILE

Tells what a streets file or the base map holds: where it comes from, county by
county and extract by extract, with what their makers ask to be shown, and how
many streets, pieces of street, house number ranges and points, ZIPs and places
there are.
)";

constexpr const char* kCheck =
    R"(streets check FILE...

Looks through streets files: whether each is sound, whether what rows refer to
is there, and whether every line can be drawn. Says what is wrong, one sentence a
line; the exit status is then 1. Nothing is changed.
)";

constexpr const char* kBase =
    R"(streets base FOLDER --into FILE

Makes the base map, which needs no import: borders of states and counties, ZIPs
and places. FOLDER holds its sources, counties-10m.json, zip-points.csv and
zip-places.tsv. A FILE that is there already is replaced when the new one is done.

  --into FILE   the base map
)";

}  // namespace

std::string HelpText(const std::string& command) {
  if (command.empty()) return kProgram;
  if (command == "import") return kImport;
  if (command == "find") return kFind;
  if (command == "info") return kInfo;
  if (command == "check") return kCheck;
  if (command == "base") return kBase;
  return "";
}

}  // namespace streetsprogram
