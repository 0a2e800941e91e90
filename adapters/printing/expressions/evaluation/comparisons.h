#pragma once

#include <compare>
#include <optional>
#include <string>
#include <vector>

#include "printing/expressions/evaluation/node.h"
#include "printing/expressions/text_rules.h"

namespace printing {

/// How two values of one type stand to one another, as the store orders them; nothing when one is Null.
std::optional<int> CompareValues(const platform::Value& left, const platform::Value& right, const TextRules& rules);

/// Both operands of one type. `rules` must outlive the node.
NodePtr MakeComparison(Operator operation, NodePtr left, NodePtr right, const TextRules& rules);
NodePtr MakeInList(NodePtr tested, std::vector<NodePtr> list, const TextRules& rules);
NodePtr MakeInRange(NodePtr tested, NodePtr low, NodePtr high, const TextRules& rules);
/// A text against a pattern of the data engine.
NodePtr MakeLike(NodePtr tested, const std::string& enginePattern, const TextRules& rules);

}  // namespace printing
