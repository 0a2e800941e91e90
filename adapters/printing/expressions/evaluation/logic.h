#pragma once

#include <vector>

#include "printing/expressions/evaluation/node.h"

namespace printing {

NodePtr MakeConstant(ValueType type, platform::Value value);
NodePtr MakeField(Names::Place place);
NodePtr MakeTotal(Names::Place place);
NodePtr MakeSystemValue(SystemValue value);

/// And or Or of conditions.
NodePtr MakeChain(Operator operation, std::vector<NodePtr> operands);
NodePtr MakeNot(NodePtr operand);
NodePtr MakeIsNull(NodePtr operand);
/// If, Then, Else; the last two of one type.
NodePtr MakeChoice(NodePtr condition, NodePtr then, NodePtr otherwise);

}  // namespace printing
