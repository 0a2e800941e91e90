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
#include "platform/table_definition.h"

namespace engine {

/// A link as a file stores it.
struct StoredLink {
  std::string name;
  std::string path;    ///< as the link's maker wrote it
  std::string source;  ///< table in the other file
};

/// One attached file. It is attached while somebody holds it.
class DataFile {
 public:
  DataFile(Connection& connection, int number, std::string path, bool readOnly, bool workFile);
  ~DataFile();
  DataFile(const DataFile&) = delete;
  DataFile& operator=(const DataFile&) = delete;

  const std::string& Path() const noexcept { return path_; }
  /// The name that stands before tables in statements, "f1".
  const std::string& Alias() const noexcept { return alias_; }
  bool ReadOnly() const noexcept { return readOnly_; }
  bool IsWorkFile() const noexcept { return workFile_; }

  /// Changes with each commit by others. A quick question to the file.
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
  bool readOnly_;
  bool workFile_;
  SqlText dataVersion_;
  std::function<void(const DataFile&)> onGone_;
};

/// The files that a connection has attached, each once.
class DataFiles {
 public:
  DataFiles(Connection& connection, NetworkTest onNetwork) : connection_(connection), onNetwork_(std::move(onNetwork)) {}
  ~DataFiles();

  /// The file at that path, attached if it isn't yet. Raises 3024, 3044, 3051 for what isn't there or may not be opened, 3343 for
  /// another or a newer format, 3049 for a damaged file, 3045 for one that stays locked, 3043 for one on a network.
  std::shared_ptr<DataFile> Open(std::string_view path) { return Open(path, path); }
  /// The same; errors name the file as the program does, by `asked`.
  std::shared_ptr<DataFile> Open(std::string_view path, std::string_view asked);

 private:
  std::shared_ptr<DataFile> Attach(const std::string& path, const std::string& asked);
  void AttachStatement(const std::string& path, const std::string& alias, const std::string& asked);
  void Detach(const DataFile& file);
  /// Gives a half opened file up.
  void Abandon(const std::string& alias);
  void DetachLeftovers();

  Connection& connection_;
  NetworkTest onNetwork_;
  std::map<std::string, std::weak_ptr<DataFile>> files_;  ///< by canonical path
  std::vector<std::string> leftovers_;                    ///< could not be detached yet
  int lastNumber_ = 0;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace engine
