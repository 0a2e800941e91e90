#pragma once

#include <span>
#include <string_view>

/// The dialect's functions as the server runs them: how their texts are written.
namespace engine::postgres {

/// A function of every schema. In its body stand "@." for the schema, "@f_" for functions of its own set and FAIL(n) for the
/// statement that ends it with the error of that number.
struct ServerFunction {
  enum class Kind {
    Inner,  ///< only called by the others; never fails
    Sure,   ///< of both sets: for conditions, and for cells; never fails
    Fails,  ///< the same; for conditions it raises, for cells it leaves a mark and is Null
  } kind;
  std::string_view name;        ///< without the set's prefix
  std::string_view parameters;  ///< as declared
  std::string_view result;
  bool nullStays;  ///< Null with a Null argument
  std::string_view body;  ///< of PL/pgSQL behind "BEGIN" or "DECLARE", or one SELECT that takes each parameter once
};

std::span<const ServerFunction> ArithmeticFunctions();
std::span<const ServerFunction> NumberFunctions();
std::span<const ServerFunction> TextFunctions();
std::span<const ServerFunction> DateFunctions();
std::span<const ServerFunction> FormatFunctions();

}  // namespace engine::postgres
