#include <array>

#include "engine/store/postgres/schema/functions/texts.h"

namespace engine::postgres {
namespace {

using Kind = ServerFunction::Kind;

// Serials count days from 30 December 1899; the time counts away from day 0.
constexpr std::array<ServerFunction, 29> kFunctions{{
    // Days from there to a day of the calendar, years 0 to 9999; Null for a day that no month has. The server knows no year 0.
    {Kind::Inner, "day_number", "y integer, m integer, d integer", "integer", true, R"(DECLARE
  first date;
BEGIN
  IF y NOT BETWEEN 0 AND 9999 OR m NOT BETWEEN 1 AND 12 OR d NOT BETWEEN 1 AND 31 THEN RETURN NULL; END IF;
  first := make_date(CASE y WHEN 0 THEN -1 ELSE y END, m, 1);
  IF d > 28 AND extract(month FROM first + (d - 1)) <> m THEN RETURN NULL; END IF;
  RETURN first + (d - 1) - date '1899-12-30';)"},
    {Kind::Inner, "moment_of", "day integer, seconds integer", "float8", true, R"(
  RETURN CASE WHEN day < 0 THEN day - seconds / 86400::float8 ELSE day + seconds / 86400::float8 END;)"},
    // The day and the seconds of it, rounded to whole ones; what rounds up to midnight belongs to the next day.
    {Kind::Inner, "parts_of", "serial float8", "integer[]", true, R"(DECLARE
  day integer := trunc(serial);
  time float8 := abs(serial - trunc(serial)) * 86400;
  seconds integer := floor(time);
BEGIN
  IF time - seconds >= 0.5 THEN seconds := seconds + 1; END IF;
  RETURN CASE seconds WHEN 86400 THEN ARRAY[day + 1, 0] ELSE ARRAY[day, seconds] END;)"},
    {Kind::Inner, "year_of", "day integer", "integer", true, R"(DECLARE
  y integer := extract(year FROM date '1899-12-30' + day);
BEGIN
  RETURN CASE WHEN y < 0 THEN y + 1 ELSE y END;)"},
    {Kind::Inner, "iso_of", "serial float8", "text", true, R"(DECLARE
  part integer[] := @.parts_of(serial);
  iso text := right('000' || @.year_of(part[1]), 4) || to_char(date '1899-12-30' + part[1], '-MM-DD');
BEGIN
  IF part[2] = 0 THEN RETURN iso; END IF;
  RETURN iso || to_char(make_interval(secs => part[2]), ' HH24:MI:SS');)"},
    // Null for a text that isn't a stored date.
    {Kind::Inner, "serial_of", "t text", "float8", true, R"(DECLARE
  m text[] := regexp_match(t COLLATE "C", '^([0-9]{4})-([0-9]{2})-([0-9]{2})(?: ([01][0-9]|2[0-3]):([0-5][0-9]):([0-5][0-9]))?$');
BEGIN
  RETURN @.moment_of(@.day_number(m[1]::integer, m[2]::integer, m[3]::integer),
    CASE WHEN m[4] IS NULL THEN 0 ELSE (m[4]::integer * 60 + m[5]::integer) * 60 + m[6]::integer END);)"},
    {Kind::Fails, "serial", "t text", "float8", true, R"(DECLARE
  serial float8 := @.serial_of(t);
BEGIN
  IF serial IS NULL THEN FAIL(13); END IF;
  RETURN serial;)"},
    {Kind::Fails, "todate", "serial float8", "text", true, R"(
  IF serial > -657435 AND serial < 2958466 THEN RETURN @.iso_of(serial); END IF;
  FAIL(6);)"},
    {Kind::Fails, "dayof", "t text", "text", true, R"(
  RETURN @.iso_of(floor(@f_serial(t)));)"},
    {Kind::Fails, "timeof", "t text", "text", true, R"(DECLARE
  serial float8 := @f_serial(t);
BEGIN
  RETURN @.iso_of(serial - floor(serial));)"},
    {Kind::Fails, "part", "t text, place integer", "integer", true, R"(DECLARE
  part integer[] := @.parts_of(@f_serial(t));
BEGIN
  RETURN part[place];)"},
    {Kind::Fails, "year", "t text", "bigint", true, "RETURN @.year_of(@f_part(t, 1));"},
    {Kind::Fails, "month", "t text", "bigint", true, "RETURN extract(month FROM date '1899-12-30' + @f_part(t, 1));"},
    {Kind::Fails, "day", "t text", "bigint", true, "RETURN extract(day FROM date '1899-12-30' + @f_part(t, 1));"},
    {Kind::Fails, "hour", "t text", "bigint", true, "RETURN @f_part(t, 2) / 3600;"},
    {Kind::Fails, "minute", "t text", "bigint", true, "RETURN @f_part(t, 2) / 60 % 60;"},
    {Kind::Fails, "second", "t text", "bigint", true, "RETURN @f_part(t, 2) % 60;"},
    {Kind::Fails, "weekday", "t text", "bigint", true, R"(DECLARE
  day integer := trunc(@f_serial(t));
BEGIN
  RETURN day - 7 * floor((day + 6) / 7::float8) + 7;)"},
    {Kind::Fails, "dateserial", "y float8, m float8, d float8", "text", true, R"(DECLARE
  months bigint := @f_clng(m) - 1;
  whole bigint := @f_clng(y) + floor(months / 12::float8)::bigint;
  days bigint;
BEGIN
  IF whole NOT BETWEEN 100 AND 9999 THEN FAIL(5); END IF;
  days := @f_clng(d);
  RETURN @f_todate(@.day_number(whole::integer, (months - floor(months / 12::float8) * 12)::integer + 1, 1)::float8 + days - 1);)"},
    {Kind::Inner, "time_text", "seconds integer", "text", true, R"(
  RETURN (seconds / 3600 + 11) % 12 + 1 || to_char(make_interval(secs => seconds), ':MI:SS') || CASE WHEN seconds < 43200 THEN ' AM' ELSE ' PM' END;)"},
    {Kind::Inner, "short_date", "serial float8", "text", true, R"(DECLARE
  part integer[] := @.parts_of(serial);
BEGIN
  RETURN to_char(date '1899-12-30' + part[1], 'FMMM/FMDD/') || @.year_of(part[1]);)"},
    {Kind::Inner, "general_date", "serial float8", "text", true, R"(DECLARE
  part integer[] := @.parts_of(serial);
BEGIN
  IF part[1] = 0 THEN RETURN @.time_text(part[2]); END IF;
  RETURN CASE part[2] WHEN 0 THEN @.short_date(serial) ELSE @.short_date(serial) || ' ' || @.time_text(part[2]) END;)"},
    // Dates that users write. A part of one is {its number, how many digits it had, 1 for a month's name}.
    {Kind::Inner, "date_of_parts", "y integer[], m integer[], d integer[]", "integer", true, R"(DECLARE
  whole integer := CASE WHEN y[2] > 2 THEN y[1] WHEN y[1] < 30 THEN y[1] + 2000 ELSE y[1] + 1900 END;
BEGIN
  IF m[2] > 2 OR d[2] > 2 OR d[3] = 1 OR y[3] = 1 OR whole < 100 THEN RETURN NULL; END IF;
  RETURN @.day_number(whole, m[1], d[1]);)"},
    // Month and day of this year, or a month and a year of at least three digits; month, day, year, then year first, then day first.
    {Kind::Inner, "date_in_parts", "numbers integer[], digits integer[], months integer[], thisyear integer", "integer", true, R"(DECLARE
  a integer[] := ARRAY[numbers[1], digits[1], months[1]];
  b integer[] := ARRAY[numbers[2], digits[2], months[2]];
  c integer[] := ARRAY[numbers[3], digits[3], months[3]];
  first integer[] := ARRAY[1, 1, 0];
  own integer[] := ARRAY[thisyear, 4, 0];
BEGIN
  IF cardinality(numbers) = 2 THEN
    IF b[2] > 2 THEN RETURN @.date_of_parts(b, a, first); END IF;
    IF a[2] > 2 THEN RETURN @.date_of_parts(a, b, first); END IF;
    RETURN coalesce(CASE b[3] WHEN 0 THEN @.date_of_parts(own, a, b) END, CASE a[3] WHEN 0 THEN @.date_of_parts(own, b, a) END);
  END IF;
  IF cardinality(numbers) <> 3 OR c[3] = 1 THEN RETURN NULL; END IF;
  IF a[3] = 1 THEN RETURN coalesce(@.date_of_parts(c, a, b), @.date_of_parts(b, a, c)); END IF;
  IF b[3] = 1 THEN RETURN coalesce(@.date_of_parts(c, b, a), @.date_of_parts(a, b, c)); END IF;
  RETURN coalesce(@.date_of_parts(c, a, b), @.date_of_parts(a, b, c), @.date_of_parts(c, b, a));)"},
    // {the seconds, the place behind it}; Null where no time begins, {Null, ...} for one that can't be.
    {Kind::Inner, "time_at", "words text[], place integer", "integer[]", true, R"(DECLARE
  at integer := place;
  parts integer[] := '{0, 0, 0}';
  possible boolean;
BEGIN
  IF words[at] COLLATE "C" !~ '^[0-9]' OR words[at + 1] IS NULL OR words[at + 1] NOT IN (':', 'am', 'pm') THEN RETURN NULL; END IF;
  parts[1] := words[at];
  at := at + 1;
  FOR i IN 2 .. 3 LOOP
    EXIT WHEN words[at] IS DISTINCT FROM ':';
    IF words[at + 1] IS NULL OR words[at + 1] COLLATE "C" !~ '^[0-9]{1,2}$' THEN RETURN ARRAY[NULL, at]; END IF;
    parts[i] := words[at + 1];
    at := at + 2;
  END LOOP;
  possible := parts[1] < 24 AND parts[2] < 60 AND parts[3] < 60;
  IF words[at] IN ('am', 'pm') THEN
    possible := possible AND parts[1] <= 12;
    parts[1] := parts[1] % 12 + CASE words[at] WHEN 'pm' THEN 12 ELSE 0 END;
    at := at + 1;
  END IF;
  RETURN ARRAY[CASE WHEN possible THEN (parts[1] * 60 + parts[2]) * 60 + parts[3] END, at];)"},
    {Kind::Inner, "date_in", "t text, thisyear integer", "float8", true, R"(DECLARE
  words text[];
  blanks boolean[];
  behind integer;
  start integer := 1;
  time integer[];
  separated boolean := true;
  month integer;
  numbers integer[] := '{}';
  digits integer[] := '{}';
  months integer[] := '{}';
  day integer;
BEGIN
  IF t COLLATE "C" !~ '^[ 	0-9A-Za-z/,:-]*$' OR t COLLATE "C" ~ '[0-9]{5}' THEN RETURN NULL; END IF;
  SELECT array_agg(lower(m[2] COLLATE "C") ORDER BY place), array_agg(m[1] <> '' ORDER BY place) INTO words, blanks
    FROM regexp_matches(t COLLATE "C", '([ 	]*)([0-9]+|[A-Za-z]+|[/,:-])', 'g') WITH ORDINALITY AS found(m, place);
  IF words IS NULL THEN RETURN NULL; END IF;

  -- The time stands in front of the date or behind it.
  behind := cardinality(words);
  time := @.time_at(words, 1);
  IF time IS NOT NULL THEN
    start := time[2];
  ELSE
    FOR at IN 2 .. cardinality(words) LOOP
      time := @.time_at(words, at);
      CONTINUE WHEN time IS NULL;
      IF time[2] <= cardinality(words) THEN RETURN NULL; END IF;
      behind := at - 1;
      EXIT;
    END LOOP;
  END IF;
  IF time IS NOT NULL AND time[1] IS NULL THEN RETURN NULL; END IF;

  -- Exactly one separator, or a blank, stands between two parts.
  FOR at IN start .. behind LOOP
    IF words[at] IN ('/', '-', ',', ':') THEN
      IF separated OR words[at] = ':' THEN RETURN NULL; END IF;
      separated := true;
      CONTINUE;
    END IF;
    IF NOT separated AND NOT blanks[at] THEN RETURN NULL; END IF;
    separated := false;
    IF words[at] COLLATE "C" ~ '^[0-9]' THEN
      numbers := numbers || words[at]::integer;
      digits := digits || length(words[at]);
      months := months || 0;
      CONTINUE;
    END IF;
    month := array_position('{january,february,march,april,may,june,july,august,september,october,november,december}'::text[], words[at]);
    month := coalesce(month, array_position('{jan,feb,mar,apr,may,jun,jul,aug,sep,oct,nov,dec}'::text[], words[at]));
    IF month IS NULL THEN RETURN NULL; END IF;
    numbers := numbers || month;
    digits := digits || 0;
    months := months || 1;
  END LOOP;
  IF separated AND start <= behind THEN RETURN NULL; END IF;
  IF cardinality(numbers) = 0 THEN RETURN @.moment_of(0, time[1]); END IF;
  day := @.date_in_parts(numbers, digits, months, thisyear);
  RETURN @.moment_of(day, coalesce(time[1], 0));)"},
    {Kind::Fails, "cdate", "t text, moment text", "text", true, R"(DECLARE
  serial float8 := @.date_in(t, @f_year(moment)::integer);
BEGIN
  IF serial IS NULL THEN FAIL(13); END IF;
  RETURN @.iso_of(serial);)"},
    {Kind::Fails, "isdate", "t text, moment text", "bigint", false, R"(DECLARE
  thisyear integer := @f_year(coalesce(moment, ''));
BEGIN
  RETURN CASE WHEN @.date_in(t, thisyear) IS NULL THEN 0 ELSE -1 END;)"},
    {Kind::Fails, "textdate", "t text", "text", true, "RETURN @.general_date(@f_serial(t));"},
}};

}  // namespace

std::span<const ServerFunction> DateFunctions() { return kFunctions; }

}  // namespace engine::postgres
