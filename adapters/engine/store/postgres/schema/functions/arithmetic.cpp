#include <array>

#include "engine/store/postgres/schema/functions/texts.h"

namespace engine::postgres {
namespace {

using Kind = ServerFunction::Kind;

// Whole numbers are 64 bits wide until their range is tested; an amount that leaves these is an error at once. Real numbers go on
// beyond all others, and towards 0, where the server's own operators would fail.
constexpr std::array<ServerFunction, 29> kFunctions{{
    {Kind::Sure, "addlong", "a bigint, b bigint", "bigint", true, "SELECT $1 + $2"},
    {Kind::Sure, "sublong", "a bigint, b bigint", "bigint", true, "SELECT $1 - $2"},
    {Kind::Sure, "mullong", "a bigint, b bigint", "bigint", true, "SELECT $1 * $2"},
    {Kind::Sure, "neglong", "a bigint", "bigint", true, "SELECT -$1"},
    {Kind::Fails, "addcur", "a bigint, b bigint", "bigint", true, R"(
  IF (b >= 0 AND a > 9223372036854775807 - b) OR (b < 0 AND a < -9223372036854775808 - b) THEN FAIL(6); END IF;
  RETURN a + b;)"},
    {Kind::Fails, "subcur", "a bigint, b bigint", "bigint", true, R"(
  IF (b < 0 AND a > 9223372036854775807 + b) OR (b >= 0 AND a < -9223372036854775808 + b) THEN FAIL(6); END IF;
  RETURN a - b;)"},
    {Kind::Fails, "timescur", "a bigint, b bigint", "bigint", true, R"(
  IF abs(a::numeric * b + 0.5) > 9223372036854775807.5 THEN FAIL(6); END IF;
  RETURN a * b;)"},
    {Kind::Fails, "negcur", "a bigint", "bigint", true, R"(
  IF a = -9223372036854775808 THEN FAIL(6); END IF;
  RETURN -a;)"},
    {Kind::Inner, "real_sum", "a float8, b float8", "float8", true, R"(
  IF abs(a) < 8e307 AND abs(b) < 8e307 THEN RETURN a + b; END IF;
  BEGIN
    RETURN nullif(a + b, 'NaN');
  EXCEPTION WHEN numeric_value_out_of_range THEN
    RETURN CASE WHEN a < 0 THEN '-Infinity'::float8 ELSE 'Infinity'::float8 END;
  END;)"},
    {Kind::Inner, "real_product", "a float8, b float8", "float8", true, R"(
  IF abs(a) < 1e150 AND abs(b) < 1e150 AND (abs(a) > 1e-150 OR a = 0) AND (abs(b) > 1e-150 OR b = 0) THEN RETURN a * b; END IF;
  BEGIN
    RETURN nullif(a * b, 'NaN');
  EXCEPTION WHEN numeric_value_out_of_range THEN
    IF log(abs(a)) + log(abs(b)) < 0 THEN RETURN 0; END IF;
    RETURN CASE WHEN (a < 0) = (b < 0) THEN 'Infinity'::float8 ELSE '-Infinity'::float8 END;
  END;)"},
    {Kind::Inner, "real_quotient", "a float8, b float8", "float8", true, R"(
  IF abs(a) < 1e150 AND abs(b) < 1e150 AND abs(b) > 1e-150 AND (abs(a) > 1e-150 OR a = 0) THEN RETURN a / b; END IF;
  BEGIN
    RETURN nullif(a / b, 'NaN');
  EXCEPTION WHEN numeric_value_out_of_range THEN
    IF log(abs(a)) - log(abs(b)) < 0 THEN RETURN 0; END IF;
    RETURN CASE WHEN (a < 0) = (b < 0) THEN 'Infinity'::float8 ELSE '-Infinity'::float8 END;
  END;)"},
    {Kind::Sure, "addreal", "a float8, b float8", "float8", true, "SELECT @.real_sum($1, $2)"},
    {Kind::Sure, "subreal", "a float8, b float8", "float8", true, "SELECT @.real_sum($1, -$2)"},
    {Kind::Sure, "mulreal", "a float8, b float8", "float8", true, "SELECT @.real_product($1, $2)"},
    {Kind::Sure, "divreal", "a float8, b float8", "float8", true, "SELECT @.real_quotient($1, $2)"},

    {Kind::Fails, "divide", "a float8, b float8", "float8", true, R"(DECLARE
  quotient float8;
BEGIN
  IF b = 0 THEN FAIL(11); END IF;
  quotient := @.real_quotient(a, b);
  IF quotient IS NULL OR quotient IN ('Infinity', '-Infinity') THEN FAIL(6); END IF;
  RETURN quotient;)"},
    {Kind::Fails, "intdiv", "a float8, b float8", "bigint", true, R"(DECLARE
  number bigint := @f_clng(a);
  divisor bigint := @f_clng(b);
BEGIN
  IF divisor = 0 THEN FAIL(11); END IF;
  IF number / divisor > 2147483647 THEN FAIL(6); END IF;
  RETURN number / divisor;)"},
    {Kind::Fails, "modulo", "a float8, b float8", "bigint", true, R"(DECLARE
  number bigint := @f_clng(a);
  divisor bigint := @f_clng(b);
BEGIN
  IF divisor = 0 THEN FAIL(11); END IF;
  RETURN number % divisor;)"},
    {Kind::Fails, "power", "a float8, b float8", "float8", true, R"(DECLARE
  result float8;
BEGIN
  IF (a < 0 AND b <> trunc(b)) OR (a = 0 AND b < 0) THEN FAIL(5); END IF;
  BEGIN
    result := power(a, b);
  EXCEPTION WHEN numeric_value_out_of_range THEN
    IF log(abs(a)) * sign(b) < 0 THEN RETURN 0; END IF;
    result := 'Infinity';
  END;
  IF result IN ('Infinity', '-Infinity', 'NaN') THEN FAIL(6); END IF;
  RETURN result;)"},
    // Half a ten-thousandth goes to the even neighbour.
    {Kind::Fails, "mulcur", "a bigint, b bigint", "bigint", true, R"(DECLARE
  amount numeric := @.half_even(a::numeric * b * 0.0001);
BEGIN
  IF amount NOT BETWEEN -9223372036854775808 AND 9223372036854775807 THEN FAIL(6); END IF;
  RETURN amount;)"},

    {Kind::Fails, "fitbyte", "a bigint", "bigint", true, R"(
  IF a NOT BETWEEN 0 AND 255 THEN FAIL(6); END IF;
  RETURN a;)"},
    {Kind::Fails, "fitshort", "a bigint", "bigint", true, R"(
  IF a NOT BETWEEN -32768 AND 32767 THEN FAIL(6); END IF;
  RETURN a;)"},
    {Kind::Fails, "fitlong", "a bigint", "bigint", true, R"(
  IF a NOT BETWEEN -2147483648 AND 2147483647 THEN FAIL(6); END IF;
  RETURN a;)"},
    {Kind::Fails, "fitcur", "a numeric", "bigint", true, R"(
  IF a NOT BETWEEN -9223372036854775808 AND 9223372036854775807 THEN FAIL(6); END IF;
  RETURN a;)"},

    // A number for another: one overload for each type by which the server knows whole numbers, or it would take the real one.
    {Kind::Sure, "abs", "a smallint", "bigint", true, "SELECT abs($1::bigint)"},
    {Kind::Sure, "abs", "a integer", "bigint", true, "SELECT abs($1::bigint)"},
    {Kind::Sure, "abs", "a bigint", "bigint", true, "SELECT CASE $1 WHEN -9223372036854775808 THEN -9223372036854775808 ELSE abs($1) END"},
    {Kind::Sure, "abs", "a float8", "float8", true, "SELECT abs($1)"},
    {Kind::Sure, "sgn", "a float8", "bigint", true, "SELECT sign($1)::bigint"},
}};

}  // namespace

std::span<const ServerFunction> ArithmeticFunctions() { return kFunctions; }

}  // namespace engine::postgres
