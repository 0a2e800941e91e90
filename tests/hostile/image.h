#pragma once

#include <cstdint>
#include <string>

namespace hostile {

/// The small company on which every case runs: eight customers with sub-records, types, key words and taxes, each customer's of
/// their own content. Made once, put back for each case.
class Image {
 public:
  /// Makes the company in a new folder, in memory where the machine has such a place; or on the tests' server, and the user's own files there.
  explicit Image(bool onServer);
  ~Image();
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;

  /// The company as it was made; what the last case left goes.
  void Restore() const;

  std::string Folder() const { return root_ + "/now/"; }
  std::string CustomerFile() const { return onServer_ ? PlaceOf(kNow) + "orv1/customer.zdb" : Folder() + "data/orv1/customer.zdb"; }
  /// A place for what a child process says on standard error.
  std::string Messages() const { return root_ + "/messages"; }

 private:
  std::string Pattern() const { return root_ + "/pattern/"; }
  static constexpr const char* kNow = "now";
  static std::string PlaceOf(const char* database);
  void MoveToServer() const;

  std::string root_;
  bool onServer_;
};

/// The customer with all kinds of sub-records, on whom the cases begin: neither first nor last of the list.
inline constexpr std::int32_t kCustomer = 3;
/// A customer with transactions, who can't be deleted.
inline constexpr std::int32_t kCustomerWithTransactions = 4;
/// A customer without departmental rates of labor.
inline constexpr std::int32_t kCustomerWithoutRates = 5;
/// A customer who is not billable.
inline constexpr std::int32_t kNonBillable = 2;
/// A type and a key word that no customer has.
inline constexpr std::int16_t kFreeType = 5;
inline constexpr const char* kFreeWord = "Zinc";

}  // namespace hostile
