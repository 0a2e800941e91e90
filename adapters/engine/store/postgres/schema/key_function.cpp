#include "engine/store/postgres/schema/key_function.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "engine/store/postgres/wording/key_columns.h"
#include "engine/store/postgres/wording/names.h"
#include "engine/store/postgres/text/characters.h"
#include "engine/store/postgres/text/text_key.h"
#include "platform/values/text.h"

namespace engine::postgres {
namespace {

void AppendJson(std::string& json, std::string_view text) {
  json += '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F || c == '"' || c == '\\') {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04X", static_cast<unsigned>(byte));
      json += escape.data();
    } else {
      json += c;
    }
  }
  json += '"';
}

// {"é": "e\u0001!\"" ...}: each special character with both parts of its key.
std::string SpecialsJson() {
  std::string json = "{";
  for (const SpecialCharacter& special : AllCharacters().special) {
    if (json.size() > 1) json += ", ";
    std::string character;
    platform::AppendCodePoint(character, special.character);
    AppendJson(json, character);
    json += ": ";
    const KeyParts parts = KeyPartsOf(special.character);
    AppendJson(json, parts.primary + kAccentsFollow + parts.accents);
  }
  return json + "}";
}

// Where symbols begin and end, by turns. What lies between two runs of symbols and is special needs no border.
std::string SymbolBorders() {
  const Characters& all = AllCharacters();
  std::string borders;
  const auto add = [&](char32_t border) { borders += (borders.empty() ? "" : ", ") + std::to_string(static_cast<std::uint32_t>(border)); };
  const auto lettersBetween = [&](char32_t first, char32_t last) {
    const auto next = std::lower_bound(all.letters.begin(), all.letters.end(), first,
                                       [](const CharacterRange& run, char32_t character) { return run.last < character; });
    return next != all.letters.end() && next->first <= last;
  };
  for (std::size_t i = 0; i < all.symbols.size(); ++i) {
    if (i == 0 || lettersBetween(all.symbols[i - 1].last, all.symbols[i].first)) add(all.symbols[i].first);
    if (i + 1 == all.symbols.size() || lettersBetween(all.symbols[i].last, all.symbols[i + 1].first)) add(all.symbols[i].last + 1);
  }
  return borders;
}

}  // namespace

std::vector<std::string> KeyFunctionTexts(std::string_view schema) {
  const std::string prefix = QuoteName(schema) + '.';
  const std::string code = "chr(48 + ((code >> 18) & 63)) || chr(48 + ((code >> 12) & 63)) || chr(48 + ((code >> 6) & 63)) || chr(48 + (code & 63))";
  // By character: texts that hold more than ASCII. An element is a character's key, accents behind chr(1).
  const std::string byCharacter = "CREATE OR REPLACE FUNCTION " + prefix + "text_key_any(t text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $function$\n" +
                     "DECLARE\n"
                     "  one text;\n"
                     "  element text COLLATE \"C\";\n"
                     "  code integer;\n"
                     "  primaries text COLLATE \"C\" := '';\n"
                     "  accents text COLLATE \"C\" := '';\n"
                     "BEGIN\n"
                     "  IF t IS NULL THEN RETURN NULL; END IF;\n"
                     "  FOREACH one IN ARRAY string_to_array(rtrim(t COLLATE \"C\", chr(32) || chr(9) || chr(160)), NULL) LOOP\n"
                     "    element := ($json$" +
                     SpecialsJson() +
                     "$json$::jsonb) ->> one;\n"
                     "    IF element IS NULL THEN\n"
                     "      code := ascii(one);\n"
                     "      primaries := primaries || CASE WHEN width_bucket(code, '{" +
                     SymbolBorders() +
                     "}'::integer[]) % 2 = 1 THEN '/~' || chr(127) ELSE '}' END || " + code +
                     ";\n"
                     "      accents := accents || '!';\n"
                     "    ELSE\n"
                     "      primaries := primaries || split_part(element, chr(1), 1);\n"
                     "      accents := accents || split_part(element, chr(1), 2);\n"
                     "    END IF;\n"
                     "  END LOOP;\n"
                     "  accents := rtrim(accents, '!');\n"
                     "  RETURN CASE WHEN accents = '' THEN primaries ELSE primaries || chr(1) || accents END;\n"
                     "END\n"
                     "$function$";
  // Not strict: a strict one is called where this one becomes a part of the statement.
  const std::string whole = "CREATE OR REPLACE FUNCTION " + prefix + std::string(kTextKeyFunction) +
          "(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $function$\n"
          "SELECT CASE WHEN t IS NULL OR t COLLATE \"C\" ~ '^[ -/0-9A-Za-z]*$' THEN lower(rtrim(t COLLATE \"C\", ' '))\n"
          "  WHEN t COLLATE \"C\" ~ '^[ -~]*$' THEN regexp_replace(lower(rtrim(t COLLATE \"C\", ' ')), '[:-@[-`{-~]', '/~\\&', 'g')\n"
          "  ELSE " +
          prefix +
          "text_key_any(t) COLLATE \"C\" END\n"
          "$function$";
  return {byCharacter, whole};
}

}  // namespace engine::postgres
