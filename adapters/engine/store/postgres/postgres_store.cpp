#include "engine/store/postgres/postgres_store.h"

#include "engine/errors.h"
#include "engine/store/postgres/guest_table.h"
#include "engine/store/postgres/open_file.h"
#include "engine/store/postgres/wording/dialect.h"
#include "engine/store/postgres/work_estimate.h"

namespace engine::postgres {

PostgresStore::PostgresStore(Patience patience, Clock clock) : patience_(patience), clock_(std::move(clock)) {}

const Dialect& PostgresStore::OwnDialect() const { return ServerDialect(); }

ServerConnection& PostgresStore::Connected() {
  if (connection_ == nullptr) throw errors::DiskOrNetwork();
  return *connection_;
}

ServerConnection& PostgresStore::ConnectionTo(const Target& target, const std::string& asked) {
  if (connection_ == nullptr) {
    target_ = target;
    connection_ = std::make_unique<ServerConnection>(target, patience_);
    connection_->OnWait(servePainting_);
    connection_->OnMoment(clock_);
  } else if (!target_->SameDatabase(target)) {
    throw platform::Error(errors::DiskOrNetwork().Number(),
                          errors::DiskOrNetwork().Description() + "  '" + asked + "' lies in another database than the files that are open.");
  }
  return *connection_;
}

std::shared_ptr<StoreFile> PostgresStore::Open(std::string_view path, std::string_view asked) {
  const Target target = ParseTarget(path);
  const std::string name(asked);
  ServerConnection& connection = ConnectionTo(target, name);
  connection.NoticeCut();
  if (auto file = files_[target.schema].lock()) return file;
  connection.NameSchema(target.schema, name);
  auto file = std::make_shared<ServerFile>(connection, target.schema, std::string(path), OpenSchema(connection, target.schema, name));
  files_[target.schema] = file;
  return file;
}

std::unique_ptr<GuestTable> PostgresStore::Receive(const platform::TableDefinition& table, const StoreFile& beside) {
  return ReceiveGuest(Connected(), beside.Qualifier(), table, ++lastGuest_);
}

bool PostgresStore::ScansAll(std::string_view sql) { return EstimateOf(Connected(), sql, {}).scans; }

bool PostgresStore::ReadsCheaply(int rows, const std::function<void()>& read) {
  ServerConnection& connection = Connected();
  struct Limited {
    explicit Limited(ServerConnection& limited, int most) : connection(limited) { connection.LimitWork(most); }
    ~Limited() { connection.LimitWork({}); }
    Limited(const Limited&) = delete;
    Limited& operator=(const Limited&) = delete;
    ServerConnection& connection;
  } const limited(connection, rows);
  try {
    read();
    return true;
  } catch (const WorkLimitReached&) {
    return false;
  }
}

bool PostgresStore::ReadsToItsEnd(const std::function<bool()>& goOn, const std::function<void()>& read) {
  ServerConnection& connection = Connected();
  struct Asked {
    Asked(ServerConnection& asks, const std::function<bool()>& asked) : connection(asks) { connection.AskWhetherToGoOn(&asked); }
    ~Asked() { connection.AskWhetherToGoOn(nullptr); }
    Asked(const Asked&) = delete;
    Asked& operator=(const Asked&) = delete;
    ServerConnection& connection;
  } const asked(connection, goOn);
  try {
    read();
    return true;
  } catch (const ReadingGivenUp&) {
    return false;
  }
}

void PostgresStore::OnWait(std::function<void()> servePainting) {
  servePainting_ = std::move(servePainting);
  if (connection_ != nullptr) connection_->OnWait(servePainting_);
}

void PostgresStore::ServePainting() {
  if (connection_ != nullptr) connection_->ServePainting();
}

void PostgresStore::UndoUnit(const Unit& unit) noexcept {
  if (connection_ != nullptr) connection_->UndoUnit(unit);
}

}  // namespace engine::postgres
