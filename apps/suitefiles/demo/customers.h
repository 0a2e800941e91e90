#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "suitefiles/demo/people.h"

namespace suitefiles::demo {

enum class Standing : std::int16_t { Active = 0, Inactive = 1, Prospect = 2 };

/// What other rows of a customer are made from. Account numbers run from 1 on.
struct Identity {
  std::int32_t account = 0;
  bool company = false;
  Standing standing = Standing::Active;
  char laborRateType = 'N';
  const City* city = nullptr;
};
Identity MakeIdentity(const World& world, std::int32_t account);

/// Who a customer is and where.
struct Contact {
  Name name;
  Street street;
  std::string zip;
  std::string eMail;
  std::string webSite;
};
Contact MakeContact(const World& world, const Identity& identity);

/// How a customer is billed. Amounts are in cents.
struct Account {
  std::int32_t terms = 4;
  bool nonBillable = false;
  std::string taxId;
  std::optional<int> exemptUntil;
  std::optional<bool> ageFromInvoice;
  std::optional<bool> noFinanceCharge;
  std::int64_t creditLimit = -100;
  bool creditHold = false;
  std::int32_t mapCode = 0;  ///< number of the map code, 0 for none
  char salesRate = 'R';
  double salesRatePercent = 0;
  std::int64_t laborRate = 0;
  std::int32_t taxes[4] = {0, 0, 0, 0};
  std::string comments;
};
Account MakeAccount(const World& world, const Identity& identity);

/// Figures and days that other programs of the suite keep. Amounts are in cents, days are serials.
struct History {
  std::int64_t financeCharge = 0;
  std::int64_t balance = 0;
  std::int64_t paidThisMonth = 0;
  std::int64_t paidThisYear = 0;
  std::int64_t paidLastYear = 0;
  std::int64_t paidToDate = 0;
  int entry = 0;
  std::optional<int> lastTransaction;
  std::optional<int> lastOrder;
  std::optional<int> lastStatement;
  std::optional<int> lastPayment;
};
History MakeHistory(const World& world, const Identity& identity);

}  // namespace suitefiles::demo
