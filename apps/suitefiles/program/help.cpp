#include "suitefiles/program/commands.h"

namespace suitefiles {

namespace {

constexpr const char* kProgram =
    R"(suitefiles makes, fills, checks and copies the data files of the suite.

  suitefiles create DIR --company N [--name TEXT] [--year YYYY]
  suitefiles demo DIR --company N --customers COUNT [--seed S] [--date YYYY-MM-DD]
  suitefiles temp DIR --user U
  suitefiles check DIR [--company N]
  suitefiles backup DIR TARGET [--through FOLDER]
  suitefiles copy FROM TO --company N
  suitefiles relink DIR [--company N]
  suitefiles upgrade DIR [--company N]
  suitefiles sql FILE STATEMENT [--csv] [--no-header] [--skip]
  suitefiles help COMMAND
  suitefiles --help
  suitefiles --version

DIR is the folder of the library, where dat.zdb and the orv<N>.ini files lie.
Each file of a company is where the programs look for it: by orv<N>.ini, else in
DIR (dat.zdb) and DIR/data/orv<N>. In place of DIR may stand the place of a
company on a server, postgresql://HOST[:PORT]/DATABASE/COMPANY/: users and
passwords are those of the client library's own files.
Exit status: 0 done, 1 failed or (check) something is wrong, 2 wrong usage.
)";

constexpr const char* kCreate =
    R"(suitefiles create DIR --company N [--name TEXT] [--year YYYY]

Makes the files of company N: DIR/data/orv<N>/ with customer.zdb, GL.zdb,
artrans.zdb and flatrate.zdb, and DIR/dat.zdb with the company's row; or where
DIR/orv<N>.ini says. A dat.zdb that is there already gets the row. Files of the
company that are there already are left alone and the command fails.

The new company has the built-in phone types, card types, terms and sales
rates, ten departments, a chart of accounts with ledger rows of one year, and
the report catalogue; its report files come into DIR, never over changed ones.

  --company N   number of the company, 1 to 2147483647
  --name TEXT   name of the company, at most 40 characters ("Company N")
  --year YYYY   year of the ledger rows (this year)
)";

constexpr const char* kDemo =
    R"(suitefiles demo DIR --company N --customers COUNT [--seed S] [--date YYYY-MM-DD]

Fills company N with invented customers, their phones, addresses, cards, labor
rates, types, key words, parents and transactions, and with tax rates and map
codes. The company is made when it is missing. One that holds customers or any
of these codes is left alone and the command fails. The same seed gives the
same rows. The map's file, DIR/streets.zds, gets invented streets in which the
customers live, those of the first 25000.

  --company N        number of the company, 1 to 2147483647
  --customers COUNT  0 to 100000000
  --seed S           a whole number from 0 on (1)
  --date YYYY-MM-DD  the last day that the invented dates reach (2025-06-30)
)";

constexpr const char* kTemp =
    R"(suitefiles temp DIR --user U

Makes the temporary file of user U, DIR/orvTEMP/orvTemp<U>.zdb, with its empty
work tables. A file that is there already is kept as it is. With a company on a
server in place of DIR it is a file of this desk all the same: it is made where
this user's programs look for it, below $XDG_STATE_HOME/orcussch or
~/.local/state/orcussch.

  --user U   number of the user, 0 to 2147483647
)";

constexpr const char* kCheck =
    R"(suitefiles check DIR [--company N]

Looks through the files of every company (or of company N), and through the
temporary files: whether each file is sound, has its tables, fields and indexes,
whether what rows refer to is there, and whether the links of customer.zdb lead
to the company's own files. Says what is wrong, one sentence a line; the exit
status is then 1. Nothing is changed.

  --company N   look at this company alone
)";

constexpr const char* kBackup =
    R"(suitefiles backup DIR TARGET [--through FOLDER]

Copies the data files of all companies into the new folder TARGET, laid out as
dat.zdb and data/orv<N>/, also while programs have them open: each copy is the
file as it was at one moment. The files need not be closed for it. Says which
companies and files it copied and which it left. TARGET must not exist or be
empty.

The copy is a folder of companies of its own: the links of each customer.zdb
lead to the files beside it, also when the folder is moved. To restore it, copy
it to a local disk, or back it up into a new folder. All report files of DIR go
along, changed ones and the office's own too. The settings files are kept under
the name orv<N>.ini.saved, as the paths in them name the originals; a company
whose dat.zdb is not that of the others gets an orv<N>.ini that names its copy.

  --through FOLDER  makes each copy in this local folder and then writes it to
                    TARGET (the system's folder for temporary files, when TARGET
                    lies on a network; nothing is opened there)
)";

constexpr const char* kCopy =
    R"(suitefiles copy FROM TO --company N

Copies the files of company N to another place: from files to a server, from a
server to files, or from one to another of their kind. FROM and TO are folders
of the library (the files lie where their orv<N>.ini says) or places on a
server, postgresql://HOST[:PORT]/DATABASE/COMPANY/. The programs go on with
FROM; to change over, put TO into orv<N>.ini as "Default Path".

Each file is copied as it is at one moment, in one transaction; then the copy's
rows are counted and the values of every column are summed up, and both must
agree with what was read. Counters go on where they were. A file that is there
already is compared and left: a run that was stopped can simply be done again.
Links between the files are made anew when the company is first opened.

  --company N   number of the company
)";

constexpr const char* kRelink =
    R"(suitefiles relink DIR [--company N]

Makes the links Departments and Transactions in the customer.zdb of every company
(or of company N) lead to the company's own GL.zdb and artrans.zdb. For folders
that were copied or moved by hand: without it such a copy may go on reading the
files of the original. Other links are left and told.

  --company N   relink this company alone
)";

constexpr const char* kUpgrade =
    R"(suitefiles upgrade DIR [--company N]

Gives the files of every company (or of company N), and the temporary files,
the tables, fields and indexes that this version of the programs has and that
files of an older one lack. Says what was added, one sentence a line. What is
there already stays as it is: nothing is renamed, removed or changed in type.

Each file is copied first, as FILE.before-upgrade beside it (-2, -3 and so on
when that is taken), and changed in one step: a run that was stopped in between
leaves it as it was, and can be done again. A file that somebody has open is
left and told; let everybody leave the programs, then run it again.

Report files that this version brings come into DIR; one that the office has
changed stays as it is.

  --company N   upgrade this company alone
)";

constexpr const char* kSql =
    R"(suitefiles sql FILE STATEMENT [--csv] [--no-header] [--skip]

Runs one statement of the suite's dialect on FILE. A SELECT (or the name of a
table) prints its rows, fields separated by tabs, under a line of field names;
INSERT, UPDATE and DELETE print how many rows they wrote. A STATEMENT "-" is
read from the standard input. Null prints as nothing; tabs, line ends and
backslashes in texts print as \t, \r, \n and \\.

  --csv         comma separated, texts quoted where needed
  --no-header   leaves out the line of field names
  --skip        rows that can't be written whole are left alone; without it the
                first such row fails and nothing is written
)";

}  // namespace

std::string HelpText(const std::string& command) {
  if (command.empty()) return kProgram;
  if (command == "create") return kCreate;
  if (command == "demo") return kDemo;
  if (command == "temp") return kTemp;
  if (command == "check") return kCheck;
  if (command == "backup") return kBackup;
  if (command == "copy") return kCopy;
  if (command == "relink") return kRelink;
  if (command == "upgrade") return kUpgrade;
  if (command == "sql") return kSql;
  return "";
}

}  // namespace suitefiles
