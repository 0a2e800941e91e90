#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <utility>

namespace printing {

enum class ExpressionFault {
  Syntax,       ///< it can't be read
  UnknownName,  ///< a field, formula or total that there is not
  Types,        ///< a text where a number must stand, and the like
  TooLarge,     ///< more levels or parts than any expression may have
  Circle,       ///< a formula that needs its own value
};

/// Why an expression can't be used: what is wrong, and the byte of its text where.
class ExpressionError final : public std::exception {
 public:
  ExpressionError(ExpressionFault fault, std::size_t place, std::string text) : fault_(fault), place_(place), text_(std::move(text)) {}

  ExpressionFault Fault() const noexcept { return fault_; }
  std::size_t Place() const noexcept { return place_; }
  const std::string& Text() const noexcept { return text_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  ExpressionFault fault_;
  std::size_t place_;
  std::string text_;
};

}  // namespace printing
