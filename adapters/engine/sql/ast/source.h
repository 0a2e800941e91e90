#pragma once

#include <string>
#include <variant>

#include "engine/sql/ast/expression.h"

/// What stands behind FROM.
namespace engine::sql {

struct Source;

/// A table by its name; `alias` is "" when it has none, `file` is "" when it lies in the statement's own file.
struct TableName {
  std::string name;
  std::string alias;
  std::string file{};
  bool operator==(const TableName&) const = default;

  /// The name under which the statement's fields speak of it.
  const std::string& Visible() const { return alias.empty() ? name : alias; }
};

enum class JoinKind { Inner, Left, Right };
struct Join {
  JoinKind kind = JoinKind::Inner;
  Box<Source> left;
  Box<Source> right;
  Expression on;
  bool inParentheses = false;  ///< written in parentheses of its own
  bool operator==(const Join&) const;
};

struct Source {
  std::variant<TableName, Join> node;
  Span span;
  int height = 1;

  bool operator==(const Source& other) const { return node == other.node; }
};

inline bool Join::operator==(const Join&) const = default;

}  // namespace engine::sql
