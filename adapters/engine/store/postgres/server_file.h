#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/store/postgres/connection.h"
#include "engine/store/postgres/schema/definitions.h"
#include "engine/store/store.h"

namespace engine::postgres {

/// One file of a company on a server: a schema.
class ServerFile final : public StoreFile {
 public:
  ServerFile(ServerConnection& connection, std::string schema, std::string path, bool readOnly);

  const std::string& Path() const override { return path_; }
  const std::string& Qualifier() const override { return schema_; }
  bool ReadOnly() const override { return readOnly_; }

  std::int64_t OthersVersion() override { return connection_.OthersVersion(); }
  bool IsTold() const override { return connection_.IsTold(); }
  bool HeardJustNow() const override { return connection_.HeardJustNow(); }
  std::uint64_t OwnVersion() const override { return connection_.Writes(schema_); }
  std::int64_t SchemaVersion() override;

  std::vector<std::string> TableNames() override;
  std::string StoredName(std::string_view table) override;
  platform::TableDefinition ReadTable(const std::string& storedName) override;
  std::int64_t LikelyRows(std::string_view storedName) const override;
  std::string RowKeyOf(const platform::TableDefinition& table) const override { return postgres::RowKeyOf(table); }
  std::int64_t TakeNumber(const platform::TableDefinition& table) override;
  void NumbersGiven(const platform::TableDefinition& table) override;

  std::vector<StoredLink> Links() override;
  void AddLink(const StoredLink& link) override;

 private:
  const std::vector<StoredTable>& Tables();
  void Read();
  std::string Own(std::string_view name) const;
  std::string HighestNumber(const platform::TableDefinition& table) const;

  ServerConnection& connection_;
  std::string schema_;
  std::string path_;
  bool readOnly_;
  bool known_ = false;         ///< the definitions have been read
  std::int64_t version_ = 0;   ///< of the definitions; asked for at the two states below
  std::int64_t knownOthers_ = 0;
  std::uint64_t knownOwn_ = 0;
  std::vector<StoredTable> tables_;
  std::int64_t tablesVersion_ = 0;
  std::optional<std::vector<StoredLink>> links_;  ///< as they were at these two states
  std::int64_t linksOthers_ = 0;
  std::uint64_t linksOwn_ = 0;
};

}  // namespace engine::postgres
