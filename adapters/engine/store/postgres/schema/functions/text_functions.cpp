#include <string>
#include <vector>

#include "engine/store/postgres/schema/functions/texts.h"
#include "platform/values/text.h"
#include "platform/values/unicode.h"

namespace engine::postgres {
namespace {

using Kind = ServerFunction::Kind;

// All letters that have another case, and their others: the server's own tables know other letters.
std::string CaseBody(std::string_view own, char32_t (*mapping)(char32_t)) {
  std::string from;
  std::string to;
  for (char32_t character = 1; character <= platform::kHighestCodePoint; ++character) {
    if (character == 0xD800) character = 0xE000;
    const char32_t other = mapping(character);
    if (other == character) continue;
    platform::AppendCodePoint(from, character);
    platform::AppendCodePoint(to, other);
  }
  return "\n  IF octet_length(t) = length(t) THEN RETURN " + std::string(own) + "(t COLLATE \"C\"); END IF;\n  RETURN translate(t, '" + from +
         "', '" + to + "');";
}

std::vector<ServerFunction> Make() {
  static const std::string upper = CaseBody("upper", platform::UpperOf);
  static const std::string lower = CaseBody("lower", platform::LowerOf);
  return {
      {Kind::Inner, "bits_at_start", "dense text", "float8", true, R"(DECLARE
  base integer := CASE substr(dense, 2, 1) WHEN 'H' THEN 16 WHEN 'h' THEN 16 WHEN 'O' THEN 8 WHEN 'o' THEN 8 END;
  digits text := substring(substr(dense, 3) COLLATE "C" FROM CASE base WHEN 16 THEN '^[0-9a-fA-F]*' ELSE '^[0-7]*' END);
  digit text;
  bits float8 := 0;
BEGIN
  IF base IS NULL THEN RETURN 0; END IF;
  FOREACH digit IN ARRAY string_to_array(lower(digits COLLATE "C"), NULL) LOOP
    bits := @.real_sum(@.real_product(bits, base), strpos('123456789abcdef', digit));
  END LOOP;
  IF bits <= 65535 AND substr(dense, length(digits) + 3, 1) <> '&' THEN RETURN CASE WHEN bits > 32767 THEN bits - 65536 ELSE bits END; END IF;
  IF bits <= 4294967295 THEN RETURN CASE WHEN bits > 2147483647 THEN bits - 4294967296 ELSE bits END; END IF;
  RETURN bits;)"},
      {Kind::Fails, "val", "t text", "float8", true, R"(DECLARE
  dense text := translate(t, ' ' || chr(9) || chr(10) || chr(13), '');
  start text;
  number float8;
BEGIN
  IF left(dense, 1) = '&' THEN RETURN @.bits_at_start(dense); END IF;
  start := substring(dense COLLATE "C" FROM '^[+-]?(?:[0-9]+(?:\.[0-9]*)?|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?');
  IF start IS NULL THEN RETURN 0; END IF;
  number := @.real_of(@.number_of(start));
  IF number IS NULL THEN FAIL(6); END IF;
  RETURN number;)"},
      {Kind::Sure, "len", "t text", "bigint", true, "SELECT length($1)::bigint"},
      {Kind::Sure, "lenb", "t text", "bigint", true, "SELECT 2 * length($1)::bigint"},
      {Kind::Fails, "left", "t text, characters float8", "text", true, R"(DECLARE
  count integer := @f_clng(characters);
BEGIN
  IF count < 0 THEN FAIL(5); END IF;
  RETURN left(t, count);)"},
      {Kind::Fails, "right", "t text, characters float8", "text", true, R"(DECLARE
  count integer := @f_clng(characters);
BEGIN
  IF count < 0 THEN FAIL(5); END IF;
  RETURN right(t, count);)"},
      {Kind::Fails, "mid", "t text, first float8", "text", true, R"(DECLARE
  place integer := @f_clng(first);
BEGIN
  IF place < 1 THEN FAIL(5); END IF;
  RETURN substr(t, place);)"},
      {Kind::Fails, "mid", "t text, first float8, characters float8", "text", true, R"(DECLARE
  count integer := @f_clng(characters);
  place integer := @f_clng(first);
BEGIN
  IF place < 1 OR count < 0 THEN FAIL(5); END IF;
  RETURN left(substr(t, place), count);)"},
      {Kind::Sure, "trim", "t text", "text", true, "SELECT btrim($1, ' ')"},
      {Kind::Sure, "ltrim", "t text", "text", true, "SELECT ltrim($1, ' ')"},
      {Kind::Sure, "rtrim", "t text", "text", true, "SELECT rtrim($1, ' ')"},
      {Kind::Sure, "ucase", "t text", "text", true, upper},
      {Kind::Sure, "lcase", "t text", "text", true, lower},
      {Kind::Inner, "place_in", "place integer, t text, wanted text", "bigint", true, R"(DECLARE
  rest text := substr(t, place);
  found integer := strpos(rest COLLATE "C", wanted);
BEGIN
  RETURN CASE WHEN rest = '' OR found = 0 THEN 0 ELSE found::bigint + place - 1 END;)"},
      {Kind::Sure, "instr", "t text, wanted text", "bigint", true, "SELECT @.place_in(1, $1, $2)"},
      {Kind::Fails, "instr", "start float8, t text, wanted text", "bigint", true, R"(DECLARE
  place integer := @f_clng(start);
BEGIN
  IF place < 1 THEN FAIL(5); END IF;
  RETURN @.place_in(place, t, wanted);)"},
      {Kind::Fails, "instr", "start text, t text, wanted text", "bigint", true, R"(DECLARE
  place integer := @f_clng(start);
BEGIN
  IF place < 1 THEN FAIL(5); END IF;
  RETURN @.place_in(place, t, wanted);)"},
      {Kind::Fails, "str", "v float8", "text", true, R"(DECLARE
  words text := @.text_of(v);
BEGIN
  IF words IS NULL THEN FAIL(6); END IF;
  RETURN CASE WHEN left(words, 1) = '-' THEN words ELSE ' ' || words END;)"},
      {Kind::Fails, "space", "v float8", "text", true, R"(DECLARE
  count integer := @f_clng(v);
BEGIN
  IF count NOT BETWEEN 0 AND 65535 THEN FAIL(5); END IF;
  RETURN repeat(' ', count);)"},
      {Kind::Sure, "concat", "VARIADIC parts text[]", "text", false, R"(
  RETURN CASE WHEN num_nonnulls(VARIADIC parts) > 0 THEN array_to_string(parts, '') END;)"},
      {Kind::Sure, "textnum", "v smallint", "text", true, "SELECT $1::text"},
      {Kind::Sure, "textnum", "v integer", "text", true, "SELECT $1::text"},
      {Kind::Sure, "textnum", "v bigint", "text", true, "SELECT $1::text"},
      {Kind::Fails, "textnum", "v float8", "text", true, R"(DECLARE
  words text := @.text_of(v);
BEGIN
  IF words IS NULL THEN FAIL(6); END IF;
  RETURN words;)"},
      {Kind::Sure, "textcur", "v bigint", "text", true, "SELECT trim_scale($1::numeric * 0.0001)::text"},
      {Kind::Sure, "textbool", "v float8", "text", true, "SELECT CASE $1 <> 0 WHEN true THEN 'True' WHEN false THEN 'False' END"},
      {Kind::Inner, "character_key", "one text", "text", true, R"(
  RETURN CASE WHEN one IN (chr(32), chr(9), chr(160)) THEN ' ' ELSE @.text_key(one) END;)"},
      // The pattern's tokens: kind, whether it takes what its ranges don't, and where these stand among all.
      {Kind::Fails, "like", "t text, pattern text", "bigint", true, R"(DECLARE
  blanks text := chr(32) || chr(9) || chr(160);
  signs text[] := string_to_array(rtrim(pattern, blanks), NULL);
  content text[] := string_to_array(rtrim(t, blanks), NULL);
  kinds text[] := '{}';
  negated boolean[] := '{}';
  behind integer[] := '{}';
  lows text[] := '{}';
  highs text[] := '{}';
  list text[];
  place integer := 1;
  finish integer;
  token integer;
  run integer := 0;
  start integer := 1;
  key text COLLATE "C";
  takes boolean;
BEGIN
  WHILE place <= cardinality(signs) LOOP
    IF signs[place] IN ('*', '?', '#') THEN
      IF signs[place] <> '*' OR kinds[cardinality(kinds)] IS DISTINCT FROM '*' THEN
        kinds := kinds || signs[place];
        negated := negated || false;
        behind := behind || cardinality(lows);
      END IF;
      place := place + 1;
      CONTINUE;
    END IF;
    list := ARRAY[signs[place]];
    takes := true;
    IF signs[place] = '[' THEN
      finish := array_position(signs, ']', place + 1);
      IF finish IS NULL THEN FAIL(93); END IF;
      list := signs[place + 1 : finish - 1];
      place := finish;
      IF cardinality(list) > 1 AND list[1] = '!' THEN
        takes := false;
        list := list[2 :];
      END IF;
    END IF;
    place := place + 1;
    CONTINUE WHEN cardinality(list) = 0;
    kinds := kinds || '['::text;
    negated := negated || NOT takes;
    token := 1;
    WHILE token <= cardinality(list) LOOP
      finish := CASE WHEN list[token] <> '-' AND token + 2 <= cardinality(list) AND list[token + 1] = '-' THEN token + 2 ELSE token END;
      lows := lows || @.character_key(list[token]);
      highs := highs || @.character_key(list[finish]);
      IF lows[cardinality(lows)] COLLATE "C" > highs[cardinality(highs)] COLLATE "C" THEN FAIL(93); END IF;
      token := finish + 1;
    END LOOP;
    behind := behind || cardinality(lows);
  END LOOP;

  -- Only the last run passed needs another try.
  token := 1;
  place := 1;
  WHILE place <= cardinality(content) LOOP
    IF kinds[token] = '*' THEN
      run := token;
      token := token + 1;
      start := place;
      CONTINUE;
    END IF;
    takes := false;
    IF kinds[token] = '?' THEN
      takes := true;
    ELSIF kinds[token] = '#' THEN
      takes := content[place] COLLATE "C" BETWEEN '0' AND '9';
    ELSIF kinds[token] IS NOT NULL THEN
      key := @.character_key(content[place]);
      FOR i IN coalesce(behind[token - 1], 0) + 1 .. behind[token] LOOP
        takes := takes OR key BETWEEN lows[i] AND highs[i];
      END LOOP;
      takes := takes <> negated[token];
    END IF;
    IF takes THEN
      token := token + 1;
      place := place + 1;
    ELSIF run = 0 THEN
      RETURN 0;
    ELSIF run = cardinality(kinds) THEN
      RETURN -1;
    ELSE
      start := start + 1;
      token := run + 1;
      place := start;
    END IF;
  END LOOP;
  RETURN CASE WHEN token > cardinality(kinds) OR (token = cardinality(kinds) AND kinds[token] = '*') THEN -1 ELSE 0 END;)"},
  };
}

}  // namespace

std::span<const ServerFunction> TextFunctions() {
  static const std::vector<ServerFunction> functions = Make();
  return functions;
}

}  // namespace engine::postgres
