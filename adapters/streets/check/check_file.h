#pragma once

#include <string>
#include <vector>

namespace streets {

/// Looks through a whole streets file: its pages, its boxes, what rows refer to, and its lines. What is wrong, one sentence each with the file's
/// name; nothing when all is well. Changes nothing.
std::vector<std::string> CheckStreetFile(const std::string& path);

}  // namespace streets
