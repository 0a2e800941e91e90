#include "engine/objects/action.h"

#include <algorithm>
#include <vector>

#include "engine/errors.h"
#include "engine/rows/row_editor.h"
#include "engine/store/counter_field.h"
#include "engine/translate/plan/planning.h"
#include "engine/values/field_values.h"
#include "platform/values/convert.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;

std::int32_t RowCount(std::int64_t rows) { return static_cast<std::int32_t>(std::min<std::int64_t>(rows, INT32_MAX)); }

bool BreaksKey(const platform::Error& error) {
  return error.Number() == errors::DuplicateKey().Number() || error.Number() == errors::NullInKey().Number();
}

// An INSERT that says which numbers its rows get.
bool GivesNumbers(const ActionPlan& plan) {
  return plan.kind == ActionPlan::Kind::Insert && !plan.needsCounter && CounterOf(plan.target->definition) != nullptr;
}

// One statement of the store does it all, and undoes it all when it fails.
std::int32_t RunDirect(Store& store, const std::string& sql) {
  Query query(store, std::string_view(sql));
  store.ServedMeanwhile([&] { query.Run(); });
  return RowCount(query.Changed());
}

// Rows whose values must first become those of their fields: read, converted and written one by one, all or none.
class RowByRow {
 public:
  RowByRow(EngineContext& context, const ActionPlan& plan, Unfit unfit)
      : context_(context),
        target_(plan.target->elsewhere != nullptr ? *plan.target->elsewhere : context.OwnStore()),
        dialect_(target_.OwnDialect()),
        plan_(plan),
        unfit_(unfit) {
    isUpdate_ = plan.kind == ActionPlan::Kind::Update;
    write_.text = isUpdate_ ? UpdateText() : InsertText();
  }

  std::int32_t Run() {
    Transaction together(target_, Transaction::Kind::Write);
    if (plan_.target->elsewhere != nullptr) return Carry(together);
    // All rows are read before the first is written: a statement may read the table that it writes.
    std::vector<std::vector<Value>> rows;
    std::vector<std::int64_t> keys;
    ReadRows(rows, keys);
    std::int64_t written = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      written += WriteRow(rows[i], isUpdate_ ? keys[i] : 0) ? 1 : 0;
      Serve(i);
    }
    target_.ServedMeanwhile([&] { together.Commit(); });
    return RowCount(written);
  }

 private:
  // From one store to the other, each row as it comes: however many there are, one is held.
  std::int32_t Carry(Transaction& together) {
    Transaction oneState(context_.OwnStore(), Transaction::Kind::Read);
    std::int64_t written = 0;
    {
      Query query(context_.OwnStore(), std::string_view(plan_.source));
      std::vector<Value> row;
      for (std::size_t read = 1; query.Step(); ++read) {
        row.clear();
        query.Append(row, 0, plan_.sourceTypes);
        written += WriteRow(row, 0) ? 1 : 0;
        Serve(read);
      }
    }
    oneState.Commit();
    target_.ServedMeanwhile([&] { together.Commit(); });
    return RowCount(written);
  }

  const platform::FieldDefinition& Field(std::size_t place) const {
    return plan_.target->definition.fields[static_cast<std::size_t>(plan_.targetFields[place])];
  }

  std::string InsertText() const {
    std::string names;
    std::string places;
    for (std::size_t i = 0; i < plan_.targetFields.size(); ++i) {
      names += (i == 0 ? "" : ", ") + dialect_.Name(Field(i).name);
      places += (i == 0 ? "" : ", ") + dialect_.Parameter(i + 1);
    }
    return "INSERT INTO " + plan_.target->storeName + " (" + names + ") VALUES (" + places + ")";
  }

  std::string UpdateText() const {
    std::string sets;
    for (std::size_t i = 0; i < plan_.targetFields.size(); ++i)
      sets += (i == 0 ? "" : ", ") + dialect_.Name(Field(i).name) + " = " + dialect_.Parameter(i + 1);
    return "UPDATE " + plan_.target->storeName + " SET " + sets + " WHERE " + plan_.target->rowKey + " = " +
           dialect_.Parameter(plan_.targetFields.size() + 1);
  }

  void ReadRows(std::vector<std::vector<Value>>& rows, std::vector<std::int64_t>& keys) {
    Query query(context_.OwnStore(), std::string_view(plan_.source));
    while (query.Step()) {
      const int first = isUpdate_ ? 1 : 0;
      if (isUpdate_) keys.push_back(query.Int(0));
      query.Append(rows.emplace_back(), first, plan_.sourceTypes);
      Serve(rows.size());
    }
  }

  void Serve(std::size_t rows) const {
    constexpr std::size_t kRowsBetweenPaints = 128;
    if (rows % kRowsBetweenPaints == 0) context_.OwnStore().ServePainting();
  }

  Value ForField(std::size_t place, const Value& value) const {
    try {
      return ConvertForField(context_.OwnClock(), Field(place), value);
    } catch (const platform::Error& error) {
      if (unfit_ == Unfit::Null) return platform::Null;
      // A number for a number field can only be out of its range.
      const bool number = error.Number() == errors::DataConversion().Number() && platform::IsNumeric(value);
      if (number && IsNumberField(Field(place).type)) throw errors::NumericOverflow();
      throw;
    }
  }

  static bool IsNumberField(FieldType type) {
    return type == FieldType::Byte || type == FieldType::Short || type == FieldType::Long || type == FieldType::Counter ||
           type == FieldType::Currency || type == FieldType::Double;
  }

  bool WriteRow(const std::vector<Value>& row, std::int64_t key) {
    Query query(target_, write_);
    try {
      for (std::size_t i = 0; i < row.size(); ++i) query.Bind(static_cast<int>(i) + 1, ForField(i, row[i]));
    } catch (const platform::Error&) {
      if (unfit_ != Unfit::Leave) throw;
      return false;
    }
    if (isUpdate_) query.Bind(static_cast<int>(row.size()) + 1, key);
    try {
      query.Run();
      return true;
    } catch (const platform::Error& error) {
      if (unfit_ == Unfit::Raise || !BreaksKey(error)) throw;
      return false;
    }
  }

  EngineContext& context_;
  Store& target_;
  const Dialect& dialect_;
  const ActionPlan& plan_;
  Unfit unfit_;
  bool isUpdate_ = false;
  SqlText write_;
};

std::int32_t Run(EngineContext& context, const ActionPlan& plan, Unfit unfit) {
  if (plan.direct && unfit == Unfit::Raise) return RunDirect(context.OwnStore(), plan.sql);
  if (plan.direct && !plan.lenientSql.empty()) return RunDirect(context.OwnStore(), plan.lenientSql);
  if (plan.direct) {
    // Most often no row breaks a key.
    try {
      return RunDirect(context.OwnStore(), plan.sql);
    } catch (const platform::Error& error) {
      if (!BreaksKey(error)) throw;
    }
  }
  return RowByRow(context, plan, unfit).Run();
}

}  // namespace

std::int32_t RunAction(EngineContext& context, DatabaseCatalogue& catalogue, std::string_view sql, Unfit unfit) {
  const ActionPlan plan = PlanAction(sql, catalogue, context.OwnDialect());
  if (plan.target->file->ReadOnly()) throw errors::ReadOnly();
  const std::int32_t written = Run(context, plan, unfit);
  if (written > 0 && GivesNumbers(plan)) plan.target->file->NumbersGiven(plan.target->definition);
  return written;
}

}  // namespace engine
