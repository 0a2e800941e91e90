#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "engine/sql/ast/expression.h"
#include "engine/sql/ast/source.h"

/// The statements.
namespace engine::sql {

/// `*`, or `T.*` with the table's name.
struct Star {
  std::string table;
  bool operator==(const Star&) const = default;
};

/// An expression with its alias, "" for none.
struct Computed {
  Expression expression;
  std::string alias;
  bool operator==(const Computed&) const = default;
};

using SelectItem = std::variant<Star, Computed>;

struct OrderKey {
  Expression expression;
  bool descending = false;
  bool operator==(const OrderKey&) const = default;
};

enum class Duplicates { All, Distinct, DistinctRow };

struct Select {
  Duplicates duplicates = Duplicates::All;
  std::vector<SelectItem> items;
  std::vector<Source> sources;
  std::optional<std::string> inFile;
  std::optional<Expression> where;
  std::vector<OrderKey> order;
  bool operator==(const Select&) const = default;
};

using ValueList = std::vector<Expression>;

struct Insert {
  std::string table;
  std::optional<std::vector<std::string>> fields;
  std::optional<std::string> inFile;
  std::variant<Select, ValueList> rows;
  bool operator==(const Insert&) const = default;
};

/// `qualifier` is the name of `DELETE T.* FROM`, "" without one.
struct Delete {
  std::string qualifier;
  std::string table;
  std::optional<std::string> inFile;
  std::optional<Expression> where;
  bool operator==(const Delete&) const = default;
};

struct Assignment {
  FieldName field;
  Expression value;
  bool operator==(const Assignment&) const = default;
};

struct Update {
  Source source;
  std::vector<Assignment> assignments;
  std::optional<Expression> where;
  bool operator==(const Update&) const = default;
};

using Statement = std::variant<Select, Insert, Delete, Update>;

}  // namespace engine::sql
