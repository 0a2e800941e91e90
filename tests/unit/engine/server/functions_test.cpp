// The dialect's functions as a schema has them, beside those that files call.
#include "engine/store/postgres/schema/functions/functions.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <random>

#include "engine/functions/functions.h"
#include "engine/functions/store_functions.h"
#include "engine/store/postgres/wording/dialect.h"
#include "engine/text/like.h"
#include "platform/values/error.h"
#include "platform/values/text.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

// How a value shows, with its errors: "E!13".
std::string Shown(const StoredValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* real = std::get_if<double>(&value)) {
    std::array<char, 32> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), *real == 0 ? 0.0 : *real).ptr};
  }
  return "Null";
}

std::string Expected(const StoreFunction& function, const std::vector<StoredValue>& arguments) {
  try {
    return Shown(function.call(arguments));
  } catch (const platform::Error& error) {
    return "E!" + std::to_string(error.Number());
  }
}

// As statements write it.
std::string Literal(const StoredValue& value) {
  const Dialect& dialect = ServerDialect();
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return '(' + std::to_string(*whole) + ')';
  if (const auto* text = std::get_if<std::string>(&value)) return dialect.Text(*text) + "::text";
  if (const auto* real = std::get_if<double>(&value)) return '(' + dialect.Constant(*real) + ')';
  return "NULL";
}

class Values {
 public:
  explicit Values(unsigned seed) : random_(seed) {}

  StoredValue Of(char kind) {
    if (kind != 'm' && random_() % 12 == 0) return {};
    switch (kind) {
      case 't':
        return AnyText();
      case 'n':
        return random_() % 2 == 0 ? StoredValue(Whole()) : StoredValue(Real());
      case 'r':
        return Real();
      case 's':  // a small one
        return random_() % 4 == 0 ? StoredValue(Real()) : StoredValue(std::int64_t{static_cast<int>(random_() % 24) - 3});
      case 'w':
        return Whole();
      case 'c':
        return Amount();
      case 'd':
        return Date();
      case 'm':
        return Moment();
      case 'f':
        return AnyFormat();
      default:
        return random_() % 2 == 0 ? StoredValue(Real()) : StoredValue(AnyText());
    }
  }

 private:
  template <class List>
  auto OneOf(const List& list) {
    return list[random_() % std::size(list)];
  }

  double Real() {
    static constexpr std::array kSome{0.0,       -0.0,     0.5,      1.5,     2.5,       -0.5,     0.00005,    1.00005,      0.1,     1e15,
                                      1e14,      1e-4,     9.9999e-5, 1e20,    1e308,     -1e308,   5e-324,     1e-300,       255.5,   256.0,
                                      32767.5,   -32768.5, 2147483647.5, -2147483648.5, 2147483647.4999, 9.3e14, -9.3e14, 123456789.12345,
                                      36161.75,  -657434.5, 2958465.9999999, -657435.0, 0.999999999, -0.75, 1.7976931348623157e308};
    switch (random_() % 5) {
      case 0:
        return OneOf(kSome);
      case 1:
        return static_cast<double>(static_cast<std::int64_t>(random_() % 2'000'001) - 1'000'000) / 100;
      case 2:
        return static_cast<double>(static_cast<std::int64_t>(random_() % 200'001) - 100'000) / 2;
      case 3: {
        const std::uint64_t bits = std::uint64_t{random_()} << 32 | random_();
        double number = 0;
        static_assert(sizeof bits == sizeof number);
        std::memcpy(&number, &bits, sizeof number);
        return std::isfinite(number) ? number : 1.0;
      }
      default:
        return (static_cast<double>(random_()) / 4294967296.0 - 0.5) * std::pow(10.0, static_cast<int>(random_() % 40) - 20);
    }
  }

  std::int64_t Whole() {
    static constexpr std::array<std::int64_t, 16> kSome{0, 1, -1, 2, 255, 256, -32768, 32767, 32768, 2147483647, -2147483648LL, 2147483648LL, -2147483649LL, 7, 12, 10};
    return random_() % 3 == 0 ? OneOf(kSome) : static_cast<std::int64_t>(random_() % 200'001) - 100'000;
  }

  std::int64_t Amount() {
    static constexpr std::array<std::int64_t, 10> kSome{0, 1, -1, 5000, -5000, 9'999'999, std::numeric_limits<std::int64_t>::max(),
                                                        std::numeric_limits<std::int64_t>::min() + 1, 3'037'000'499'976'049, -15'000};
    if (random_() % 3 == 0) return OneOf(kSome);
    const auto wide = static_cast<std::int64_t>(std::uint64_t{random_()} << 32 | random_());
    return wide >> random_() % 60;
  }

  std::string Date() {
    static constexpr std::array kSome{"1999-01-31", "1899-12-30", "1899-12-30 18:00:00", "0100-01-01", "9999-12-31 23:59:59", "0000-05-05", "1999-02-29",
                                      "2000-02-29", "1899-12-29 06:00:00", "x", "", "1999-01-31 24:00:00", "1999-1-31", "1999-01-31T10:00:00"};
    if (random_() % 4 == 0) return OneOf(kSome);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02u", static_cast<unsigned>(random_() % 3 == 0 ? random_() % 10'000 : 1890 + random_() % 130),
                  static_cast<unsigned>(random_() % 12 + 1), static_cast<unsigned>(random_() % 30 + 1));
    std::string date = text.data();
    if (random_() % 2 == 0) return date;
    std::snprintf(text.data(), text.size(), " %02u:%02u:%02u", static_cast<unsigned>(random_() % 24), static_cast<unsigned>(random_() % 60),
                  static_cast<unsigned>(random_() % 60));
    return date + text.data();
  }

  // What the desk's clock tells, which is always a date.
  std::string Moment() {
    static constexpr std::array kSome{"1999-01-31", "2000-02-29 23:59:59", "2026-12-31 10:15:00", "1899-12-30", "0100-01-01 00:00:01"};
    return OneOf(kSome);
  }

  std::string NumberText() {
    static const std::vector<std::string> parts{"1", "25", "0", ".", ",", "5", "-", "+", "$", "(", ")", " ", "e", "E3", "d-2", "&H", "&O", "7F", "00", "\t",
                                                "1e308", "e400", "2147483647", "32768", ".5", "1,234.56", "&", "F", "e-400", "9223372036854775807"};
    std::string text;
    for (auto left = random_() % 5 + 1; left > 0; --left) text += OneOf(parts);
    return text;
  }

  std::string AnyFormat() {
    static const std::vector<std::string> names{"General Number", "currency", "Fixed", "Standard", "Percent", "Short Date", "General Date", "Long Date", "medium date", "Long Time",
                                                "Medium Time", "Short Time", "Yes/No", "true/false", "On/Off", "(@@@) @@@-@@@@", "#,##0.00;(#,##0.00);zero", "0000", "!@@", "&&<", ">", "m/d/yyyy h:nn"};
    static const std::vector<std::string> pieces{"0", "#", ",", ".", "%", ";", "$", "(", ")", "-", "\\x", "\"ab\"", "@", "&", "<", ">", "!", "d", "dd", "ddd", "dddd", "ddddd", "m", "mm",
                                                 "mmm", "mmmm", "y", "yy", "yyyy", "h", "hh", "n", "nn", "s", "q", "w", "ww", "AM/PM", "a/p", "/", ":", " ", "\xC3\xA9", "\"", "\\"};
    if (random_() % 2 == 0) return OneOf(names);
    std::string format;
    const bool ofDates = random_() % 2 == 0;
    for (auto left = random_() % 6; left > 0; --left) format += ofDates ? pieces[17 + random_() % (pieces.size() - 17)] : pieces[random_() % 17];
    return format;
  }

  std::string AnyText() {
    static const std::vector<std::string> words{"", " ", "abc", "Smith", "\xC3\xA9", "\xC3\x89t\xC3\xA9", "stra\xC3\x9F" "e", "\xC5\xBF", "\xE4\xB8\xAD", "\xF0\x9F\x98\x80", "12", "x y", "  a ", "True",
                                                "false", "A", "a", "'", "\\", "\xC4\xB0", "\xCE\xA3", "\xCF\x82"};
    static const std::vector<std::string> days{"1/31/1999", "Jan 31, 1999", "31 January 99", "1999-01-31", "10:30", "10:30:15 PM", "3 pm", "1/31", "Feb 2000", "2/30/1999",
                                               "13/1/99", "1/31/1999 10:00 AM", "10:00 1/31/1999", "25:00", "12/30/1899", "1-2-3", "1 2 3", "May", "99999", "1/1/100", "1,,2", "5/1999"};
    switch (random_() % 4) {
      case 0:
        return NumberText();
      case 1:
        return OneOf(days);
      default: {
        std::string text;
        for (auto left = random_() % 4; left > 0; --left) text += OneOf(words);
        return text;
      }
    }
  }

  std::mt19937 random_;
};

class Functions : public ServerTest {
 protected:
  Functions() : connection(TargetOf("functions.zdb"), Short()) {
    Create("functions.zdb", {});
    Run(connection, "CREATE FUNCTION tried(word text) RETURNS text LANGUAGE plpgsql AS $f$ DECLARE answer text; BEGIN "
                    "EXECUTE 'SELECT (' || word || ')::text' INTO answer; RETURN coalesce(answer, 'Null'); "
                    "EXCEPTION WHEN OTHERS THEN RETURN CASE WHEN SQLSTATE LIKE 'OR%' THEN 'E!' || ltrim(substr(SQLSTATE, 3), '0') ELSE SQLSTATE || SQLERRM END; END $f$");
  }

  // What each of these gives on the server.
  std::vector<std::string> Tried(const std::vector<std::string>& calls) {
    std::vector<std::string> answers;
    constexpr std::size_t kAtOnce = 500;
    for (std::size_t first = 0; first < calls.size(); first += kAtOnce) {
      std::string sql = "SELECT tried(word) FROM (VALUES ";
      for (std::size_t i = first; i < std::min(first + kAtOnce, calls.size()); ++i)
        sql += (i == first ? "(" : ", (") + std::to_string(i) + ", " + ServerDialect().Text(calls[i]) + ")";
      for (std::string& answer : Ask(connection, sql + ") AS calls (place, word) ORDER BY place")) answers.push_back(std::move(answer));
    }
    return answers;
  }

  struct Call {
    std::string text;
    std::string expected;
  };

  void Compare(std::string_view name, const std::vector<Call>& calls) {
    std::vector<std::string> texts;
    for (const Call& call : calls) texts.push_back(call.text);
    const std::vector<std::string> answers = Tried(texts);
    ASSERT_EQ(answers.size(), calls.size());
    int wrong = 0;
    for (std::size_t i = 0; i < calls.size() && wrong < 8; ++i) {
      if (answers[i] == calls[i].expected) continue;
      // A real number that the server words otherwise.
      double left = 0;
      double right = 0;
      const auto read = [](const std::string& text, double& number) {
        const char* const end = text.data() + text.size();
        return std::from_chars(text.data(), end, number).ptr == end && !text.empty();
      };
      if (read(answers[i], left) && read(calls[i].expected, right) && left == right) continue;
      ++wrong;
      ADD_FAILURE() << name << ": " << calls[i].text << "\n  files: " << calls[i].expected << "\n  server: " << answers[i];
    }
  }

  ServerConnection connection;
};

// A letter an argument, as in Values::Of; functions with a fitting number of arguments behind each other.
std::vector<std::string> ShapesOf(const StoreFunction& function) {
  static const std::map<std::string_view, std::vector<std::string>> helpers{
      {"cdate", {"tm"}},       {"concat", {"t", "ttt"}}, {"dayof", {"d"}},     {"divide", {"nn"}},    {"fitbyte", {"w"}},  {"fitcur", {"c"}},
      {"fitlong", {"w"}},      {"fitshort", {"w"}},      {"isdate", {"tm"}},   {"intdiv", {"nn"}},    {"modulo", {"nn"}},  {"mulcur", {"cc"}},
      {"power", {"nn", "ss"}}, {"serial", {"d"}},        {"textbool", {"n"}},  {"textcur", {"c"}},    {"textdate", {"d"}}, {"textnum", {"n", "r"}},
      {"timeof", {"d"}},       {"tocur", {"r"}},         {"todate", {"r"}},    {"toreal", {"t"}},     {"format", {"nfm", "tfm"}}, {"formatbool", {"sf"}},
      {"formatcur", {"cf"}},   {"formatdate", {"df"}},       {"abs", {"n", "c"}},  {"isnumeric", {"t"}},  {"left", {"ts"}},    {"right", {"ts"}},
      {"mid", {"ts", "tss"}},  {"instr", {"tt", "stt", "ttt"}}, {"space", {"s"}}, {"dateserial", {"nss", "sss"}}};
  if (const auto found = helpers.find(function.name); found != helpers.end()) return found->second;
  const SqlFunction* const own = FindSqlFunction(function.name);
  return {std::string(own->parameters)};
}

TEST_F(Functions, GiveWhatThoseOfFilesGive) {
  Values values(11);
  for (const StoreFunction& function : StoreFunctions()) {
    std::vector<Call> calls;
    for (const std::string& shape : ShapesOf(function)) {
      for (int round = 0; round < 2'000; ++round) {
        std::vector<StoredValue> arguments;
        std::string text;
        for (const char kind : shape) {
          arguments.push_back(values.Of(kind));
          text += (text.empty() ? "" : ", ") + Literal(arguments.back());
        }
        calls.push_back({"f_" + std::string(function.name) + '(' + text + ')', Expected(function, arguments)});
      }
    }
    Compare(function.name, calls);
  }
}

// What fails in a cell makes it Null, whatever stands around.
TEST_F(Functions, LeaveAMarkInCells) {
  Values values(12);
  for (const StoreFunction& function : StoreFunctions()) {
    std::vector<Call> calls;
    for (const std::string& shape : ShapesOf(function)) {
      for (int round = 0; round < 60; ++round) {
        std::vector<StoredValue> arguments;
        std::string text;
        for (const char kind : shape) {
          arguments.push_back(values.Of(kind));
          text += (text.empty() ? "" : ", ") + Literal(arguments.back());
        }
        const std::string expected = Expected(function, arguments);
        const std::string call = "c_" + std::string(function.name) + '(' + text + ')';
        calls.push_back({"c_cell(c_begin(), " + call + ')', expected.starts_with("E!") ? "Null" : expected});
        if (expected.starts_with("E!")) calls.push_back({call, "Null"});
        if (expected.starts_with("E!")) calls.push_back({"c_cell(c_begin(), CASE WHEN " + call + " IS NULL THEN 'a' ELSE 'b' END)", "Null"});
      }
    }
    Compare(function.name, calls);
  }
}

TEST_F(Functions, MatchPatternsAsFilesDo) {
  std::mt19937 random(13);
  static const std::vector<std::string> pieces{"*", "?", "#", "a", "B", "s", "\xC3\x9F", "\xC3\xA9", "e", "[a-c]", "[!a]", "[", "]", "[z-a]", "-", " ", "1", "[]", "\xC2\xA0",
                                               "[!0-9]", "[*]", "!", "\xC5\xBF", "ss", "\xE4\xB8\xAD", "[-a]", "[a-]", "/", ":", "\n"};
  const auto any = [&](unsigned long most) {
    std::string text;
    for (auto left = random() % (most + 1); left > 0; --left) text += pieces[random() % pieces.size()];
    return text;
  };
  std::vector<Call> calls;
  for (int round = 0; round < 6'000; ++round) {
    const std::string text = any(5);
    const std::string pattern = random() % 3 == 0 ? '*' + text.substr(0, text.size() / 2) + "*" : any(4);
    const std::string expected = [&]() -> std::string {
      try {
        return LikePattern(pattern).Matches(text) ? "-1" : "0";
      } catch (const platform::Error& error) {
        return "E!" + std::to_string(error.Number());
      }
    }();
    if (!platform::IsValidUtf8(pattern)) continue;
    calls.push_back({"jlike(" + Literal(text) + ", " + Literal(pattern) + ')', expected});
  }
  Compare("jlike", calls);
}

// Real numbers beyond all others and near 0, and amounts at their bounds, as the operators of files have them.
TEST_F(Functions, ComputeWhereTheServersOperatorsFail) {
  const std::vector<Call> calls{{"f_addreal(1e308, 1e308)", "inf"},
                                {"f_subreal(-1e308, 1e308)", "-inf"},
                                {"f_mulreal(1e200, -1e200)", "-inf"},
                                {"f_mulreal(1e-200, 1e-200)", "0"},
                                {"f_divreal(1e-200, 1e200)", "0"},
                                {"f_divreal(1e200, 1e-200)", "inf"},
                                {"f_addlong(2147483647, 1)", "2147483648"},
                                {"f_neglong((-2147483648)::integer)", "2147483648"},
                                {"f_mullong(2147483647, 2147483647)", "4611686014132420609"},
                                {"f_addcur(9223372036854775807, 1)", "E!6"},
                                {"f_addcur(9223372036854775806, 1)", "9223372036854775807"},
                                {"f_addcur(-9223372036854775808, -1)", "E!6"},
                                {"f_subcur(-9223372036854775808, 1)", "E!6"},
                                {"f_subcur(-1, -9223372036854775808)", "9223372036854775807"},
                                {"f_subcur(0, -9223372036854775808)", "E!6"},
                                {"f_timescur(-4611686018427387904, 2)", "-9223372036854775808"},
                                {"f_timescur(4611686018427387904, 2)", "E!6"},
                                {"f_negcur(-9223372036854775808)", "E!6"},
                                {"f_addlong(NULL, 1)", "Null"},
                                {"f_addreal(NULL, 1)", "Null"},
                                {"least_of(1, NULL)", "Null"},
                                {"least_of(3, 2.5::float8)", "2.5"},
                                {"greatest_of('b'::text, 'a')", "b"},
                                {"c_cell(c_begin(), f_mulreal(1e200, 1e200))", "Null"}};
  Compare("arithmetic", calls);
}

}  // namespace
}  // namespace engine::postgres
