#pragma once

#include <functional>
#include <string>

#include "suitefiles/demo/world.h"

namespace suitefiles::demo {

/// Puts the streets of the company's invented customers into a streets file, where each town lies by the base map. Streets of a run
/// before go. The same customers have the same streets. Of a company with more than 100,000 customers, those of the first ones are made.
/// Gives how many towns, by their ZIPs, have streets now. Raises streets::FileError.
int MakeTownStreets(const World& world, std::int32_t customers, int company, const std::string& baseMap, const std::string& streetsFile,
                    const std::function<void(std::int64_t done, std::int64_t all)>& progress);

}  // namespace suitefiles::demo
