#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

/// A company whose customers other tables filter, and what loops over its tables find in it.
namespace query_lists {

struct Customer {
  std::int32_t account = 0;
  std::string name;
  std::string state;
  std::int32_t points = 0;
};
struct Phone {
  std::int32_t account = 0;
  std::string area;
};
struct Word {
  std::int32_t account = 0;
  std::string text;
};
struct Sale {
  std::int32_t account = 0;
  std::string type;
  std::string number;
};

/// A condition as the query screen writes it, on one table, with the same said of a row.
struct Part {
  std::string table;  ///< "" for the customers
  std::string condition;
  std::function<bool(const Customer&)> own{};
  std::function<bool(const Phone&)> phone{};
  std::function<bool(const Word&)> word{};
  std::function<bool(const Sale&)> sale{};
};

std::vector<Part> Parts();
/// The list of the customers that meet all of them, by name.
std::string StatementOf(const std::vector<Part>& parts, bool descending);
/// As the engine compares texts.
bool Same(const std::string& left, const std::string& right);

class Company {
 public:
  /// Common and rare of everything, names that many share, rows without a customer and several that fit alike.
  explicit Company(std::mt19937& random);

  /// Writes the files: customers, phones and words in the one, sales in the other.
  void Create(const std::string& customerFile, const std::string& salesFile) const;
  /// The accounts that loops over the tables find, in the list's order.
  std::vector<std::int32_t> Expected(const std::vector<Part>& parts, bool descending) const;

  const std::vector<Customer>& Customers() const { return customers_; }
  const std::vector<Word>& Words() const { return words_; }
  Customer& Of(std::int32_t account) { return customers_[static_cast<std::size_t>(account) - 1]; }

 private:
  bool Fits(const Customer& one, const std::vector<Part>& parts) const;

  std::vector<Customer> customers_;
  std::vector<Phone> phones_;
  std::vector<Word> words_;
  std::vector<Sale> sales_;
};

}  // namespace query_lists
