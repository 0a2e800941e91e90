#include "engine/translate/plan/semi_join.h"

#include <algorithm>

#include "engine/translate/names/walk.h"
#include "engine/translate/plan/bounds.h"

namespace engine {
namespace {

constexpr auto kNowhere = static_cast<std::size_t>(-1);

struct Conjunct {
  const sql::Expression* condition = nullptr;
  TableSet tables = 0;
};

std::string JoinedBy(const std::vector<std::string>& parts, std::string_view word) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : std::string(word)) + part;
  return text;
}

// Two fields that the store compares without a change.
bool ComparePlainly(const ResolvedField& left, const ResolvedField& right) {
  const SqlType a = SqlTypeOf(left.type);
  const SqlType b = SqlTypeOf(right.type);
  if (a == b) return true;
  return IsNumber(a) && IsNumber(b) && a != SqlType::Currency && b != SqlType::Currency;
}

class Builder {
 public:
  Builder(BoundSources& sources, const std::optional<sql::Expression>& where, TableSet kept, Emitter& emitter)
      : sources_(sources), names_(sources.Names()), where_(where), kept_(kept), emitter_(emitter) {}

  SemiJoin Run() {
    GiveAliases('t', 'd');
    if (sources_.HasOuterJoin()) return ByKeys();
    GatherConjuncts();
    SemiJoin byRow;
    AskByRow(byRow);
    std::optional<SemiJoin> grouped = ByGroups();
    SemiJoin result = grouped ? *std::move(grouped) : ByKeys();
    result.rowWhere = std::move(byRow.rowWhere);
    result.drivers = std::move(byRow.drivers);
    return result;
  }

 private:
  bool IsKept(int table) const { return (kept_ & TableBit(table)) != 0; }

  void GiveAliases(char kept, char others) {
    std::vector<std::string> aliases;
    aliases.reserve(static_cast<std::size_t>(sources_.TableCount()));
    int keptCount = 0;
    int otherCount = 0;
    for (int i = 0; i < sources_.TableCount(); ++i) {
      aliases.push_back(IsKept(i) ? kept + std::to_string(keptCount++) : others + std::to_string(otherCount++));
    }
    names_.SetAliases(aliases);
  }

  std::string TablesText(TableSet tables) const {
    std::vector<std::string> parts;
    for (int i = 0; i < sources_.TableCount(); ++i) {
      if ((tables & TableBit(i)) != 0) parts.push_back(sources_.EmitTable(i));
    }
    return JoinedBy(parts, emitter_.GetForms().GetDialect().joinAll);
  }

  // By groups --------------------------------------------------------------------------------------------------------

  std::vector<std::string> OwnConditions() {
    std::vector<std::string> conditions;
    for (const Conjunct& conjunct : conjuncts_)
      if ((conjunct.tables & ~kept_) == 0) conditions.push_back(emitter_.Conjunct(*conjunct.condition));
    return conditions;
  }

  std::optional<SemiJoin> ByGroups() {
    std::vector<std::string> conditions = OwnConditions();
    for (TableSet rest = sources_.AllTables() & ~kept_; rest != 0;) {
      const TableSet group = GroupOf(rest & (~rest + 1));
      rest &= ~group;
      std::optional<std::string> condition = GroupCondition(group);
      if (!condition) return std::nullopt;
      conditions.push_back(*std::move(condition));
    }
    return SemiJoin{.from = TablesText(kept_), .where = JoinedBy(conditions, " AND ")};
  }

  void GatherConjuncts() {
    std::vector<const sql::Expression*> parts;
    for (const sql::Expression* condition : sources_.Conditions()) SplitConjuncts(*condition, parts);
    if (where_) SplitConjuncts(*where_, parts);
    for (const sql::Expression* part : parts) conjuncts_.push_back({.condition = part, .tables = TablesOf(*part, names_)});
  }

  // The dropped tables that conditions tie to `start`, itself included.
  TableSet GroupOf(TableSet start) const {
    TableSet group = start;
    for (bool grown = true; grown;) {
      grown = false;
      for (const Conjunct& conjunct : conjuncts_) {
        const TableSet dropped = conjunct.tables & ~kept_;
        if ((dropped & group) == 0 || (dropped & ~group) == 0) continue;
        group |= dropped;
        grown = true;
      }
    }
    return group;
  }

  std::optional<std::string> GroupCondition(TableSet group) {
    const sql::Expression* tie = nullptr;
    std::vector<std::string> inner;
    for (const Conjunct& conjunct : conjuncts_) {
      if ((conjunct.tables & group) == 0) continue;
      if ((conjunct.tables & kept_) == 0) {
        inner.push_back(emitter_.Conjunct(*conjunct.condition));
      } else if (tie == nullptr) {
        tie = conjunct.condition;
      } else {
        return std::nullopt;
      }
    }
    const std::string behind = " FROM " + TablesText(group) + (inner.empty() ? "" : " WHERE " + JoinedBy(inner, " AND ")) + ')';
    if (tie == nullptr) return "EXISTS (SELECT 1" + behind;
    std::optional<FieldEquality> equality = FieldEqualityOf(*tie, names_);
    if (!equality || !ComparePlainly(equality->left, equality->right)) return std::nullopt;
    if (!IsKept(equality->left.table)) std::swap(equality->left, equality->right);
    if (!IsKept(equality->left.table) || IsKept(equality->right.table)) return std::nullopt;
    const bool text = SqlTypeOf(equality->left.type) == SqlType::Text;
    const auto compared = [&](const ResolvedField& field) { return text && !field.comparable.empty() ? field.comparable : field.sql; };
    return compared(equality->left) + (text ? emitter_.GetForms().Collate() : "") + " IN (SELECT " + compared(equality->right) + behind;
  }

  // Row by row -----------------------------------------------------------------------------------------------------------

  // What one table that gives no output is asked for each row: the fields that tie it, and its conditions.
  struct Question {
    std::optional<FieldEquality> tie;                                    // left: of a kept table
    std::vector<std::string> all;                                        // every condition that speaks of it
    std::vector<std::pair<std::string, std::optional<FieldBound>>> own;  // those that speak of it alone
    std::vector<int> fixed;                                              // its fields that conditions hold to one value
    bool mixed = false;                                                  // conditions beside the tie speak of other tables, too

    // Answered by comparing whole values: such a question comes first, the quicker one, and mostly the one that leaves more out.
    bool Plain() const { return !mixed && fixed.size() == own.size(); }
  };

  Question QuestionOf(int table) {
    Question question;
    for (const Conjunct& conjunct : conjuncts_) {
      if ((conjunct.tables & TableBit(table)) == 0) continue;
      question.all.push_back(emitter_.Conjunct(*conjunct.condition));
      if (conjunct.tables == TableBit(table)) {
        question.own.emplace_back(question.all.back(), FieldBoundOf(*conjunct.condition, names_));
        if (const auto& bound = question.own.back().second; bound && bound->equals) question.fixed.push_back(bound->field);
        continue;
      }
      std::optional<FieldEquality> equality = FieldEqualityOf(*conjunct.condition, names_);
      if (equality && !IsKept(equality->left.table)) std::swap(equality->left, equality->right);
      const bool ties = equality && IsKept(equality->left.table) && equality->right.table == table &&
                        ComparePlainly(equality->left, equality->right) && !IndexFor(*equality, {}).empty();
      if (ties && !question.tie)
        question.tie = std::move(equality);
      else
        question.mixed = true;
    }
    return question;
  }

  // The index by which the table's rows for one kept row are found: of those on the tie's field the one that holds the most of
  // the fields that are fixed as well. "" for none.
  std::string IndexFor(const FieldEquality& tie, const std::vector<int>& fixed) const {
    const platform::TableDefinition& definition = names_.Tables()[static_cast<std::size_t>(tie.right.table)].table->definition;
    const auto fieldAt = [&](const std::string& name) { return FieldPlace(definition, name); };
    std::string best;
    std::size_t most = 0;
    std::size_t width = 0;
    for (const platform::IndexDefinition& index : definition.indexes) {
      if (fieldAt(index.fields.front()) != tie.right.field) continue;
      std::size_t held = 1;
      while (held < index.fields.size() && std::ranges::find(fixed, fieldAt(index.fields[held])) != fixed.end()) ++held;
      if (held < most || (held == most && index.fields.size() >= width)) continue;
      best = index.name;
      most = held;
      width = index.fields.size();
    }
    return best;
  }

  // Nothing when one of the others is tied in another way than by a field with an index: asking it for each row would be a
  // look at the whole of it.
  void AskByRow(SemiJoin& result) {
    std::vector<std::pair<int, Question>> questions;
    for (int table = 0; table < sources_.TableCount(); ++table) {
      if (IsKept(table)) continue;
      if (GroupOf(TableBit(table)) != TableBit(table)) return;
      questions.emplace_back(table, QuestionOf(table));
      if (!questions.back().second.tie) return;
    }
    std::stable_partition(questions.begin(), questions.end(), [](const auto& each) { return each.second.Plain(); });
    std::vector<std::string> conditions = OwnConditions();
    std::vector<std::pair<std::size_t, PlanDriver>> drivers;  // with the place of their own question
    for (const auto& [table, question] : questions) {
      // A row key needs no index, and its own is for show.
      const std::string along =
          question.tie->right.type == platform::FieldType::Counter
              ? ""
              : emitter_.GetForms().GetDialect().Along(names_.Tables()[static_cast<std::size_t>(table)].table->definition.name,
                                                       IndexFor(*question.tie, question.fixed));
      const std::string asks =
          "EXISTS (SELECT 1 FROM " + sources_.EmitTable(table) + along + " WHERE " + JoinedBy(question.all, " AND ") + ')';
      if (LeadsToKeys(*question.tie)) {
        bool whole = true;
        PlanDriver driver = DriverOf(table, question, whole);
        driver.asks = asks;
        drivers.emplace_back(whole && !question.mixed ? conditions.size() : kNowhere, std::move(driver));
      }
      conditions.push_back(asks);
    }
    result.rowWhere = JoinedBy(conditions, " AND ");
    for (auto& [place, driver] : drivers) {
      std::vector<std::string> rest = conditions;
      if (place != kNowhere) rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(place));
      driver.rest = JoinedBy(rest, " AND ");
      result.drivers.push_back(std::move(driver));
    }
  }

  // The keys to which an index of the table leads: by the conditions on its fields alone, so that each step through it gives a key.
  // Without one, those of all its rows that fit. `whole`: no condition on the table is left out.
  PlanDriver DriverOf(int table, const Question& question, bool& whole) {
    const StatementScope::Table& entry = names_.Tables()[static_cast<std::size_t>(table)];
    const platform::TableDefinition& definition = entry.table->definition;
    const auto isBound = [&](const std::string& name) {
      return std::ranges::any_of(question.own,
                                 [&](const auto& each) { return each.second && each.second->field == FieldPlace(definition, name); });
    };
    const platform::IndexDefinition* best = nullptr;
    for (const platform::IndexDefinition& index : definition.indexes) {
      const int first = FieldPlace(definition, index.fields.front());
      if (!isBound(index.fields.front()) || definition.fields[static_cast<std::size_t>(first)].type == platform::FieldType::Counter)
        continue;
      const auto holdsTie = [&](const platform::IndexDefinition& each) {
        return std::ranges::any_of(each.fields,
                                   [&](const std::string& name) { return FieldPlace(definition, name) == question.tie->right.field; });
      };
      if (best == nullptr || (holdsTie(index) && !holdsTie(*best))) best = &index;
    }
    std::vector<std::string> conditions;
    whole = true;
    for (const auto& [condition, bound] : question.own) {
      const bool byIndex =
          best != nullptr && bound && std::ranges::any_of(best->fields, [&, field = bound->field](const std::string& name) {
            return FieldPlace(definition, name) == field;
          });
      if (best == nullptr || byIndex)
        conditions.push_back(condition);
      else
        whole = false;
    }
    PlanDriver driver{.keys = "SELECT " + question.tie->right.sql + " AS k FROM " + sources_.EmitTable(table), .asks = {}, .rest = {}};
    if (best != nullptr) driver.keys += emitter_.GetForms().GetDialect().Along(definition.name, best->name);
    if (best == nullptr) {
      driver.pieceKey = KeyOf(table);
      driver.pieceTable = entry.table->storeName + " AS " + entry.alias;
      driver.keys += " WHERE " + (conditions.empty() ? "" : JoinedBy(conditions, " AND ") + " AND ");
    } else {
      driver.keys += " WHERE " + JoinedBy(conditions, " AND ");
    }
    return driver;
  }

  // Whether the tie's other side names row keys of the one table that is kept.
  bool LeadsToKeys(const FieldEquality& tie) const {
    using platform::FieldType;
    const FieldType other = tie.right.type;
    const bool whole = other == FieldType::Long || other == FieldType::Counter || other == FieldType::Short || other == FieldType::Byte;
    return tie.left.type == FieldType::Counter && whole && kept_ == TableBit(tie.left.table);
  }

  // By keys ----------------------------------------------------------------------------------------------------------

  SemiJoin ByKeys() {
    GiveAliases('k', 'd');
    std::string inner = " FROM " + sources_.Emit(emitter_);
    if (where_) inner += " WHERE " + emitter_.Condition(*where_);
    std::vector<std::string> keys;
    std::vector<std::string> innerKeys;
    for (int i = 0; i < sources_.TableCount(); ++i) {
      if (!IsKept(i)) continue;
      innerKeys.push_back(KeyOf(i));
      keptTables_.push_back(i);
    }
    GiveAliases('t', 'd');
    for (const int table : keptTables_) keys.push_back(KeyOf(table));
    if (keptTables_.size() == 1 && (sources_.Nullable() & kept_) == 0) {
      return {.from = sources_.EmitTable(keptTables_[0]), .where = keys[0] + " IN (SELECT " + innerKeys[0] + inner + ')'};
    }
    std::string list;
    std::string joins;
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const std::string name = 'c' + std::to_string(i);
      list += (i == 0 ? "" : ", ") + innerKeys[i] + " AS " + name;
      joins += " LEFT JOIN " + sources_.EmitTable(keptTables_[i]) + " ON " + keys[i] + " = k." + name;
    }
    return {.from = "(SELECT DISTINCT " + list + inner + ") AS k" + joins, .where = {}, .joins = true};
  }

  std::string KeyOf(int table) const {
    const StatementScope::Table& entry = names_.Tables()[static_cast<std::size_t>(table)];
    return entry.alias + '.' + entry.table->rowKey;
  }

  BoundSources& sources_;
  StatementScope& names_;
  const std::optional<sql::Expression>& where_;
  TableSet kept_;
  Emitter& emitter_;
  std::vector<Conjunct> conjuncts_;
  std::vector<int> keptTables_;
};

}  // namespace

SemiJoin BuildSemiJoin(BoundSources& sources, const std::optional<sql::Expression>& where, TableSet kept, Emitter& emitter) {
  return Builder(sources, where, kept, emitter).Run();
}

}  // namespace engine
