#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/table_definition.h"
#include "platform/values/value.h"

/// Making, filling, checking and copying data files: for `suitefiles` and the tests. The library itself makes no file and no
/// table. A path is a file's, or names one on a server ("postgresql://..."), where not said otherwise. Failures are platform::Error.
namespace engine {

/// Whether anything has that name.
bool DataFileExists(const std::string& path);

/// Makes a new file with these empty tables; an existing file is refused (3204). Nobody sees it half made: it gets its name when
/// it is whole, and of several programs that make it at once one does. `workFile` files are written without waiting for the disk
/// (temporary databases).
void CreateDataFile(const std::string& path, std::span<const platform::TableDefinition> tables, bool workFile = false);

/// Adds rows fast, inside one transaction: the values of each row in the order of `fields`. Counters may be given
/// explicitly. Indexes of an empty table are built when it is finished.
class BulkWriter {
 public:
  virtual ~BulkWriter() = default;
  virtual void Add(std::span<const platform::Value> row) = 0;
  /// Commits; without it nothing stays.
  virtual void Finish() = 0;
};
std::unique_ptr<BulkWriter> OpenBulkWriter(const std::string& path, std::string_view table, std::span<const std::string> fields);

/// Takes a file away with all its rows; nobody may have it open.
void RemoveDataFile(const std::string& path);

/// A file that is made together with its rows. Nobody sees it before Finish, and without that nothing of it stays.
class NewDataFile {
 public:
  virtual ~NewDataFile() = default;
  /// Adds rows to one of its tables, one table after the other; BulkWriter::Finish ends it.
  virtual std::unique_ptr<BulkWriter> Fill(std::string_view table, std::span<const std::string> fields) = 0;
  /// The table's Counter has given numbers up to this one.
  virtual void RaiseNumber(std::string_view table, std::int64_t last) = 0;
  virtual void Finish() = 0;
};
/// Raises 3204 for a path that is taken.
std::unique_ptr<NewDataFile> MakeDataFile(const std::string& path, std::span<const platform::TableDefinition> tables);

/// The last number that the table's Counter has given, 0 for none and for a table without one.
std::int64_t LastNumberOf(const std::string& path, std::string_view table);

/// What is wrong with a file, in sentences: the store's own integrity check, format, and differences from the expected tables.
std::vector<std::string> CheckDataFile(const std::string& path, std::span<const platform::TableDefinition> expected);

/// Gives a file the tables, fields and indexes that it lacks of the expected ones, in one commit; what is there stays as it is, and the
/// rows that are there get the new fields' defaults. Nobody else may have the file open meanwhile (3045 when somebody keeps it open); on
/// a server nobody may be in the midst of a transaction there, open lists go on. Before its first change the file is copied to `copy`, a
/// new path of the same kind; `progress` as in BackupDataFile, in tables on a server. Returns what was added, in
/// sentences; none, and no copy, when nothing is lacking. Raises 3057 for a Counter or a primary key's field that is lacking in a
/// table that is there: such a table can only be made anew.
std::vector<std::string> UpgradeDataFile(const std::string& path, std::span<const platform::TableDefinition> expected,
                                         const std::string& copy, const std::function<void(int, int)>& progress = {});

/// Files only. A consistent copy of a file that may be open elsewhere. `progress` gets (pages done, pages in all).
void BackupDataFile(const std::string& from, const std::string& to, const std::function<void(int, int)>& progress = {});

/// For a path on a server: the words by which the server's own tools are told of the database and of the schema in it. They hold no
/// password.
std::vector<std::string> ServerToolWords(const std::string& path);

/// Gives a file that nobody has open the name `to`, in the same file system; false when that name is taken.
bool MoveIntoPlace(const std::string& from, const std::string& to);

/// Whether a file or folder lies on a file system that other machines share, where no data file can be opened.
bool LiesOnNetwork(const std::string& path);

/// A link of a file to a table of another one.
struct FileLink {
  std::string name;
  std::string path;    ///< full path of the other file
  std::string source;  ///< table in the other file
};
std::vector<FileLink> LinksOf(const std::string& path);
/// Makes links that are there lead to other files of the same store, all of them or none; names that are no links are passed over.
void PointLinks(const std::string& path, std::span<const FileLink> links);

/// Takes a table (or a link) out of a file that may be open elsewhere, as another program might; 3011 when there is none.
void DropTable(const std::string& path, std::string_view table);

}  // namespace engine
