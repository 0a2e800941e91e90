#pragma once

#include <memory>
#include <string>
#include <vector>

#include "company.h"
#include "raw/queries.h"

namespace bench {

/// A list that is no plain table: the engine's statement and the bare program's question, and what it is called.
struct Question {
  std::string name;
  std::string statement;
  raw::Query bare;
};

/// Opening it, with its first 50 rows.
Job OpeningOf(Company& company, const std::shared_ptr<raw::Queries>& all, const Question& question);
/// What is done inside it: pages, random positions, finding, counting. Nothing for one without rows.
void AddInside(Company& company, const std::shared_ptr<raw::Queries>& all, const Question& question, std::vector<Job>& jobs);
/// Its first and its last page.
void AddEnds(Company& company, const std::shared_ptr<raw::Queries>& all, const Question& question, std::vector<Job>& jobs);

}  // namespace bench
