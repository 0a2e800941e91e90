#include "engine/store/sqlite/data_files.h"

#include <sqlite3.h>

#include <algorithm>

#include "engine/errors.h"
#include "engine/store/sqlite/names.h"
#include "engine/text/text_order.h"

namespace engine {
namespace {

constexpr int kCacheKilobytes = 8192;

// The path as the store's file names want it: with everything but plain signs as %xx.
std::string FileUri(const std::string& path, std::string_view options) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') || c == '/' ||
                       c == '-' || c == '_' || c == '.';
    if (plain) {
      uri += c;
    } else {
      uri += '%';
      uri += kDigits[byte >> 4];
      uri += kDigits[byte & 15];
    }
  }
  return uri.append(options);
}

std::string InfoQuery(const std::string& alias, std::string_view key) {
  return "SELECT value FROM " + QuoteName(alias) + '.' + QuoteName(kInfoTable) + " WHERE key = " + QuoteText(key);
}

bool HasInfoTable(Connection& connection, const std::string& alias) {
  return AskNumber(connection, "SELECT count(*) FROM " + QuoteName(alias) + ".sqlite_schema WHERE name = " + QuoteText(kInfoTable)) == 1;
}

// Formats and text orders have whole numbers; what can't be read as one is a damaged file.
std::int64_t AskInfo(Connection& connection, const std::string& alias, std::string_view key, const std::string& path) {
  const auto text = connection.AskText(InfoQuery(alias, key));
  std::int64_t number = 0;
  if (!text || text->empty() || text->size() > 9) throw errors::NotADatabase(path);
  for (const char c : *text) {
    if (c < '0' || c > '9') throw errors::NotADatabase(path);
    number = number * 10 + (c - '0');
  }
  return number;
}

}  // namespace

DataFiles::DataFiles(Connection& connection, NetworkTest onNetwork) : connection_(connection), onNetwork_(std::move(onNetwork)) {
  connection_.OnPrepare([this](std::string_view sql) { BringBack(sql); });
}

DataFiles::~DataFiles() {
  connection_.OnPrepare({});
  *alive_ = false;
}

std::shared_ptr<AttachedFile> DataFiles::Open(std::string_view path, std::string_view asked) {
  const std::string name(asked);
  const std::string canonical = CanonicalPath(path, name);
  if (auto file = files_[canonical].lock()) return file;
  if (onNetwork_ ? onNetwork_(canonical) : LiesOnNetwork(canonical)) throw OnNetwork(name);
  DetachLeftovers();
  return Attach(canonical, name);
}

std::shared_ptr<AttachedFile> DataFiles::Attach(const std::string& path, const std::string& asked) {
  RequireDataFile(path, asked);
  MakeRoom({});
  const int number = ++lastNumber_;
  const std::string alias = "f" + std::to_string(number);
  connection_.NameFile(number, asked);
  AttachStatement(path, alias, asked);

  bool workFile = false;
  try {
    if (!HasInfoTable(connection_, alias)) throw errors::UnrecognizedFormat(asked);
    if (AskInfo(connection_, alias, "format", asked) > kFileFormat) throw NewerFormat(asked);
    if (AskInfo(connection_, alias, "text order", asked) > kTextOrderVersion) throw NewerFormat(asked);
    workFile = connection_.AskText(InfoQuery(alias, "kind")) == "work";
    Configure(alias);
    SetSafety(alias, workFile);
  } catch (...) {
    Abandon(alias);
    throw;
  }
  const bool readOnly = sqlite3_db_readonly(connection_.Handle(), alias.c_str()) == 1;
  auto file = std::make_shared<AttachedFile>(connection_, number, path, asked, readOnly, workFile, uses_);
  file->onGone_ = [this, alive = alive_](const AttachedFile& gone) {
    if (*alive) Detach(gone);
  };
  files_[path] = file;
  byNumber_[number] = file.get();
  return file;
}

void DataFiles::Configure(const std::string& alias) {
  connection_.Execute("PRAGMA " + QuoteName(alias) + ".cache_size=" + std::to_string(-kCacheKilobytes));
  connection_.Execute("PRAGMA " + QuoteName(alias) + ".mmap_size=0");
}

// What a work file held is overwritten only where its page is written anyway: its tables are emptied at every run, and to write each
// page of a long one once more would keep the windows waiting.
void DataFiles::SetSafety(const std::string& alias, bool workFile) {
  connection_.Execute("PRAGMA " + QuoteName(alias) + ".synchronous=" + (workFile ? "OFF" : "FULL"));
  if (workFile) AskNumber(connection_, "PRAGMA " + QuoteName(alias) + ".secure_delete=FAST");
}

void DataFiles::BringBack(std::string_view sql) {
  std::vector<AttachedFile*> named;
  bool allThere = true;
  for (const int number : FilesIn(sql)) {
    const auto file = byNumber_.find(number);
    if (file == byNumber_.end()) continue;
    file->second->lastUse_ = ++*uses_;
    named.push_back(file->second);
    allThere = allThere && file->second->attached_ && file->second->safetySet_;
  }
  if (allThere) return;
  for (AttachedFile* file : named) {
    if (!file->attached_) {
      MakeRoom(named);
      AttachAgain(*file);
    }
    // Inside a transaction it can't be set: until then the file is as safe as any.
    if (file->safetySet_ || connection_.InTransaction()) continue;
    file->safetySet_ = true;
    SetSafety(file->alias_, file->workFile_);
  }
}

void DataFiles::AttachAgain(AttachedFile& file) {
  RequireDataFile(CanonicalPath(file.path_, file.asked_), file.asked_);
  file.attached_ = true;  // before the statements below, which name it
  file.safetySet_ = false;
  ++file.returns_;
  try {
    AttachStatement(file.path_, file.alias_, file.asked_);
    Configure(file.alias_);
  } catch (...) {
    file.attached_ = false;
    Abandon(file.alias_);
    throw;
  }
}

void DataFiles::MakeRoom(const std::vector<AttachedFile*>& needed) {
  const auto room = static_cast<std::size_t>(sqlite3_limit(connection_.Handle(), SQLITE_LIMIT_ATTACHED, -1));
  const auto isAttached = [](const auto& file) { return file.second->attached_; };
  DetachLeftovers();
  while (static_cast<std::size_t>(std::count_if(byNumber_.begin(), byNumber_.end(), isAttached)) + leftovers_.size() >= room) {
    std::vector<AttachedFile*> idle;
    for (const auto& [number, file] : byNumber_)
      if (file->attached_ && std::find(needed.begin(), needed.end(), file) == needed.end() && !connection_.Uses(number))
        idle.push_back(file);
    std::sort(idle.begin(), idle.end(), [](const AttachedFile* a, const AttachedFile* b) { return a->lastUse_ < b->lastUse_; });
    connection_.DropStatements();
    // One with a transaction on it stays where it is.
    const auto gone = std::find_if(idle.begin(), idle.end(), [&](const AttachedFile* file) {
      return sqlite3_exec(connection_.Handle(), ("DETACH " + QuoteName(file->alias_)).c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    });
    if (gone == idle.end()) throw errors::TooManyDatabases();
    (*gone)->attached_ = false;
  }
}

void DataFiles::AttachStatement(const std::string& path, const std::string& alias, const std::string& asked) {
  const auto attach = [&](std::string_view way) {
    connection_.Execute("ATTACH " + QuoteText(FileUri(path, way)) + " AS " + QuoteName(alias));
    AskNumber(connection_, "SELECT count(*) FROM " + QuoteName(alias) + ".sqlite_schema");
  };
  try {
    attach("?mode=rw");
  } catch (const platform::Error& error) {
    Abandon(alias);
    // A statement on a file that is not attached yet can't name it.
    if (error.Number() == errors::number::UpdateLocked || error.Number() == errors::number::FileInUse) throw errors::FileInUse(asked);
    if (error.Number() == errors::number::NotADatabase) throw errors::NotADatabase(asked);
    if (error.Number() != errors::number::OpenedExclusively && error.Number() != errors::number::ReadOnly) throw;
    if (MayWriteBeside(path)) throw errors::OpenedExclusively(asked);
    // Who may not write reads along while the store's side files are there. Alone he has none and can't make them, and reading
    // without them would show the file as it once was, or torn, as soon as somebody else writes. So only a file that nobody writes
    // is read in that way.
    if (!NobodyMayWrite(path) || HasLog(path)) throw CantBeReadAlone(asked);
    try {
      attach("?mode=ro&immutable=1");
    } catch (const platform::Error&) {
      Abandon(alias);
      throw errors::OpenedExclusively(asked);
    }
  }
}

void DataFiles::Abandon(const std::string& alias) {
  leftovers_.push_back(alias);
  DetachLeftovers();
}

void DataFiles::Detach(const AttachedFile& file) {
  files_.erase(file.Path());
  byNumber_.erase(file.number_);
  if (file.attached_) Abandon(file.Qualifier());
}

// A file can't be detached while a statement on it runs or a transaction is open; it is tried again before the next attach.
void DataFiles::DetachLeftovers() {
  if (leftovers_.empty()) return;
  connection_.DropStatements();
  std::erase_if(leftovers_, [&](const std::string& alias) {
    const int code = sqlite3_exec(connection_.Handle(), ("DETACH " + QuoteName(alias)).c_str(), nullptr, nullptr, nullptr);
    return code == SQLITE_OK || sqlite3_db_filename(connection_.Handle(), alias.c_str()) == nullptr;
  });
}

}  // namespace engine
