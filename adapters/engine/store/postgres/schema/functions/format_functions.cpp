#include <array>

#include "engine/store/postgres/schema/functions/texts.h"

namespace engine::postgres {
namespace {

using Kind = ServerFunction::Kind;

// A format's items, section by section: "M0" what means something, "L0" what stands for itself, "S" between two sections.
constexpr std::array<ServerFunction, 16> kFunctions{{
    {Kind::Inner, "format_items", "format text", "text[]", true, R"(DECLARE
  items text[] := '{}';
  one text;
  quoted boolean := false;
  escaped boolean := false;
BEGIN
  FOREACH one IN ARRAY string_to_array(format, NULL) LOOP
    IF NOT escaped AND NOT quoted AND one = '\' THEN
      escaped := true;
    ELSIF NOT escaped AND one = '"' THEN
      quoted := NOT quoted;
    ELSIF NOT escaped AND NOT quoted AND one = ';' THEN
      items := items || 'S'::text;
    ELSE
      items := items || (CASE WHEN escaped OR quoted THEN 'L' ELSE 'M' END || one);
      escaped := false;
    END IF;
  END LOOP;
  RETURN items;)"},
    // From 1; Null for one that isn't there.
    {Kind::Inner, "format_section", "items text[], number integer", "text[]", true, R"(DECLARE
  ends integer[] := ARRAY[0] || array_positions(items, 'S') || (cardinality(items) + 1);
BEGIN
  IF number >= cardinality(ends) THEN RETURN NULL; END IF;
  RETURN items[ends[number] + 1 : ends[number + 1] - 1];)"},
    {Kind::Inner, "format_text", "shown text, section text[]", "text", true, R"(DECLARE
  places integer := cardinality(array_positions(section, 'M@')) + cardinality(array_positions(section, 'M&'));
  fromleft boolean := 'M!' = ANY (section);
  item text;
  place integer;
  at integer := 1;
  count integer;
  result text := '';
BEGIN
  IF 'M<' = ANY (section) THEN shown := @.f_lcase(shown); END IF;
  IF 'M>' = ANY (section) THEN shown := @.f_ucase(shown); END IF;
  -- From the right the first place takes what is left over, from the left the last one.
  place := CASE WHEN fromleft THEN 0 ELSE -greatest(places - length(shown), 0) END;
  FOREACH item IN ARRAY section LOOP
    IF item IN ('M@', 'M&') THEN
      place := place + 1;
      count := 0;
      IF place > 0 AND at <= length(shown) THEN
        count := 1 + CASE WHEN place = CASE WHEN fromleft THEN places ELSE 1 END THEN greatest(length(shown) - places, 0) ELSE 0 END;
      END IF;
      result := result || CASE WHEN count = 0 AND item = 'M@' THEN ' ' ELSE substr(shown, at, count) END;
      at := at + count;
    ELSIF item NOT IN ('M<', 'M>', 'M!') THEN
      result := result || substr(item, 2);
    END IF;
  END LOOP;
  RETURN CASE places WHEN 0 THEN result || shown ELSE result END;)"},
    // number: as number_of gives it.
    {Kind::Inner, "format_number", "number text[], items text[]", "text", false, R"(DECLARE
  wanted integer := CASE WHEN number[2] = '' THEN 3 WHEN number[1] = '-' THEN 2 ELSE 1 END;
  section text[] := coalesce(nullif(@.format_section(items, wanted), '{}'), @.format_section(items, 1));
  isfirst boolean := wanted = 1 OR coalesce(@.format_section(items, wanted), '{}') = '{}';
  point integer := coalesce(array_position(section, 'M.'), cardinality(section) + 1);
  wholeplaces integer := 0;
  fewestwhole integer := 0;
  fractionplaces integer := 0;
  fewestfraction integer := 0;
  thousands boolean := false;
  power integer := 0;
  commas integer := 0;
  rounded numeric := 0;
  whole text;
  fraction text := '';
  significant integer;
  written integer := 0;
  due integer;
  passed integer := 0;
  fractionpassed integer := 0;
  result text := '';
BEGIN
  FOR i IN 1 .. cardinality(section) LOOP
    IF section[i] = 'M%' THEN power := power + 2; END IF;
    IF i > point THEN
      IF section[i] IN ('M0', 'M#') THEN fractionplaces := fractionplaces + 1; END IF;
      IF section[i] = 'M0' THEN fewestfraction := fractionplaces; END IF;
      CONTINUE;
    END IF;
    IF section[i] = 'M,' AND wholeplaces > 0 THEN commas := commas + 1; END IF;
    CONTINUE WHEN section[i] NOT IN ('M0', 'M#');
    IF commas > 0 THEN thousands := true; END IF;
    commas := 0;
    wholeplaces := wholeplaces + 1;
    IF section[i] = 'M0' OR fewestwhole > 0 THEN fewestwhole := fewestwhole + 1; END IF;
  END LOOP;
  power := power - 3 * commas;

  -- Halves go away from zero.
  IF number[2] <> '' AND length(number[2]) + number[3]::integer + power >= -fractionplaces - 1 THEN
    rounded := round((number[2] || 'e' || (number[3]::integer + power))::numeric, fractionplaces);
  END IF;
  whole := CASE WHEN rounded < 1 THEN '' ELSE trunc(rounded)::text END;
  IF fractionplaces > 0 THEN fraction := rpad(split_part(rounded::text, '.', 2), fractionplaces, '0'); END IF;
  significant := length(rtrim(fraction, '0'));
  whole := repeat('0', fewestwhole - length(whole)) || whole;

  FOR i IN 1 .. cardinality(section) LOOP
    due := 0;
    IF i = point AND wholeplaces = 0 THEN due := length(whole); END IF;
    IF i < point AND section[i] IN ('M0', 'M#') THEN
      passed := passed + 1;
      due := length(whole) - (wholeplaces - passed);
    END IF;
    WHILE written < due LOOP
      written := written + 1;
      result := result || substr(whole, written, 1);
      IF thousands AND written < length(whole) AND (length(whole) - written) % 3 = 0 THEN result := result || ','; END IF;
    END LOOP;
    IF section[i] IN ('M0', 'M#') THEN
      IF i > point THEN
        fractionpassed := fractionpassed + 1;
        IF fractionpassed <= greatest(significant, fewestfraction) THEN result := result || substr(fraction, fractionpassed, 1); END IF;
      END IF;
    ELSIF section[i] <> 'M,' THEN
      result := result || substr(section[i], 2);
    END IF;
  END LOOP;
  RETURN CASE WHEN number[1] = '-' AND isfirst AND rounded <> 0 THEN '-' || result ELSE result END;)"},

    {Kind::Inner, "figures", "number integer, fewest integer", "text", true, R"(
  RETURN lpad(number::text, greatest(length(number::text), fewest), '0');)"},
    {Kind::Inner, "name_or_number", "name text, number integer, letters integer", "text", true, R"(
  RETURN CASE WHEN letters < 3 THEN @.figures(number, letters) WHEN letters = 3 THEN left(name, 3) ELSE name END;)"},
    {Kind::Inner, "day_of_year", "day integer", "integer", true, R"(
  RETURN extract(doy FROM date '1899-12-30' + day);)"},
    {Kind::Inner, "date_part_by", "serial float8, letter text, letters integer, halves boolean, behindhours boolean", "text", true, R"(DECLARE
  part integer[] := @.parts_of(serial);
  month integer := extract(month FROM date '1899-12-30' + part[1]);
  weekday integer := ((floor(serial)::integer % 7) + 7) % 7;
  years integer := @.year_of(part[1]);
  hour integer := part[2] / 3600;
BEGIN
  CASE letter
    WHEN 'd' THEN
      IF letters = 5 THEN RETURN @.short_date(serial); END IF;
      IF letters > 5 THEN RETURN @.date_by(serial, 'dddd, mmmm d, yyyy'); END IF;
      RETURN @.name_or_number(('{Saturday,Sunday,Monday,Tuesday,Wednesday,Thursday,Friday}'::text[])[weekday + 1],
        extract(day FROM date '1899-12-30' + part[1])::integer, letters);
    WHEN 'y' THEN
      IF letters = 1 THEN RETURN @.day_of_year(part[1])::text; END IF;
      RETURN CASE WHEN letters > 2 THEN @.figures(years, 4) ELSE @.figures(years % 100, 2) END;
    WHEN 'h' THEN
      RETURN @.figures(CASE WHEN halves THEN (hour + 11) % 12 + 1 ELSE hour END, letters);
    WHEN 'n' THEN
      RETURN @.figures(part[2] / 60 % 60, letters);
    WHEN 's' THEN
      RETURN @.figures(part[2] % 60, letters);
    WHEN 'q' THEN
      RETURN ((month + 2) / 3)::text;
    WHEN 'w' THEN
      RETURN CASE letters WHEN 1 THEN (weekday + 6) % 7 + 1 ELSE (@.day_of_year(part[1]) + 5 - (weekday + 6) % 7) / 7 + 1 END::text;
    ELSE
      IF behindhours AND letters <= 2 THEN RETURN @.figures(part[2] / 60 % 60, letters); END IF;
      RETURN @.name_or_number(
        ('{January,February,March,April,May,June,July,August,September,October,November,December}'::text[])[month], month, letters);
  END CASE;)"},
    // The literal that begins there, with its marks; "" where none does.
    {Kind::Inner, "literal_at", "rest text", "text", true, R"(
  IF left(rest, 1) = '\' AND length(rest) > 1 THEN RETURN left(rest, 2); END IF;
  IF left(rest, 1) <> '"' THEN RETURN ''; END IF;
  RETURN left(rest, CASE strpos(substr(rest, 2), '"') WHEN 0 THEN length(rest) ELSE strpos(substr(rest, 2), '"') + 1 END);)"},
    {Kind::Inner, "date_by", "serial float8, format text", "text", true, R"(DECLARE
  bare text := regexp_replace(format COLLATE "C", '\\.|"[^"]*("|$)', chr(1), 'g');
  halves boolean := bare COLLATE "C" ~ 'AM/PM|am/pm|A/P|a/p';
  morning boolean := (@.parts_of(serial))[2] < 43200;
  behindhours boolean := false;
  rest text := format;
  taken text;
  result text := '';
BEGIN
  WHILE rest <> '' LOOP
    taken := @.literal_at(rest);
    IF taken <> '' THEN
      result := result || CASE left(taken, 1) WHEN '\' THEN substr(taken, 2) ELSE btrim(taken, '"') END;
    ELSE
      taken := coalesce(substring(rest COLLATE "C" FROM '^(?:AM/PM|am/pm|A/P|a/p)'), '');
      IF taken <> '' THEN
        result := result || CASE WHEN morning THEN split_part(taken, '/', 1) ELSE split_part(taken, '/', 2) END;
      ELSE
        taken := coalesce(substring(rest COLLATE "C" FROM '^(?:[dD]+|[mM]+|[yY]+|[hH]+|[nN]+|[sS]+|[qQ]+|[wW]+)'), '');
        IF taken = '' THEN
          taken := left(rest, 1);
          result := result || taken;
        ELSE
          result := result || @.date_part_by(serial, lower(left(taken, 1) COLLATE "C"), length(taken), halves, behindhours);
          behindhours := lower(left(taken, 1) COLLATE "C") = 'h';
        END IF;
      END IF;
    END IF;
    rest := substr(rest, length(taken) + 1);
  END LOOP;
  RETURN result;)"},
    // A value by a format: the text that it shows by itself, the number that it is, as a text, and its serial where it is no text.
    {Kind::Fails, "format_value", "isdate boolean, words text, spelled text, serial float8, format text, thisyear integer", "text", false, R"(DECLARE
  name text := lower(format COLLATE "C");
  datename text := CASE name WHEN 'long date' THEN 'dddd, mmmm d, yyyy' WHEN 'medium date' THEN 'dd-mmm-yy' WHEN 'long time' THEN 'h:nn:ss AM/PM'
    WHEN 'medium time' THEN 'hh:nn AM/PM' WHEN 'short time' THEN 'hh:nn' END;
  number text[];
  moment float8 := serial;
  items text[];
  bare text;
BEGIN
  IF coalesce(words, '') = '' THEN
    items := @.format_items(format);
    IF @.format_section(items, 1) && '{M@,M&,M<,M>,M!}' AND @.format_section(items, 2) IS NOT NULL THEN
      RETURN @.format_text('', @.format_section(items, 2));
    END IF;
    RETURN '';
  END IF;
  IF name IN ('', 'general number') THEN RETURN words; END IF;
  IF datename IS NOT NULL OR name IN ('short date', 'general date') THEN
    IF serial IS NULL THEN
      moment := @.date_in(words, thisyear);
      IF moment IS NULL THEN
        moment := @.real_of(@.number_of(words));
        IF moment IS NULL THEN RETURN words; END IF;
      END IF;
    END IF;
    IF NOT isdate AND (moment <= -657435 OR moment >= 2958466) THEN FAIL(6); END IF;
    RETURN CASE name WHEN 'short date' THEN @.short_date(moment) WHEN 'general date' THEN @.general_date(moment) ELSE @.date_by(moment, datename) END;
  END IF;
  number := @.number_of(spelled);
  IF @.real_of(number) IS NULL THEN number := NULL; END IF;
  IF name IN ('true/false', 'yes/no', 'on/off') THEN
    RETURN CASE WHEN number IS NULL THEN words
      ELSE initcap(split_part(name, '/', CASE number[2] WHEN '' THEN 2 ELSE 1 END)) END;
  END IF;
  IF isdate AND name NOT IN ('currency', 'fixed', 'standard', 'percent') THEN
    bare := regexp_replace(format COLLATE "C", '\\.|"[^"]*("|$)', chr(1), 'g');
    IF bare COLLATE "C" ~ '[dmyhnsqwDMYHNSQW]' AND bare COLLATE "C" !~ '[0#@&<>!%;]' THEN RETURN @.date_by(serial, format); END IF;
  END IF;
  items := @.format_items(CASE name WHEN 'currency' THEN '$#,##0.00;($#,##0.00)' WHEN 'fixed' THEN '0.00' WHEN 'standard' THEN '#,##0.00'
    WHEN 'percent' THEN '0.00%' ELSE format END);
  IF @.format_section(items, 1) && '{M@,M&,M<,M>,M!}' THEN RETURN @.format_text(words, @.format_section(items, 1)); END IF;
  RETURN CASE WHEN number IS NULL THEN words ELSE @.format_number(number, items) END;)"},
    {Kind::Fails, "format", "v float8, format text, moment text", "text", false, R"(DECLARE
  thisyear integer := @f_year(coalesce(moment, ''));
  words text := @.text_of(v);
BEGIN
  IF v IS NOT NULL AND words IS NULL THEN FAIL(6); END IF;
  RETURN @f_format_value(false, words, words, v, coalesce(format, ''), thisyear);)"},
    {Kind::Fails, "format", "v text, format text, moment text", "text", false, R"(DECLARE
  thisyear integer := @f_year(coalesce(moment, ''));
BEGIN
  RETURN @f_format_value(false, v, v, NULL, coalesce(format, ''), thisyear);)"},
    {Kind::Fails, "formatbool", "v float8, format text", "text", false, R"(
  RETURN @f_format_value(false, CASE WHEN v = 0 THEN 'False' WHEN v <> 0 THEN 'True' END, CASE WHEN v = 0 THEN '0' WHEN v <> 0 THEN '-1' END,
    CASE WHEN v = 0 THEN 0 WHEN v <> 0 THEN -1 END, coalesce(format, ''), 0);)"},
    {Kind::Fails, "formatcur", "v bigint, format text", "text", false, R"(DECLARE
  words text := trim_scale(v::numeric * 0.0001)::text;
BEGIN
  RETURN @f_format_value(false, words, words, v / 10000::float8, coalesce(format, ''), 0);)"},
    {Kind::Fails, "formatdate", "v text, format text", "text", false, R"(DECLARE
  serial float8;
BEGIN
  IF v IS NOT NULL THEN
    serial := @f_serial(v);
    IF serial IS NULL THEN RETURN NULL; END IF;
  END IF;
  RETURN @f_format_value(true, @.general_date(serial), @.text_of(serial), serial, coalesce(format, ''), 0);)"},
}};

}  // namespace

std::span<const ServerFunction> FormatFunctions() { return kFunctions; }

}  // namespace engine::postgres
