#include "raw/taxes.h"

#include <utility>

namespace bench::raw {
namespace {

const std::string kTypes = "SELECT TaxType, TypeDescription, TypeCode FROM f1.TaxTypes";
const std::string kEntities = "SELECT TaxEntity, EntityDescription FROM f1.TaxEntities";
const std::string kRates =
    "SELECT g.*, t.TypeDescription, e.EntityDescription FROM f1.TaxGrid g LEFT JOIN f1.TaxTypes t ON t.TaxType = g.TaxType"
    " LEFT JOIN f1.TaxEntities e ON e.TaxEntity = g.TaxEntity";

Rows Taken(Statement& statement, int count) {
  Rows rows;
  rows.columns = static_cast<std::size_t>(statement.Columns());
  for (int i = 0; i < count && statement.Step(); ++i) statement.CopyRow(rows);
  statement.Reset();
  return rows;
}

Rows Opened(sqlite3* db, const std::string& list, const char* key, int count) {
  Statement open(db, list + " ORDER BY " + key + " LIMIT ?1");
  open.Bind(1, std::int64_t{count});
  return Taken(open, count);
}

void RunOnce(Statement& statement) {
  statement.Step();
  statement.Reset();
}

std::int64_t Count(sqlite3* db, const char* table) {
  Statement count(db, std::string("SELECT count(*) FROM f1.") + table);
  count.Step();
  return count.Int(0);
}

}  // namespace

struct Taxes::Statements {
  explicit Statements(sqlite3* connection)
      : db(connection),
        rate(db, kRates + " WHERE g.TaxID = ?1"),
        saveRate(db,
                 "UPDATE f1.TaxGrid SET Description = ?2, TaxType = ?3, TaxEntity = ?4, TaxCode = '', Mat = 0, Lab = 0, Oth = 0,"
                 " GLMat = '00000000', GLLab = '00000000', GLOth = '00000000', [Limit] = 0, LimitTransType = 'I', Comment = ?5"
                 " WHERE TaxID = ?1"),
        ratesBehind(db, kRates + " WHERE g.TaxID > ?1 ORDER BY g.TaxID LIMIT ?2"),
        type(db, kTypes + " WHERE TaxType = ?1"),
        saveType(db, "UPDATE f1.TaxTypes SET TypeDescription = ?2, TypeCode = 'S' WHERE TaxType = ?1"),
        typesBehind(db, kTypes + " WHERE TaxType > ?1 ORDER BY TaxType LIMIT ?2") {}

  sqlite3* db;
  Statement rate, saveRate, ratesBehind, type, saveType, typesBehind;
};

Taxes::Taxes(Store& customers) : statements_(std::make_unique<Statements>(customers.Handle())) {}

Taxes::~Taxes() = default;

void Taxes::FillUp(int rows) {
  Statement begin(statements_->db, "BEGIN");
  RunOnce(begin);
  const std::pair<const char*, const char*> tables[] = {
      {"TaxTypes", "INSERT INTO f1.TaxTypes (TypeDescription, TypeCode) VALUES (?1, 'S')"},
      {"TaxEntities", "INSERT INTO f1.TaxEntities (EntityDescription) VALUES (?1)"},
      {"TaxGrid",
       "INSERT INTO f1.TaxGrid (Description, TaxType, TaxEntity, GLMat, GLLab, GLOth, LimitTransType) VALUES (?1,"
       " (SELECT max(TaxType) FROM f1.TaxTypes), (SELECT max(TaxEntity) FROM f1.TaxEntities), '00000000', '00000000', '00000000', 'I')"}};
  for (const auto& [table, statement] : tables) {
    Statement add(statements_->db, statement);
    for (std::int64_t i = Count(statements_->db, table); i < rows; ++i) {
      const std::string name = "Tax " + std::to_string(i * 7919 % 1'000'003);
      add.Bind(1, std::string_view(name));
      RunOnce(add);
    }
  }
  Statement commit(statements_->db, "COMMIT");
  RunOnce(commit);
}

Rows Taxes::OpenTypes(int count) { return Opened(statements_->db, kTypes, "TaxType", count); }
Rows Taxes::OpenEntities(int count) { return Opened(statements_->db, kEntities, "TaxEntity", count); }
Rows Taxes::OpenRates(int count) { return Opened(statements_->db, kRates, "TaxID", count); }

void Taxes::SaveRate(std::int64_t key, const std::string& comment) {
  statements_->rate.Bind(1, key);
  const Rows row = Taken(statements_->rate, 1);
  const std::string description = std::get<std::string>(row.Row(0)[1]);
  Statement& save = statements_->saveRate;
  save.Bind(1, key);
  save.Bind(2, std::string_view(description));
  save.Bind(3, std::get<std::int64_t>(row.Row(0)[2]));
  save.Bind(4, std::get<std::int64_t>(row.Row(0)[3]));
  save.Bind(5, std::string_view(comment));
  RunOnce(save);
}

void Taxes::SaveType(std::int64_t key, const std::string& name) {
  statements_->type.Bind(1, key);
  Taken(statements_->type, 1);
  Statement& save = statements_->saveType;
  save.Bind(1, key);
  save.Bind(2, std::string_view(name));
  RunOnce(save);
}

Rows Taxes::RatesBehind(std::int64_t key, int count) {
  statements_->ratesBehind.Bind(1, key);
  statements_->ratesBehind.Bind(2, std::int64_t{count});
  return Taken(statements_->ratesBehind, count);
}

Rows Taxes::TypesBehind(std::int64_t key, int count) {
  statements_->typesBehind.Bind(1, key);
  statements_->typesBehind.Bind(2, std::int64_t{count});
  return Taken(statements_->typesBehind, count);
}

}  // namespace bench::raw
