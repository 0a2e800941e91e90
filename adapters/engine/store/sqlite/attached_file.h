#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/sqlite/connection.h"
#include "engine/store/store.h"

namespace engine {

/// One open file. It is attached while somebody holds it; when the store has no room for more files, the one that was not
/// asked for the longest waits outside and is attached again by the next statement that names it.
class AttachedFile final : public StoreFile {
 public:
  /// `asked`: the file's name in messages. `uses` counts the uses of all files of the connection.
  AttachedFile(Connection& connection, int number, std::string path, std::string asked, bool readOnly, bool workFile,
               std::shared_ptr<std::uint64_t> uses);
  ~AttachedFile() override;

  const std::string& Path() const noexcept override { return path_; }
  /// "f1".
  const std::string& Qualifier() const noexcept override { return alias_; }
  bool ReadOnly() const noexcept override { return readOnly_; }
  bool IsWorkFile() const noexcept { return workFile_; }

  /// Changes also when the file was away for a while.
  std::int64_t OthersVersion() override;
  std::uint64_t OwnVersion() const override { return connection_.Writes(number_); }
  std::int64_t SchemaVersion() override;

  std::vector<std::string> TableNames() override;
  std::string StoredName(std::string_view table) override;
  /// Read once for all databases that are open on the file, and again when somebody has changed its tables.
  platform::TableDefinition ReadTable(const std::string& storedName) override;
  std::string RowKeyOf(const platform::TableDefinition& table) const override;
  std::int64_t TakeNumber(const platform::TableDefinition& table) override;

  std::vector<StoredLink> Links() override;
  void AddLink(const StoredLink& link) override;

 private:
  friend class DataFiles;
  struct KnownTable {
    std::int64_t schemaVersion = 0;
    std::int64_t returns = 0;
    platform::TableDefinition definition;
  };
  std::string Own(std::string_view name) const;

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
  std::map<std::string, KnownTable> known_;  ///< by the table's name
  std::function<void(const AttachedFile&)> onGone_;
};

}  // namespace engine
