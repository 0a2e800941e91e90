#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/file_format.h"
#include "platform/data/table_definition.h"

namespace engine {

/// A link as a file stores it.
struct StoredLink {
  std::string name;
  std::string path;    ///< as link_paths.h says
  std::string source;  ///< table in the other file
};

/// One open file. It is attached while somebody holds it; when the store has no room for more files, the one that was not
/// asked for the longest waits outside and is attached again by the next statement that names it.
class DataFile {
 public:
  /// `asked`: the file's name in messages. `uses` counts the uses of all files of the connection.
  DataFile(Connection& connection, int number, std::string path, std::string asked, bool readOnly, bool workFile,
           std::shared_ptr<std::uint64_t> uses);
  ~DataFile();
  DataFile(const DataFile&) = delete;
  DataFile& operator=(const DataFile&) = delete;

  const std::string& Path() const noexcept { return path_; }
  /// The name that stands before tables in statements, "f1".
  const std::string& Alias() const noexcept { return alias_; }
  bool ReadOnly() const noexcept { return readOnly_; }
  bool IsWorkFile() const noexcept { return workFile_; }

  /// Changes with each commit by others, and when the file was away for a while. A quick question to the file.
  std::int64_t OthersVersion();
  /// Changes with each write of this connection.
  std::uint64_t OwnVersion() const { return connection_.Writes(number_); }
  /// Changes with every change of table definitions, by anyone.
  std::int64_t SchemaVersion();

  std::vector<std::string> TableNames();
  std::vector<StoredLink> Links();
  /// Raises 3012 when the name is taken, 3027 on a read-only file.
  void AddLink(const StoredLink& link);

 private:
  friend class DataFiles;
  Connection& connection_;
  int number_;
  std::string alias_;
  std::string path_;
  std::string asked_;
  bool readOnly_;
  bool workFile_;
  bool attached_ = true;
  bool safetySet_ = true;
  std::int64_t returns_ = 0;             ///< how often it was attached again
  std::shared_ptr<std::uint64_t> uses_;  ///< of all files
  std::uint64_t lastUse_ = 0;
  SqlText dataVersion_;
  std::function<void(const DataFile&)> onGone_;
};

/// The files that a connection has open, each once. They may be more than the store can have attached at a time.
class DataFiles {
 public:
  DataFiles(Connection& connection, NetworkTest onNetwork);
  ~DataFiles();

  /// The file at that path, attached if it isn't yet. Raises 3024, 3044, 3051 for what isn't there or may not be opened, 3343 for
  /// another or a newer format, 3049 for a damaged file, 3045 for one that stays locked, 3043 for one on a network.
  std::shared_ptr<DataFile> Open(std::string_view path) { return Open(path, path); }
  /// The same; errors name the file as the program does, by `asked`.
  std::shared_ptr<DataFile> Open(std::string_view path, std::string_view asked);

 private:
  std::shared_ptr<DataFile> Attach(const std::string& path, const std::string& asked);
  void AttachStatement(const std::string& path, const std::string& alias, const std::string& asked);
  void Configure(const std::string& alias);
  void SetSafety(const std::string& alias, bool workFile);
  /// Attaches what a statement names and what is away.
  void BringBack(std::string_view sql);
  void AttachAgain(DataFile& file);
  /// Sends files away until one more can be attached; those of the list stay. Raises 3048 when all are in use.
  void MakeRoom(const std::vector<DataFile*>& needed);
  void Detach(const DataFile& file);
  /// Gives a half opened file up.
  void Abandon(const std::string& alias);
  void DetachLeftovers();

  Connection& connection_;
  NetworkTest onNetwork_;
  std::map<std::string, std::weak_ptr<DataFile>> files_;  ///< by canonical path
  std::map<int, DataFile*> byNumber_;
  std::vector<std::string> leftovers_;  ///< could not be detached yet
  int lastNumber_ = 0;
  std::shared_ptr<std::uint64_t> uses_ = std::make_shared<std::uint64_t>(0);
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace engine
