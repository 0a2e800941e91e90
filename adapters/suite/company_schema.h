#pragma once

#include <string>
#include <vector>

#include "platform/data/table_definition.h"

/// The tables of the suite's data files that the library works on: every field with type, width and default, every named
/// index. Indexes whose names begin with "x" are there for speed alone.
namespace suite {

enum class DataFile { Dat, Customer, Ledger, Transactions, FlatRate, Temporary };

/// The files that each company has of its own.
inline constexpr DataFile kCompanyFiles[] = {DataFile::Customer, DataFile::Transactions, DataFile::Ledger, DataFile::FlatRate};

/// "customer.zdb", ...; "" for the temporary file, whose name holds the user number.
std::string FileName(DataFile file);

/// "orvTemp<user>.zdb".
std::string TemporaryFileName(int user);

std::vector<platform::TableDefinition> TablesOf(DataFile file);

/// Names of the tables of codes that the setup screens keep and the cards choose from.
std::vector<std::string> CodeTableNames();

}  // namespace suite
