#include "engine/store/postgres/work_estimate.h"

#include <charconv>

#include "engine/store/query.h"

namespace engine::postgres {
namespace {

// "Limit  (cost=0.42..3.67 rows=50 width=8)": what all of it costs.
double CostIn(std::string_view line) {
  const std::size_t from = line.find("..");
  double cost = 0;
  if (from != std::string_view::npos) std::from_chars(line.data() + from + 2, line.data() + line.size(), cost);
  return cost;
}

// A node's name, without the signs of its place in the tree.
std::string_view NodeIn(std::string_view line) {
  const std::size_t from = line.find_first_not_of(" ->");
  if (from == std::string_view::npos || line.find("(cost=") == std::string_view::npos) return {};
  return line.substr(from, line.find("  (cost=") - from);
}

}  // namespace

Estimate EstimateOf(ServerConnection& connection, std::string_view sql, const std::vector<Parameter>& parameters) {
  ServerStatement explain(connection, "EXPLAIN " + std::string(sql), parameters);
  Estimate estimate;
  std::string source;
  for (bool first = true; explain.Step(); first = false) {
    const std::string_view line = explain.Text(0).value_or("");
    if (first) estimate.cost = CostIn(line);
    const std::string_view node = NodeIn(line);
    if (node.empty()) continue;
    if (node == "Sort") estimate.sorts = true;
    // The first leaf is where the first row comes from.
    if (source.empty() && node.find("Scan") != std::string_view::npos) source = node;
  }
  estimate.scans = source.starts_with("Seq Scan") || source.starts_with("Parallel Seq Scan");
  return estimate;
}

bool IsMoreThan(const Estimate& estimate, int rows) {
  // A row on a page of its own, as an index finds it, costs four; those that lie together a fiftieth of that.
  constexpr double kARow = 0.1;
  constexpr double kBeginning = 10;
  return estimate.sorts || estimate.cost > kBeginning + kARow * rows;
}

}  // namespace engine::postgres
