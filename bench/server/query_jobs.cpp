#include <chrono>
#include <limits>
#include <stdexcept>

#include "server/branch.h"

namespace bench::branch {
namespace {

constexpr int kPage = 50;

struct Question {
  std::string name;
  std::string joins, where;  ///< as the query screen writes them
  std::string bare;          ///< the same on "c"
  std::string keys{};        ///< SELECT of the accounts among which its rows are, "" for none
};

std::string Table(std::string_view name) { return bare::Server::Table(name); }

// Letters and digits alone stand in them.
std::string Starts(const std::string& column, const std::string& start) {
  return column + " >= '" + start + "' AND " + column + " < '" + start + "' || chr(127)";
}

std::string Among(const std::string& keys) { return "c.\"AcctNum\" IN (" + keys + ")"; }

std::vector<Question> Questions(bare::Server& held) {
  const std::string area = held.Value("SELECT \"~k.Area\" FROM " + Table("Phones") + R"( WHERE "Area" <> '' GROUP BY 1 ORDER BY count(*) DESC LIMIT 1)");
  const std::string rare = held.Value("SELECT \"~k.Area\" FROM " + Table("Phones") + R"( WHERE "Area" <> '' GROUP BY 1 ORDER BY count(*) LIMIT 1)");
  const std::string word = held.Value("SELECT \"Text\" FROM " + Table("Lookups") + " GROUP BY 1 ORDER BY count(*) DESC LIMIT 1");
  const std::string rareWord = held.Value("SELECT \"Text\" FROM " + Table("Lookups") + " GROUP BY 1 HAVING count(*) >= 10 ORDER BY count(*) LIMIT 1");
  const std::string byArea = R"(SELECT "AcctNum" FROM )" + Table("Phones") + " WHERE ";
  const std::string byWord = R"(SELECT "AcctNum" FROM )" + Table("Lookups") + R"( WHERE "~k.Text" = lower(')";
  const std::string phones = " INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum";
  const std::string words = " INNER JOIN Lookups ON Customers.AcctNum = Lookups.AcctNum";
  const std::string types = " INNER JOIN CustCodes ON Customers.AcctNum = CustCodes.AcctNum";
  const auto areaKeys = [&](const std::string& start) { return byArea + Starts("\"~k.Area\"", start); };
  return {
      {"last name starts with Smi", "Customers", "(Customers.LastName Like 'Smi*')", Starts("c.\"~k.LastName\"", "smi")},
      {"state exactly and balance at least", "Customers", "(Customers.State Like 'MN') AND (Customers.CurrBalance>=500)",
       R"(c."State" = 'MN' AND c."CurrBalance" >= 5000000)"},
      {"address contains", "Customers", "((Customers.Addr1 Like '*Main*') OR (Customers.Addr2 Like '*Main*'))",
       R"((c."Addr1" ILIKE '%main%' OR c."Addr2" ILIKE '%main%'))"},
      {"address contains a rare text", "Customers", "((Customers.Addr1 Like '*4711 M*') OR (Customers.Addr2 Like '*4711 M*'))",
       R"((c."Addr1" ILIKE '%4711 m%' OR c."Addr2" ILIKE '%4711 m%'))"},
      {"phone area, common", "Customers" + phones, "(Phones.Area Like '" + area + "*')", Among(areaKeys(area)), areaKeys(area)},
      {"phone area, rare", "Customers" + phones, "(Phones.Area Like '" + rare + "*')", Among(areaKeys(rare)), areaKeys(rare)},
      {"key word, rare", "Customers" + words, "(Lookups.Text = '" + rareWord + "')", Among(byWord + rareWord + "')"), byWord + rareWord + "')"},
      {"key word, common", "Customers" + words, "(Lookups.Text = '" + word + "')", Among(byWord + word + "')"), byWord + word + "')"},
      {"key word, type and area together", "((Customers" + phones + ")" + words + ")" + types,
       "(Phones.Area Like '" + area + "*') AND (Lookups.Text = '" + word + "') AND (CustCodes.CustCodes = 5)",
       Among(byWord + word + "')") + " AND " + Among(areaKeys(area)) + " AND " +
           Among("SELECT \"AcctNum\" FROM " + Table("CustCodes") + R"( WHERE "CustCodes" = 5)")},
  };
}

// The ways somebody would try: what the planner makes of it, all rows that fit put in order, the rare keys first, a walk along the names.
std::vector<std::string> WaysOf(const bare::Server& server, const Question& question) {
  const std::string rows = "SELECT " + server.Columns() + " FROM " + Table("Customers") + " c WHERE ";
  const std::string order = R"(c."AcctNum" LIMIT 50)";
  const std::string byName = R"( ORDER BY c."~k.LastName" NULLS FIRST, )";
  std::vector<std::string> ways{rows + question.bare + byName + order,
                                rows + question.bare + R"( ORDER BY c."~k.LastName" || '' NULLS FIRST, )" + order};
  if (!question.keys.empty()) {
    ways.push_back("WITH k AS MATERIALIZED (SELECT DISTINCT x.\"AcctNum\" FROM (" + question.keys + ") x) SELECT " + server.Columns() +
                   " FROM k JOIN " + Table("Customers") + R"( c ON c."AcctNum" = k."AcctNum")" + byName + order);
    std::string oneByOne = question.keys;
    ways.push_back(rows + "EXISTS (" + oneByOne.replace(oneByOne.find(" WHERE "), 7, " t WHERE t.\"AcctNum\" = c.\"AcctNum\" AND ") + " OFFSET 0)" + byName + order);
  }
  return ways;
}

double Milliseconds(const std::function<void()>& work) {
  const auto begun = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
}

struct Best {
  std::string way;
  double milliseconds = std::numeric_limits<double>::max();
};

Best BestOf(bare::Server& server, const Question& question) {
  Best best;
  server.Run("SET statement_timeout = '20s'");
  for (const std::string& way : WaysOf(server, question)) {
    double took = std::numeric_limits<double>::max();
    try {
      for (int round = 0; round < 3; ++round) took = std::min(took, Milliseconds([&] { server.RunPrepared(way, {}, true); }));
    } catch (const std::runtime_error& error) {
      if (std::string_view(error.what()).find("timeout") == std::string_view::npos) throw;
    }
    if (took < best.milliseconds) best = {way, took};
  }
  server.Run("SET statement_timeout = 0");
  return best;
}

// A condition that every row meets, so that nobody has been asked just this.
std::string Anew(const std::string& account) {
  static int asked = 0;
  return " AND (" + account + " <> -" + std::to_string(++asked) + ')';
}

// `anew`: as somebody asks it for the first time, whose statement and the best way to its answer nobody knows yet; else once more.
Job QueryJob(Company& company, const std::string& name, const Question& question, const Best& best, bool anew) {
  constexpr double kQuick = 5;  // milliseconds
  const auto statement = [question, anew] {
    return "Select DISTINCTROW Customers.* FROM " + question.joins + " WHERE " + question.where + (anew ? Anew("Customers.AcctNum") : "") +
           " ORDER BY LastName;";
  };
  const auto bare = [way = best.way, anew] {
    std::string text = way;
    if (anew) text.insert(text.find(" ORDER BY c."), (way.starts_with("WITH") ? " WHERE true" : "") + Anew("c.\"AcctNum\""));
    return text;
  };
  Job job = company.Begin(name, anew ? 0 : 1.4);
  job.calls = best.milliseconds < kQuick ? 20 : 1;
  job.ours = [&company, statement](int) {
    const auto list = company.Open(statement());
    const auto sum = SumOf(list->Window().RowsAt(0, kPage));
    list->Close();
    return sum;
  };
  job.raw = [&company, bare](int) { return bare::SumOf(company.Bare().RunPrepared(bare(), {}, true)); };
  return job;
}

}  // namespace

std::vector<Job> QueryJobs(Company& company, const std::string& only) {
  std::vector<Job> jobs;
  for (const Question& question : Questions(company.Bare())) {
    const std::string again = "query, first 50 rows: " + question.name;
    const std::string anew = "query asked for the first time: " + question.name;
    const auto wanted = [&only](const std::string& name) { return name.find(only) != std::string::npos; };
    if (!wanted(again) && !wanted(anew)) continue;
    const Best best = BestOf(company.Bare(), question);
    if (wanted(again)) jobs.push_back(QueryJob(company, again, question, best, false));
    if (wanted(anew)) jobs.push_back(QueryJob(company, anew, question, best, true));
  }
  return jobs;
}

}  // namespace bench::branch
