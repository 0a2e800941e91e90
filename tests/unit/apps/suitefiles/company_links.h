#pragma once

#include <string>

#include "engine/data_file.h"
#include "engine/store/sqlite/connection.h"
#include "suitefiles/company/data_access.h"

/// The links that a program makes when it opens a company for the first time.
inline void MakeLinks(const std::string& customer, const std::string& ledger, const std::string& transactions) {
  suitefiles::DataAccess data;
  const auto database = data.Open(customer);
  database->AppendTableDef({"Departments", ";DATABASE=" + ledger, "Departments"});
  database->AppendTableDef({"Transactions", ";DATABASE=" + transactions, "Transactions"});
}
inline void MakeLinks(const std::string& companyFolder) {
  MakeLinks(companyFolder + "/customer.zdb", companyFolder + "/GL.zdb", companyFolder + "/artrans.zdb");
}

/// Links with full paths, as files have them that were linked before paths were kept within their folder.
inline void StoreFullPaths(const std::string& companyFolder) {
  engine::Connection connection(1000);
  connection.Execute("ATTACH '" + companyFolder + "/customer.zdb' AS x");
  connection.Execute("UPDATE x.\"~links\" SET path = '" + companyFolder + "/GL.zdb' WHERE name = 'Departments'");
  connection.Execute("UPDATE x.\"~links\" SET path = '" + companyFolder + "/artrans.zdb' WHERE name = 'Transactions'");
}

/// The path to which a link of a customer file leads.
inline std::string LinkOf(const std::string& customer, const std::string& name) {
  for (const auto& link : engine::LinksOf(customer)) {
    if (link.name == name) return link.path;
  }
  return "";
}
