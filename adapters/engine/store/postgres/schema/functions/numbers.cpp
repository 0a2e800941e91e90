#include <array>

#include "engine/store/postgres/schema/functions/texts.h"

namespace engine::postgres {
namespace {

using Kind = ServerFunction::Kind;

// Reading numbers. One that a text spells is {"-" or "", its digits without leading zeros, the power of ten that they count, the bits of
// one that is written as "&H" or "&O"}.
constexpr std::array<ServerFunction, 21> kFunctions{{
    {Kind::Inner, "half_even", "v numeric", "numeric", true, R"(DECLARE
  whole numeric := trunc(v);
  rest numeric := abs(v - whole);
BEGIN
  IF rest > 0.5 OR (rest = 0.5 AND whole % 2 <> 0) THEN RETURN whole + sign(v); END IF;
  RETURN whole;)"},
    {Kind::Inner, "number_of_bits", "letter text, digits text", "text[]", true, R"(DECLARE
  bits numeric := 0;
  base integer := CASE lower(letter COLLATE "C") WHEN 'h' THEN 16 ELSE 8 END;
  digit text;
BEGIN
  IF length(ltrim(digits, '0')) > 22 THEN RETURN NULL; END IF;
  FOREACH digit IN ARRAY string_to_array(lower(digits COLLATE "C"), NULL) LOOP
    bits := bits * base + strpos('123456789abcdef', digit);
  END LOOP;
  IF bits > 18446744073709551615 THEN RETURN NULL; END IF;
  RETURN ARRAY['', CASE bits WHEN 0 THEN '' ELSE bits::text END, '0', bits::text];)"},
    {Kind::Inner, "number_of", "t text", "text[]", true, R"(DECLARE
  m text[];
  marks text;
  signs integer;
  opened integer;
  fraction text;
  exponent integer;
BEGIN
  m := regexp_match(t COLLATE "C", '^[\t-\r ]*&([hHoO])([0-9a-fA-F]+)[\t-\r ]*$');
  IF m IS NOT NULL THEN
    IF m[1] IN ('o', 'O') AND m[2] COLLATE "C" ~ '[^0-7]' THEN RETURN NULL; END IF;
    RETURN @.number_of_bits(m[1], m[2]);
  END IF;
  m := regexp_match(t COLLATE "C", '^([\t-\r (+$-]*)([0-9][0-9,]*)?(\.[0-9]*)?(?:[eEdD]([+-]?[0-9]+))?([\t-\r )+$-]*)$');
  IF m IS NULL OR (m[2] IS NULL AND coalesce(m[3], '.') = '.') THEN RETURN NULL; END IF;
  marks := m[1] || m[5];
  signs := length(marks) - length(translate(marks, '+-', ''));
  opened := length(marks) - length(replace(marks, '(', ''));
  IF signs > 1 OR opened > 1 OR opened <> length(marks) - length(replace(marks, ')', '')) OR (opened = 1 AND signs > 0)
    OR length(marks) - length(replace(marks, '$', '')) > 1 THEN
    RETURN NULL;
  END IF;
  fraction := coalesce(substr(m[3], 2), '');
  exponent := CASE WHEN length(ltrim(m[4], '+-0')) > 5 THEN 100000 ELSE coalesce(ltrim(m[4], '+-')::integer, 0) END;
  IF left(m[4], 1) = '-' THEN exponent := -exponent; END IF;
  RETURN ARRAY[CASE WHEN opened = 1 OR strpos(marks, '-') > 0 THEN '-' ELSE '' END,
    ltrim(coalesce(replace(m[2], ',', ''), '') || fraction, '0'), (exponent - length(fraction))::text, NULL];)"},
    // Null when it is too large; what is too small is 0.
    {Kind::Inner, "real_of", "n text[]", "float8", true, R"(DECLARE
  places integer := length(n[2]) + n[3]::integer;
  size numeric;
BEGIN
  IF n[2] = '' OR places < -400 THEN RETURN 0; END IF;
  IF places > 400 THEN RETURN NULL; END IF;
  IF places NOT BETWEEN -300 AND 308 THEN
    size := (left(n[2], 1000) || 'e' || (n[3]::integer + greatest(length(n[2]) - 1000, 0)))::numeric;
    IF size >= 179769313486231580793728971405303415079934132710037826936173778980444968292764750946649017977587207096330286416692887910946555547851940402630657488671505820681908902000708383676273854845817711531764475730270069855571366959622842914819860834936475292719074168444365510704342711559699508093042880177904174497792 THEN RETURN NULL; END IF;
    IF size <= 2.4703282292062327208299439634e-324 THEN RETURN 0; END IF;
  END IF;
  RETURN (n[1] || n[2] || 'e' || n[3])::float8;)"},
    // Times 10 to that power, as a whole number; Null beyond 64 bits.
    {Kind::Inner, "scaled_of", "n text[], scale integer", "numeric", true, R"(DECLARE
  shift integer := n[3]::integer + scale;
  whole numeric;
BEGIN
  IF n[2] = '' OR -shift > length(n[2]) THEN RETURN 0; END IF;
  IF length(n[2]) + shift > 20 THEN RETURN NULL; END IF;
  whole := @.half_even((n[1] || n[2] || 'e' || shift)::numeric);
  IF whole NOT BETWEEN -9223372036854775808 AND 9223372036854775807 THEN RETURN NULL; END IF;
  RETURN whole;)"},
    // Up to 15 digits; Null for a number without end.
    {Kind::Inner, "text_of", "v float8", "text", true, R"(DECLARE
  spelled numeric;
  words text;
BEGIN
  IF v IN ('Infinity', '-Infinity', 'NaN') THEN RETURN NULL; END IF;
  IF v = 0 THEN RETURN '0'; END IF;
  spelled := v::numeric;
  IF abs(spelled) >= 0.0001 AND abs(spelled) < 1e15 THEN RETURN trim_scale(spelled)::text; END IF;
  words := ltrim(to_char(abs(v), '9.99999999999999EEEE'));
  RETURN CASE WHEN v < 0 THEN '-' ELSE '' END || rtrim(rtrim(split_part(words, 'e', 1), '0'), '.') || 'E' || split_part(words, 'e', 2);)"},

    {Kind::Fails, "clng", "v float8", "bigint", true, R"(
  IF round(v) BETWEEN -2147483648 AND 2147483647 THEN RETURN round(v); END IF;
  FAIL(6);)"},
    {Kind::Fails, "whole_of", "v text, bits integer", "bigint", true, R"(DECLARE
  number text[] := @.number_of(v);
  bound numeric := 2::numeric ^ (bits - 1);
  whole numeric;
BEGIN
  IF number IS NULL THEN FAIL(13); END IF;
  IF number[4] IS NOT NULL THEN
    whole := number[4]::numeric;
    IF whole >= bound * 2 THEN FAIL(6); END IF;
    RETURN CASE WHEN whole >= bound THEN whole - bound * 2 ELSE whole END;
  END IF;
  whole := @.scaled_of(number, 0);
  IF whole IS NULL OR whole < -bound OR whole >= bound THEN FAIL(6); END IF;
  RETURN whole;)"},
    {Kind::Fails, "clng", "v text", "bigint", true, "SELECT @f_whole_of($1, 32)"},
    {Kind::Fails, "cint", "v float8", "bigint", true, R"(
  IF round(v) BETWEEN -32768 AND 32767 THEN RETURN round(v); END IF;
  FAIL(6);)"},
    {Kind::Fails, "cint", "v text", "bigint", true, "SELECT @f_whole_of($1, 16)"},
    {Kind::Fails, "cbyte", "v float8", "bigint", true, R"(
  IF round(v) BETWEEN 0 AND 255 THEN RETURN round(v); END IF;
  FAIL(6);)"},
    {Kind::Fails, "cbyte", "v text", "bigint", true, R"(DECLARE
  whole bigint := @f_clng(v);
BEGIN
  IF whole NOT BETWEEN 0 AND 255 THEN FAIL(6); END IF;
  RETURN whole;)"},
    {Kind::Sure, "cbool", "v float8", "bigint", true, "SELECT -($1 <> 0)::integer::bigint"},
    {Kind::Fails, "cbool", "v text", "bigint", true, R"(
  IF lower(v COLLATE "C") = 'true' THEN RETURN -1; END IF;
  IF lower(v COLLATE "C") = 'false' THEN RETURN 0; END IF;
  RETURN -(@f_toreal(v) <> 0)::integer;)"},
    {Kind::Fails, "toreal", "v text", "float8", true, R"(DECLARE
  number text[] := @.number_of(v);
  result float8;
BEGIN
  IF number IS NULL THEN FAIL(13); END IF;
  result := @.real_of(number);
  IF result IS NULL THEN FAIL(6); END IF;
  RETURN result;)"},
    // Small numbers are meant as the decimals that their first 15 digits spell.
    {Kind::Fails, "tocur", "v float8", "bigint", true, R"(
  IF abs(v) < 1e10 THEN RETURN @.half_even(v::numeric * 10000); END IF;
  IF v BETWEEN -1e18 AND 1e18 AND round(v * 10000) >= -9223372036854775808::float8 AND round(v * 10000) < 9223372036854775808::float8 THEN
    RETURN round(v * 10000);
  END IF;
  FAIL(6);)"},
    {Kind::Sure, "int", "v float8", "float8", true, "SELECT floor($1)"},
    {Kind::Sure, "fix", "v float8", "float8", true, "SELECT trunc($1)"},
    {Kind::Fails, "sqr", "v float8", "float8", true, R"(
  IF v < 0 THEN FAIL(5); END IF;
  RETURN sqrt(v);)"},
    {Kind::Sure, "isnumeric", "v text", "bigint", false, R"(
  RETURN CASE WHEN @.real_of(@.number_of(v)) IS NULL THEN 0 ELSE -1 END;)"},
}};

}  // namespace

std::span<const ServerFunction> NumberFunctions() { return kFunctions; }

}  // namespace engine::postgres
