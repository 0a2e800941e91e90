#include "session/recordsets.h"

#include "session/ModCustSch.h"

namespace orcussch {

using platform::RecordsetRef;

namespace {

RecordsetRef Table(const platform::DatabaseRef& db, const char* name) { return db->OpenRecordset(name, platform::RecordsetType::Table); }

}  // namespace

const SessionRecordset kSessionRecordsets[15] = {
    {rsCustomers, [] { return Table(dbCustomer, "Customers"); }},
    {rsLookups, [] { return Table(dbCustomer, "Lookups"); }},
    {rsPhones, [] { return Table(dbCustomer, "Phones"); }},
    {rsKeywords, [] { return Table(dbCustomer, "Keywords"); }},
    {rsLocations, [] { return Table(dbCustomer, "Locations"); }},
    {rsTaxGrid, [] { return Table(dbCustomer, "TaxGrid"); }},
    {rsCustCodes, [] { return Table(dbCustomer, "CustCodes"); }},
    {rsDataCodes, [] { return Table(dbCustomer, "DataCodes"); }},
    {rsSuperCustomers, [] { return Table(dbCustomer, "SuperCustomers"); }},
    {rsTerms, [] { return Table(dbCustomer, "Terms"); }},
    {rsAddresses, [] { return Table(dbCustomer, "Addresses"); }},
    {rsCustCreditCards, [] { return Table(dbCustomer, "CustCreditCards"); }},
    {rsCustLaborRates, [] { return Table(dbCustomer, "CustLaborRates"); }},
    {rsUserStartup,
     [] { return dbCustomer->OpenRecordset("Select * From UserStartup Where (UserNum = " + std::to_string(gUserID) + ");"); }},
    {rsAR, [] { return Table(dbDat, "AR"); }},
};

}  // namespace orcussch
