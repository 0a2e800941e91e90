#pragma once

#include <string>
#include <vector>

#include "printing/expressions/evaluation/node.h"

namespace printing {

/// A value as a report shows it where nothing else is said; "" for Null.
std::string PlainText(const platform::Value& value);

/// All operands' plain texts, one behind the other. Texts that grow beyond all sense are cut.
NodePtr MakeJoin(std::vector<NodePtr> operands);
/// Trim and UpperCase of a text.
NodePtr MakeTextChange(Function function, NodePtr text);
/// So many characters of a text's left or right end; none for a number below 0.
NodePtr MakeTextPart(Function function, NodePtr text, NodePtr count);
NodePtr MakeLength(NodePtr text);
/// A value in a format; without one its plain text.
NodePtr MakeToText(NodePtr value, NodePtr format);

}  // namespace printing
