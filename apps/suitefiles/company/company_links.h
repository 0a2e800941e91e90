#pragma once

#include <string>
#include <vector>

#include "engine/data_file.h"
#include "suite/company_schema.h"

namespace suitefiles {

/// The file of the same company to which a link of the customer file leads by its name; DataFile::Customer for a link that the screens
/// do not make, which may lead anywhere.
suite::DataFile FileOfLink(const std::string& name);

/// Where the links of `customerFile` are to lead: those of the screens to the company's own files, `placeOf` each; others, where
/// `elsewhere` knows a new place for their file ("" when it does not), to that. Returns sentences on the others that stay as they are.
template <class PlaceOf, class Elsewhere>
std::vector<std::string> PointCompanyLinks(const std::string& customerFile, const PlaceOf& placeOf, const Elsewhere& elsewhere) {
  std::vector<std::string> left;
  auto links = engine::LinksOf(customerFile);
  for (auto& link : links) {
    const auto file = FileOfLink(link.name);
    const std::string place = file != suite::DataFile::Customer ? placeOf(file) : elsewhere(link.path);
    if (place.empty()) left.push_back("the link " + link.name + " leads to " + link.path + " as before");
    if (!place.empty()) link.path = place;
  }
  engine::PointLinks(customerFile, links);
  return left;
}

}  // namespace suitefiles
