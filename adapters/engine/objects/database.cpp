#include "engine/objects/database.h"

#include <algorithm>
#include <optional>

#include "engine/cursor/dynaset_recordset.h"
#include "engine/cursor/table_recordset.h"
#include "engine/errors.h"
#include "engine/lists/list_choice.h"
#include "engine/objects/action.h"
#include "engine/translate/plan/planning.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::RecordsetType;

bool IsStatement(std::string_view source) {
  constexpr std::string_view kSelect = "SELECT";
  return source.size() > kSelect.size() && platform::EqualsNoCase(source.substr(0, kSelect.size()), kSelect) &&
         std::string_view(" \t\r\n[\"'(").find(source[kSelect.size()]) != std::string_view::npos;
}

// Recordsets hold it, and go on with the file's tables when their database has been closed.
std::shared_ptr<DatabaseCatalogue> NewCatalogue(EngineContext& context, std::shared_ptr<StoreFile> file, const std::string& name,
                                                std::shared_ptr<FileMeanings> meanings) {
  struct Both {
    Both(EngineContext& context, std::shared_ptr<StoreFile> ownFile, const std::string& path, std::shared_ptr<FileMeanings> known)
        : file(std::move(known)), catalogue(context, std::move(ownFile), path) {}
    std::shared_ptr<FileMeanings> file;
    DatabaseCatalogue catalogue;
  };
  const auto both = std::make_shared<Both>(context, std::move(file), name, std::move(meanings));
  return {both, &both->catalogue};
}

}  // namespace

OpenDatabase::OpenDatabase(EngineContext& context, MeaningsByFile& meanings, std::shared_ptr<StoreFile> file, std::string name,
                           std::function<void(const OpenDatabase&)> onClose)
    : context_(context),
      file_(meanings.Of(context, file)),
      catalogue_(NewCatalogue(context, std::move(file), name, file_)),
      name_(std::move(name)),
      onClose_(std::move(onClose)) {}

OpenDatabase::~OpenDatabase() = default;

platform::RecordsetRef OpenDatabase::OpenRecordset(std::string_view source, RecordsetType type) {
  const bool mayBeTable = type == RecordsetType::Default || type == RecordsetType::Table;
  const ResolvedTable* table = mayBeTable && !IsStatement(source) ? catalogue_->FindTable(source) : nullptr;
  if (type == RecordsetType::Table) {
    if (table == nullptr) throw errors::ObjectNotFound(source);
    if (table->linked) throw errors::InvalidOperation();
  }
  return Adopt(table != nullptr && !table->linked ? OpenTable(source, *table) : OpenDynaset(source, type));
}

std::shared_ptr<Cursor> OpenDatabase::OpenTable(std::string_view source, const ResolvedTable& table) {
  auto recordset = std::make_shared<TableRecordset>(
      *this, std::string(source),
      std::make_shared<RowSource>(context_, catalogue_,
                                  std::make_shared<RowShape>(PlanWholeTable(table, context_.OwnDialect()), context_.OwnDialect())));
  recordset->StandOnFirst();
  return recordset;
}

std::shared_ptr<Cursor> OpenDatabase::OpenDynaset(std::string_view source, RecordsetType type) {
  if (shapes_.Contains(source) || file_->Contains(source)) {
    // Whether the tables still are as they were, and the first rows, in one reading.
    // (Where asking costs most, its end would cost more than the rows: there tables that have just changed show at the reading.)
    std::optional<Transaction> oneState;
    if (context_.OwnDialect().rowsAtOnce == 1) oneState.emplace(context_.OwnStore(), Transaction::Kind::Read);
    if (const auto shape = KnownShape(source)) {
      auto recordset = OpenShape(source, type, shape);
      if (oneState) oneState->Commit();
      return recordset;
    }
    if (oneState) oneState->Commit();
  }
  return OpenShape(source, type, file_->Plan(source, *catalogue_, shapes_));
}

std::shared_ptr<Cursor> OpenDatabase::OpenShape(std::string_view source, RecordsetType type, std::shared_ptr<const RowShape> shape) {
  const RecordsetType kind = type == RecordsetType::Snapshot ? type : RecordsetType::Dynaset;
  auto list = ChooseList(std::make_shared<RowSource>(context_, catalogue_, std::move(shape)));
  auto recordset = std::make_shared<DynasetRecordset>(*this, std::string(source), kind, std::move(list));
  recordset->StandOnFirst();
  return recordset;
}

// Lists are opened with the same few statements over and over: what a statement means stays so until its tables change.
std::shared_ptr<const RowShape> OpenDatabase::KnownShape(std::string_view source) {
  return shapes_.Contains(source) ? shapes_.Find(source, *catalogue_) : file_->Find(source);
}

void OpenDatabase::Execute(std::string_view sql, int options) {
  recordsAffected_ = 0;
  const Unfit lenient = (options & kExecuteWholeRows) != 0 ? Unfit::Leave : Unfit::Null;
  recordsAffected_ = RunAction(context_, *catalogue_, sql, (options & platform::dbFailOnError) != 0 ? Unfit::Raise : lenient);
}

platform::TableDef OpenDatabase::TableDefAt(int index) {
  auto definitions = catalogue_->ReadTableDefs();
  if (index < 0 || static_cast<std::size_t>(index) >= definitions.size()) throw platform::error::ItemNotFound();
  return std::move(definitions[static_cast<std::size_t>(index)]);
}

platform::RecordsetRef OpenDatabase::RecordsetAt(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= recordsets_.size()) throw platform::error::ItemNotFound();
  return platform::RecordsetRef(recordsets_[static_cast<std::size_t>(index)]);
}

platform::RecordsetRef OpenDatabase::Adopt(std::shared_ptr<platform::Recordset> recordset) {
  recordsets_.push_back(recordset);
  return platform::RecordsetRef(recordset);
}

void OpenDatabase::Release(const platform::Recordset& recordset) {
  std::erase_if(recordsets_, [&](const auto& open) { return open.get() == &recordset; });
}

void OpenDatabase::Close() {
  while (!recordsets_.empty()) {
    const auto last = recordsets_.back();
    last->Close();
  }
  onClose_(*this);
}

}  // namespace engine
