#include "engine/translate/plan/select_outputs.h"

#include <map>

#include "engine/errors.h"
#include "platform/values/text.h"

namespace engine {
namespace {

class Builder {
 public:
  explicit Builder(StatementScope& scope) : scope_(scope) {}

  std::vector<Output> Run(const std::vector<sql::SelectItem>& items) {
    for (const sql::SelectItem& item : items) {
      if (const auto* star = std::get_if<sql::Star>(&item)) {
        AddStar(*star);
      } else {
        AddComputed(std::get<sql::Computed>(item));
      }
    }
    NameDoubles();
    return std::move(outputs_);
  }

 private:
  const StatementScope::Table& Table(int table) const { return scope_.Tables()[static_cast<std::size_t>(table)]; }

  void Add(Output output, bool aliased) {
    outputs_.push_back(std::move(output));
    aliased_.push_back(aliased);
  }

  void AddStar(const sql::Star& star) {
    if (!star.table.empty()) {
      const std::optional<int> table = scope_.TableNamed(star.table);
      if (!table) throw errors::UnknownTable(star.table);
      AddFieldsOf(*table);
      return;
    }
    for (std::size_t i = 0; i < scope_.Tables().size(); ++i) AddFieldsOf(static_cast<int>(i));
  }

  void AddFieldsOf(int table) {
    const auto& fields = Table(table).table->definition.fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      Add({.name = fields[i].name, .table = table, .field = static_cast<int>(i)}, false);
    }
  }

  void AddComputed(const sql::Computed& item) {
    Output output{.name = item.alias, .expression = &item.expression};
    if (const auto* name = std::get_if<sql::FieldName>(&item.expression.node)) {
      if (const std::optional<ResolvedField> field = scope_.Resolve(*name)) {
        output.table = field->table;
        output.field = field->field;
        if (output.name.empty()) output.name = Table(field->table).table->definition.fields[static_cast<std::size_t>(field->field)].name;
      }
    }
    constexpr int kFirstUnnamed = 1000;
    if (output.name.empty()) output.name = "Expr" + std::to_string(kFirstUnnamed + unnamed_++);
    Add(std::move(output), !item.alias.empty());
  }

  void NameDoubles() {
    std::map<std::string, int> count;
    for (const Output& output : outputs_) ++count[platform::ToLowerAscii(output.name)];
    for (std::size_t i = 0; i < outputs_.size(); ++i) {
      Output& output = outputs_[i];
      if (aliased_[i] || output.table < 0 || count[platform::ToLowerAscii(output.name)] < 2) continue;
      output.name = Table(output.table).name + '.' + output.name;
    }
  }

  StatementScope& scope_;
  std::vector<Output> outputs_;
  std::vector<bool> aliased_;
  int unnamed_ = 0;
};

}  // namespace

std::vector<Output> OutputsOf(const std::vector<sql::SelectItem>& items, StatementScope& scope) { return Builder(scope).Run(items); }

}  // namespace engine
