#pragma once

#include <string>

/// The rows that every company begins with.
namespace suitefiles {

/// Phone types, card types, terms and sales rates of "customer.zdb".
void AddBuiltInRows(const std::string& customerFile);

/// The report catalogue of "customer.zdb".
void AddReportRows(const std::string& customerFile);

/// Departments, accounts, ledger rows of one year and the accounting period of "GL.zdb".
void AddLedgerRows(const std::string& ledgerFile, int year);

}  // namespace suitefiles
