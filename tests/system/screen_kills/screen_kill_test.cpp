#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <thread>

#include "engine/data_file.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "support/temporary_folder.h"
#include "system/screen_kills/clerk.h"
#include "system/screen_kills/victim.h"

/// screen_kill_test PROGRAMS [--kills N] [--acts N] [--seed S] [--front F]: a user adds, changes and deletes every kind of record
/// by the real program's main screen; the program is killed at a random moment, again and again. After each kill the files must
/// be sound and hold every act that was acknowledged, of the act in work the first k of its commits, and nothing else: the whole
/// customer file is compared, row by row and field by field, with what the rules say. What was acknowledged is known to this
/// program alone.
///
/// --kills: at least so many kills; --acts: at least so many acknowledged acts of every kind.
namespace {

using namespace system_test;

struct Options {
  std::string programs;
  int kills = 20;
  int acts = 0;
  unsigned seed = 1;
  std::string front = "robot";
};

Options Read(int count, char** words) {
  Options options;
  options.programs = words[1];
  for (int i = 2; i + 1 < count; i += 2) {
    const std::string word = words[i];
    if (word == "--kills") options.kills = std::stoi(words[i + 1]);
    if (word == "--acts") options.acts = std::stoi(words[i + 1]);
    if (word == "--seed") options.seed = static_cast<unsigned>(std::stoul(words[i + 1]));
    if (word == "--front") options.front = words[i + 1];
  }
  return options;
}

class ScreenKillTest {
 public:
  explicit ScreenKillTest(Options options)
      : options_(std::move(options)),
        chance_(options_.seed),
        clerk_(chance_),
        place_{options_.programs, company_.Path(), outside_ / "acts.scn"} {
    ::setenv("HOME", outside_.Path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", outside_.Path().c_str(), 1);
    MakeCompany();
  }

  int Run() {
    Undisturbed(kFirstActs);
    while (!failed_ && (kills_ < options_.kills || Rarest() < options_.acts)) {
      if (rounds_ % kRoundsBetweenClearings == 0) ClearAway();
      Round();
    }
    if (!failed_) Undisturbed(kFirstActs);
    if (!failed_) CheckReferences();
    Tell();
    return failed_ ? 1 : 0;
  }

 private:
  static constexpr int kFirstActs = 70;
  static constexpr std::size_t kActsOfAVictim = 24;
  static constexpr int kRoundsBetweenClearings = 25;

  std::string File(suite::DataFile file) const {
    if (file == suite::DataFile::Dat) return company_ / "dat.zdb";
    if (file == suite::DataFile::Temporary) return company_ / "orvTEMP/orvTemp1.zdb";
    return company_ / ("data/orv1/" + suite::FileName(file));
  }
  std::string CustomerFile() const { return File(suite::DataFile::Customer); }

  void Fail(const std::string& sentence) {
    failed_ = true;
    std::cout << "round " << rounds_ << ": " << sentence << '\n';
  }

  int RunTool(const std::vector<std::string>& words, std::vector<std::string>* said = nullptr) {
    std::vector<std::string> line{options_.programs + "/suitefiles"};
    line.insert(line.end(), words.begin(), words.end());
    Child tool(line);
    for (std::string text; tool.ReadLine(text);)
      if (said != nullptr) said->push_back(text);
    return tool.Wait();
  }

  void MakeCompany() {
    if (RunTool({"create", company_.Path(), "--company", "1", "--year", "2026"}) != 0) Fail("the company can't be made");
    if (RunTool({"temp", company_.Path(), "--user", "1"}) != 0) Fail("the temporary file can't be made");
    for (const char* tax : {"City", "County", "State", "Transit", "Water"})
      RunStatement(CustomerFile(), std::string("INSERT INTO TaxGrid (Description) VALUES ('") + tax + "')");
    books_ = ReadBooks(CustomerFile());
  }

  /// Other programs of the suite clear away what belonged to deleted customers, so that the file stays small, and take every other
  /// type and word from all customers, so that some can be deleted.
  void ClearAway() {
    struct Owned {
      const char* table;
      const char* owner;
    };
    for (const Owned& owned : {Owned{"Phones", "AcctNum"}, Owned{"Addresses", "Customer"}, Owned{"CustCreditCards", "AcctNum"},
                               Owned{"CustLaborRates", "AcctNum"}, Owned{"CustCodes", "AcctNum"}, Owned{"Lookups", "AcctNum"}}) {
      std::set<std::string> gone;
      for (const auto& [key, row] : books_.tables[owned.table])
        if (!books_.tables["Customers"].contains(row.at(owned.owner))) gone.insert(row.at(owned.owner));
      for (const std::string& acct : gone)
        RunStatement(CustomerFile(), std::string("DELETE FROM ") + owned.table + " WHERE " + owned.owner + " = " + acct);
    }
    bool other = false;
    for (const auto& [code, row] : books_.tables["DataCodes"])
      if ((other = !other)) RunStatement(CustomerFile(), "DELETE FROM CustCodes WHERE CustCodes = " + code);
    for (const auto& [word, row] : books_.tables["Keywords"])
      if ((other = !other)) RunStatement(CustomerFile(), "DELETE FROM Lookups WHERE [Text] = '" + word + "'");
    books_ = ReadBooks(CustomerFile());
  }

  std::vector<Operation> Plan(std::size_t count) {
    std::vector<Operation> acts;
    Books planned = books_;
    while (acts.size() < count) acts.push_back(clerk_.Next(planned));
    return acts;
  }

  std::vector<std::string> VictimOptions() {
    std::vector<std::string> words{"--front", options_.front};
    // Every other one uses the lists for large files.
    if (rounds_ % 2 == 1) words.insert(words.end(), {"--threshold", "0"});
    return words;
  }

  /// Acts that nobody disturbs: every expectation holds and everything is written.
  void Undisturbed(std::size_t count) {
    const auto acts = Plan(count);
    Victim program(place_, acts, VictimOptions());
    const int status = program.Wait();
    if (status != 0) return Fail("the undisturbed program ended with " + std::to_string(status) + ": " + program.Complaints());
    Verify(acts, program.Done());
  }

  void Round() {
    ++rounds_;
    const auto acts = Plan(kActsOfAVictim);
    Victim victim(place_, acts, VictimOptions());
    // Every tenth is killed while it starts, the others at a random moment of or behind the act that was drawn.
    const bool starting = rounds_ % 10 == 0;
    const auto drawn = static_cast<std::size_t>(std::uniform_int_distribution<int>(0, kActsOfAVictim - 2)(chance_));
    if (!starting && !victim.WaitFor(drawn)) {
      const int status = victim.Wait();
      return Fail("the victim ended by itself with " + std::to_string(status) + ": " + victim.Complaints());
    }
    constexpr int kScales[] = {4'000, 15'000, 60'000};
    const int scale = starting ? 120'000 : kScales[std::uniform_int_distribution<int>(0, 2)(chance_)];
    std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution<int>(0, scale)(chance_)));
    const std::size_t done = victim.Kill();
    ++kills_;
    if (!victim.Complaints().empty()) Fail("the victim said " + victim.Complaints());
    CheckFiles();
    Verify(acts, done);
  }

  void CheckFiles() {
    using suite::DataFile;
    for (const DataFile file :
         {DataFile::Dat, DataFile::Customer, DataFile::Transactions, DataFile::Ledger, DataFile::FlatRate, DataFile::Temporary})
      for (const std::string& sentence : engine::CheckDataFile(File(file), suite::TablesOf(file))) Fail(sentence);
  }

  /// Every acknowledged act is there whole, of the next one the first k commits, and nothing else.
  void Verify(const std::vector<Operation>& acts, std::size_t done) {
    const Books actual = ReadBooks(CustomerFile());
    for (std::size_t i = 0; i < done; ++i) {
      for (const Step& step : acts[i].steps) step.apply(books_);
      ++acknowledged_[acts[i].kind];
    }
    if (books_ == actual) {
      if (done < acts.size()) ++cutAt_[0];
      return;
    }
    const Books whole = books_;
    if (done < acts.size() && MatchesPrefix(acts[done], actual)) return;
    Fail("the file is in none of the states that " + (done < acts.size() ? "\"" + acts[done].kind + "\"" : std::string("the acts")) +
         " may leave; against what was acknowledged:");
    for (const std::string& sentence : Differences(whole, actual)) std::cout << "  " << sentence << '\n';
  }

  bool MatchesPrefix(const Operation& act, const Books& actual) {
    std::vector<Step> steps = act.steps;
    if (act.anyOrder != nullptr) {
      const auto& left = actual.tables.at(act.anyOrder);
      std::ranges::stable_partition(steps,
                                    [&](const Step& step) { return step.table == std::string(act.anyOrder) && !left.contains(step.key); });
    }
    for (std::size_t k = 0; k < steps.size(); ++k) {
      steps[k].apply(books_);
      if (books_ != actual) continue;
      ++cutAt_[k + 1 == steps.size() ? 2 : 1];
      if (k + 1 < steps.size()) ++cutBetween_[act.kind];
      return true;
    }
    return false;
  }

  /// What the suite's own check may say at the end is what the rules leave: rows of deleted customers, the words of before a
  /// renaming, and default fields that a kill or the deletion of a billing address has left.
  void CheckReferences() {
    const std::string allowed[] = {"name a customer that does not exist", "names a customer that does not exist",
                                   "hold a key word that does not exist", "that is none of their own"};
    std::vector<std::string> said;
    const int status = RunTool({"check", company_.Path()}, &said);
    int explained = 0;
    for (const std::string& line : said) {
      if (std::ranges::any_of(allowed, [&](const std::string& part) { return line.find(part) != std::string::npos; }))
        ++explained;
      else if (line.find("company 1:") != std::string::npos || line.find(".zdb:") != std::string::npos)
        Fail("the check of the company says: " + line);
    }
    if (status != (explained > 0 ? 1 : 0)) Fail("the check of the company ended with " + std::to_string(status));
  }

  int Rarest() const {
    int rarest = INT32_MAX;
    for (const std::string& kind : Clerk::Kinds()) {
      const auto found = acknowledged_.find(kind);
      rarest = std::min(rarest, found == acknowledged_.end() ? 0 : found->second);
    }
    return rarest;
  }

  void Tell() const {
    int acts = 0;
    for (const auto& [kind, count] : acknowledged_) acts += count;
    std::cout << kills_ << " kills, " << acts << " acknowledged acts of " << Clerk::Kinds().size() << " kinds, the rarest " << Rarest()
              << " times; of the acts in work " << cutAt_[0] << " had written nothing, " << cutAt_[1] << " were cut between two commits, "
              << cutAt_[2] << " were whole; seed " << options_.seed << ": " << (failed_ ? "FAILED" : "all held") << '\n';
    for (const auto& [kind, count] : acknowledged_) {
      const auto cut = cutBetween_.find(kind);
      std::cout << "  " << kind << ": " << count << (cut == cutBetween_.end() ? "" : ", cut " + std::to_string(cut->second) + " times")
                << '\n';
    }
  }

  Options options_;
  std::mt19937 chance_;
  Clerk clerk_;
  TemporaryFolder company_;
  TemporaryFolder outside_;
  Victim::Place place_;
  Books books_;
  std::map<std::string, int> acknowledged_;
  std::map<std::string, int> cutBetween_;
  int cutAt_[3] = {0, 0, 0};
  int rounds_ = 0;
  int kills_ = 0;
  bool failed_ = false;
};

}  // namespace

int main(int count, char** words) {
  if (count < 2) return 2;
  try {
    return ScreenKillTest(Read(count, words)).Run();
  } catch (const platform::Error& error) {
    std::cout << "error " << error.Number() << ": " << error.Description() << '\n';
    return 1;
  }
}
