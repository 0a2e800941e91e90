#include "engine/sql/ast/expression.h"

namespace engine::sql {

bool Call::operator==(const Call&) const = default;
bool Unary::operator==(const Unary&) const = default;
bool Binary::operator==(const Binary&) const = default;
bool Chain::operator==(const Chain&) const = default;
bool Like::operator==(const Like&) const = default;
bool IsNull::operator==(const IsNull&) const = default;
bool Between::operator==(const Between&) const = default;
bool InList::operator==(const InList&) const = default;

bool Expression::operator==(const Expression& other) const { return node == other.node; }

}  // namespace engine::sql
