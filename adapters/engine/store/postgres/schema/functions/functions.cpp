#include "engine/store/postgres/schema/functions/functions.h"

#include "engine/store/postgres/schema/functions/texts.h"
#include "engine/store/postgres/wording/dialect.h"
#include "engine/store/postgres/wording/names.h"

namespace engine::postgres {
namespace {

using Kind = ServerFunction::Kind;

enum class Set { None, Conditions, Cells };

std::string PrefixOf(Set set) {
  const Dialect& dialect = ServerDialect();
  if (set == Set::None) return {};
  return set == Set::Conditions ? dialect.functionPrefix : dialect.cellPrefix;
}

// FAIL(13) at `at`, up to behind it.
std::string FailText(std::string_view number, Set set, const std::string& schema) {
  if (set == Set::Cells) return "PERFORM " + schema + "cell_failed(); RETURN NULL";
  return "RAISE EXCEPTION USING ERRCODE = 'OR" + std::string(3 - number.size(), '0') + std::string(number) + "'";
}

std::string Filled(std::string_view body, Set set, const std::string& schema) {
  constexpr std::string_view kSchema = "@.";
  constexpr std::string_view kSet = "@f_";
  constexpr std::string_view kFail = "FAIL(";
  std::string text;
  for (std::size_t at = 0; at < body.size();) {
    const std::string_view rest = body.substr(at);
    if (rest.starts_with(kSchema)) {
      text += schema;
      at += kSchema.size();
    } else if (rest.starts_with(kSet)) {
      text += schema + PrefixOf(set);
      at += kSet.size();
    } else if (rest.starts_with(kFail)) {
      const std::size_t end = rest.find(')');
      text += FailText(rest.substr(kFail.size(), end - kFail.size()), set, schema);
      at += end + 1;
    } else {
      text += body[at++];
    }
  }
  return text;
}

// What can fail is not computed before a row asks for it, and what leaves a mark is computed where it stands.
std::string Promises(const ServerFunction& function, Set set) {
  if (function.kind != Kind::Fails) return " IMMUTABLE PARALLEL SAFE";
  return set == Set::Cells ? " VOLATILE PARALLEL UNSAFE" : " STABLE PARALLEL SAFE";
}

std::string TextOf(const ServerFunction& function, Set set, const std::string& schema) {
  const bool isSql = function.body.starts_with("SELECT ");
  const bool declares = function.body.starts_with("DECLARE");
  std::string text = "CREATE OR REPLACE FUNCTION " + schema + PrefixOf(set) + std::string(function.name) + '(' + std::string(function.parameters) +
                     ") RETURNS " + std::string(function.result) + (isSql ? " LANGUAGE sql" : " LANGUAGE plpgsql") + Promises(function, set);
  // A strict one in SQL would be called where another becomes a part of the statement.
  if (function.nullStays && !isSql) text += " STRICT";
  text += " AS $function$\n";
  if (!isSql && !declares) text += "BEGIN\n";
  text += Filled(function.body, set, schema);
  return text + (isSql ? "\n$function$" : "\nEND\n$function$");
}

// A cell is computed between the two: begin clears the mark, and a cell that has one is Null.
std::vector<std::string> CellTexts(const std::string& schema) {
  const Dialect& dialect = ServerDialect();
  const std::string mark = "'orcussch.failed'";
  std::vector<std::string> texts{
      "CREATE OR REPLACE FUNCTION " + schema + "cell_failed() RETURNS void LANGUAGE plpgsql AS $function$\nBEGIN PERFORM set_config(" + mark +
          ", '1', false); END\n$function$",
      "CREATE OR REPLACE FUNCTION " + schema + dialect.cellPrefix + dialect.cellBegin +
          "() RETURNS text LANGUAGE plpgsql AS $function$\nBEGIN\n  IF current_setting(" + mark + ", true) = '1' THEN PERFORM set_config(" + mark +
          ", '0', false); END IF;\n  RETURN NULL;\nEND\n$function$"};
  for (const std::string type : {"smallint", "integer", "bigint", "float8", "text"}) {
    const std::string endless = type == "float8" ? " OR value IN ('Infinity', '-Infinity', 'NaN')" : "";
    texts.push_back("CREATE OR REPLACE FUNCTION " + schema + dialect.cellPrefix + dialect.cell + "(begun text, value " + type + ") RETURNS " + type +
                    " LANGUAGE plpgsql AS $function$\nBEGIN\n  IF current_setting(" + mark + ", true) = '1'" + endless +
                    " THEN RETURN NULL; END IF;\n  RETURN value;\nEND\n$function$");
  }
  return texts;
}

// The moment of the desk's own clock, which goes before each statement that asks for it.
std::string NowText(const std::string& schema, Set set) {
  return "CREATE OR REPLACE FUNCTION " + schema + PrefixOf(set) +
         "now() RETURNS text LANGUAGE sql STABLE PARALLEL SAFE AS $function$\nSELECT coalesce(nullif(current_setting('orcussch.moment', true), ''), "
         "replace(to_char(localtimestamp, 'YYYY-MM-DD HH24:MI:SS'), ' 00:00:00', ''))\n$function$";
}

// Like by a pattern that isn't known beforehand has a name of its own in statements.
std::string LikeText(const std::string& schema, const std::string& name, Set set) {
  return "CREATE OR REPLACE FUNCTION " + schema + name + "(t text, pattern text) RETURNS bigint LANGUAGE sql" +
         (set == Set::Cells ? " VOLATILE" : " STABLE PARALLEL SAFE") + " AS $function$\nSELECT " + schema + PrefixOf(set) +
         "like($1, $2)\n$function$";
}

// The first and the last of two values, Null if one is Null.
std::string EndText(const std::string& schema, const std::string& name, std::string_view sign) {
  return "CREATE OR REPLACE FUNCTION " + schema + name +
         "(a anycompatible, b anycompatible) RETURNS anycompatible LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $function$\nSELECT CASE WHEN $1 " +
         std::string(sign) + " $2 THEN $1 WHEN $2 IS NOT NULL AND $1 IS NOT NULL THEN $2 END\n$function$";
}

}  // namespace

std::vector<std::string> FunctionTexts(std::string_view schema) {
  const std::string prefix = QuoteName(schema) + '.';
  std::vector<std::string> texts = CellTexts(prefix);
  for (const Set set : {Set::Conditions, Set::Cells}) texts.push_back(NowText(prefix, set));
  for (const auto functions : {NumberFunctions(), ArithmeticFunctions(), TextFunctions(), DateFunctions(), FormatFunctions()}) {
    for (const ServerFunction& function : functions) {
      if (function.kind == Kind::Inner) {
        texts.push_back(TextOf(function, Set::None, prefix));
        continue;
      }
      for (const Set set : {Set::Conditions, Set::Cells}) texts.push_back(TextOf(function, set, prefix));
    }
  }
  const Dialect& dialect = ServerDialect();
  texts.push_back(LikeText(prefix, dialect.like, Set::Conditions));
  texts.push_back(LikeText(prefix, dialect.ForCells().like, Set::Cells));
  texts.push_back(EndText(prefix, dialect.least, "<="));
  texts.push_back(EndText(prefix, dialect.greatest, ">="));
  return texts;
}

}  // namespace engine::postgres
