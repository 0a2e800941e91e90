#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "engine/store/sqlite/connection.h"
#include "engine/store/sqlite/data_files.h"
#include "engine/store/sqlite/schema.h"
#include "unit/engine/store/data_file_fixture.h"

namespace engine {
namespace {

using platform::Currency;
using platform::FieldType;
using platform::Null;
using platform::TableDefinition;
using platform::Value;

TEST_F(DataFileTest, DefinitionComesBackFromTheFile) {
  const std::string path = Make();
  Connection connection(100);
  DataFiles files(connection, noNetwork);
  const auto file = files.Open(path);
  EXPECT_EQ(file->TableNames(), (std::vector<std::string>{"People", "Codes"}));

  const TableDefinition expected = People();
  const TableDefinition read = ReadTable(connection, file->Qualifier(), "People");
  ASSERT_EQ(read.fields.size(), expected.fields.size());
  for (std::size_t i = 0; i < expected.fields.size(); ++i) {
    EXPECT_EQ(read.fields[i].name, expected.fields[i].name);
    EXPECT_EQ(read.fields[i].type, expected.fields[i].type);
    EXPECT_EQ(read.fields[i].size, expected.fields[i].size);
    EXPECT_EQ(read.fields[i].defaultValue, expected.fields[i].defaultValue) << expected.fields[i].name;
  }
  ASSERT_EQ(read.indexes.size(), expected.indexes.size());
  for (std::size_t i = 0; i < expected.indexes.size(); ++i) {
    EXPECT_EQ(read.indexes[i].name, expected.indexes[i].name);
    EXPECT_EQ(read.indexes[i].fields, expected.indexes[i].fields);
    EXPECT_EQ(read.indexes[i].unique, expected.indexes[i].unique);
    EXPECT_EQ(read.indexes[i].primary, expected.indexes[i].primary);
  }
}

TEST_F(DataFileTest, HiddenKeyIsNoField) {
  const std::string path = Make();
  Connection connection(100);
  DataFiles files(connection, noNetwork);
  const TableDefinition read = ReadTable(connection, files.Open(path)->Qualifier(), "Codes");
  EXPECT_EQ(read.fields.size(), 2u);
  EXPECT_EQ(RowKeyOf(read), "~key");
  EXPECT_EQ(RowKeyOf(People()), "ID");
}

TEST_F(DataFileTest, AnExistingFileIsNeverReplaced) {
  const std::string path = Make();
  EXPECT_EQ(ErrorOf([&] { Make(); }), 3204);
  EXPECT_EQ(OpenError(path), 0);
  EXPECT_EQ(ErrorOf([&] { Make("nowhere/a.zdb"); }), 3044);
}

TEST_F(DataFileTest, MissingFileFolderAndName) {
  EXPECT_EQ(OpenError(Path("none.zdb")), 3024);
  EXPECT_EQ(OpenDescription(Path("none.zdb")), "Couldn't find file '" + Path("none.zdb") + "'.");
  EXPECT_EQ(OpenError(Path("none/none.zdb")), 3044);
  EXPECT_EQ(OpenError(""), 3044);
  EXPECT_EQ(OpenError(std::string("a\0b", 3)), 3044);
  EXPECT_EQ(OpenError(Path("x.zdb/")), 3044);
  EXPECT_EQ(OpenError(folder_), 3051);
  EXPECT_FALSE(std::filesystem::exists(Path("none.zdb")));
}

TEST_F(DataFileTest, FilesOfOtherFormats) {
  Write(Path("empty.zdb"), "");
  Write(Path("text.zdb"), std::string(5000, 'x'));
  Write(Path("former.zdb"), std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(5000, '\1'));
  EXPECT_EQ(OpenError(Path("empty.zdb")), 3343);
  EXPECT_EQ(OpenError(Path("text.zdb")), 3343);
  EXPECT_EQ(OpenError(Path("former.zdb")), 3343);
  EXPECT_THAT(OpenDescription(Path("former.zdb")), testing::HasSubstr("must be imported"));
}

TEST_F(DataFileTest, StoreFileWithoutOurTablesIsForeign) {
  Connection connection(100);
  connection.Execute("ATTACH '" + Path("foreign.zdb") + "' AS x");
  connection.Execute("CREATE TABLE x.t (a)");
  EXPECT_EQ(OpenError(Path("foreign.zdb")), 3343);
}

TEST_F(DataFileTest, FileOfANewerVersion) {
  const std::string path = Make();
  {
    Connection connection(100);
    connection.Execute("ATTACH '" + path + "' AS x");
    connection.Execute("UPDATE x.\"~info\" SET value = '2' WHERE key = 'format'");
  }
  EXPECT_EQ(OpenError(path), 3343);
  EXPECT_THAT(OpenDescription(path), testing::HasSubstr("newer version"));
}

TEST_F(DataFileTest, TruncatedAndDamagedFiles) {
  const std::string path = Make();
  const auto size = std::filesystem::file_size(path);
  std::filesystem::copy_file(path, Path("half.zdb"));
  std::filesystem::resize_file(Path("half.zdb"), size / 2);
  std::filesystem::copy_file(path, Path("stub.zdb"));
  std::filesystem::resize_file(Path("stub.zdb"), 50);
  std::filesystem::copy_file(path, Path("noise.zdb"));
  {
    std::fstream file(Path("noise.zdb"), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(100);
    file << std::string(4000, '\xEE');
  }
  EXPECT_EQ(OpenError(Path("half.zdb")), 3049);
  EXPECT_EQ(OpenError(Path("stub.zdb")), 3049);
  EXPECT_EQ(OpenError(Path("noise.zdb")), 3049);
}

TEST_F(DataFileTest, APathThatIsNotThereLiesOnNoNetwork) {
  EXPECT_FALSE(LiesOnNetwork(Path("nowhere")));
  EXPECT_EQ(ErrorOf([&] { BackupDataFile(Make(), Path("nowhere/copy.zdb")); }), 3044);
}

TEST_F(DataFileTest, FilesOnANetworkAreRefused) {
  const std::string path = Make();
  const auto network = [&](const std::string& asked) { return asked == path; };
  EXPECT_EQ(OpenError(path, network), 3043);
  EXPECT_THAT(OpenDescription(path, network), testing::HasSubstr("server store"));
  EXPECT_FALSE(LiesOnNetwork(path));
}

TEST_F(DataFileTest, LockedFileIsWaitedForWithPaintingServed) {
  const std::string path = Make();
  Connection holder(100);
  holder.Execute("ATTACH '" + path + "' AS x");
  holder.Execute("PRAGMA x.locking_mode=EXCLUSIVE");
  holder.Execute("BEGIN EXCLUSIVE");
  holder.Execute("DELETE FROM x.Codes");
  Connection connection(120);
  int painted = 0;
  connection.OnWait([&] { ++painted; });
  DataFiles files(connection, noNetwork);
  EXPECT_EQ(ErrorOf([&] { files.Open(path); }), 3045);
  EXPECT_GT(painted, 2);
}

TEST_F(DataFileTest, FileIsAttachedOnceAndLetGo) {
  const std::string path = Make();
  std::filesystem::create_symlink(path, Path("link.zdb"));
  Connection connection(100);
  DataFiles files(connection, noNetwork);
  auto one = files.Open(path);
  auto two = files.Open(Path("link.zdb"));
  EXPECT_EQ(one, two);
  EXPECT_EQ(AskNumber(connection, "SELECT count(*) FROM pragma_database_list WHERE name LIKE 'f%'"), 1);
  one.reset();
  two.reset();
  EXPECT_EQ(AskNumber(connection, "SELECT count(*) FROM pragma_database_list WHERE name LIKE 'f%'"), 0);
}

TEST_F(DataFileTest, KindDecidesHowWritesReachTheDisk) {
  const std::string company = Make("company.zdb");
  const std::string work = Make("work.zdb", true);
  Connection connection(100);
  DataFiles files(connection, noNetwork);
  const auto first = files.Open(company);
  const auto second = files.Open(work);
  EXPECT_FALSE(first->IsWorkFile());
  EXPECT_TRUE(second->IsWorkFile());
  EXPECT_EQ(AskNumber(connection, "PRAGMA " + first->Qualifier() + ".synchronous"), 2);
  EXPECT_EQ(AskNumber(connection, "PRAGMA " + second->Qualifier() + ".synchronous"), 0);
  EXPECT_EQ(connection.AskText("PRAGMA " + first->Qualifier() + ".journal_mode"), "wal");
  // What was removed is overwritten as the store likes; in a work file only where that writes no page more.
  EXPECT_EQ(AskNumber(connection, "PRAGMA " + first->Qualifier() + ".secure_delete"), AskNumber(connection, "PRAGMA main.secure_delete"));
  EXPECT_EQ(AskNumber(connection, "PRAGMA " + second->Qualifier() + ".secure_delete"), 2);
}

/// While it lives, this process is somebody who may not write to a file and its folder.
class WithoutWriteRights {
 public:
  /// `mode`: the file's rights.
  WithoutWriteRights(const std::string& file, const std::string& folder, mode_t mode)
      : file_(file), folder_(folder), root_(::geteuid() == 0) {
    ::chmod(file_.c_str(), mode);
    ::chmod(folder_.c_str(), 0555);
    if (root_ && ::seteuid(65534) != 0) throw std::runtime_error("the user can't be changed");
  }
  ~WithoutWriteRights() {
    if (root_ && ::seteuid(0) != 0) std::abort();
    ::chmod(folder_.c_str(), 0755);
    ::chmod(file_.c_str(), 0644);
  }
  WithoutWriteRights(const WithoutWriteRights&) = delete;
  WithoutWriteRights& operator=(const WithoutWriteRights&) = delete;

 private:
  std::string file_;
  std::string folder_;
  bool root_;
};

// The reader is a process of its own, since within one the files are shared. It answers each question with what it sees.
TEST_F(DataFileTest, AReaderWithoutWriteRightsSeesWhatOthersCommit) {
  const std::string path = Make();
  int asked[2];
  int answered[2];
  ASSERT_EQ(::pipe(asked) + ::pipe(answered), 0);
  const pid_t reader = ::fork();
  ASSERT_GE(reader, 0);
  if (reader == 0) {
    const auto isAsked = [&] {
      char question = 0;
      return ::read(asked[0], &question, 1) == 1;
    };
    const auto tell = [&](std::int64_t seen) { return ::write(answered[1], &seen, sizeof seen) == sizeof seen; };
    if (!isAsked() || (::geteuid() == 0 && ::seteuid(65534) != 0)) ::_exit(1);
    try {
      Connection connection(100);
      DataFiles files(connection, noNetwork);
      const auto file = files.Open(path);
      do {
        if (!tell(AskNumber(connection, "SELECT count(*) FROM " + file->Qualifier() + ".Codes").value_or(-1)) ||
            !tell(file->OthersVersion()) || !tell(file->ReadOnly() ? 1 : 0))
          break;
      } while (isAsked());
    } catch (const platform::Error& error) {
      tell(-error.Number());
    }
    ::_exit(0);
  }
  const auto answer = [&] {
    std::int64_t seen = -1;
    return ::read(answered[0], &seen, sizeof seen) == sizeof seen ? seen : std::int64_t{-1};
  };

  std::int64_t version = 0;
  {
    Connection writer(100);
    DataFiles files(writer, noNetwork);
    const auto file = files.Open(path);
    const std::string insert = "INSERT INTO \"" + file->Qualifier() + "\".Codes (Code) VALUES ";
    writer.Execute(insert + "('A')");
    for (const char* end : {"", "-wal", "-shm"}) ::chmod((path + end).c_str(), 0444);
    ::chmod(folder_.c_str(), 0555);

    ASSERT_EQ(::write(asked[1], "?", 1), 1);
    EXPECT_EQ(answer(), 1);
    version = answer();
    EXPECT_EQ(answer(), 1) << "for reading only";
    writer.Execute(insert + "('B')");
    ASSERT_EQ(::write(asked[1], "?", 1), 1);
    EXPECT_EQ(answer(), 2);
    EXPECT_NE(answer(), version);
    answer();
  }
  // The writer has gone, and another one comes.
  Connection writer(100);
  DataFiles files(writer, noNetwork);
  ::chmod(folder_.c_str(), 0755);
  for (const char* end : {"", "-wal", "-shm"}) ::chmod((path + end).c_str(), 0644);
  const auto file = files.Open(path);
  writer.Execute("INSERT INTO \"" + file->Qualifier() + "\".Codes (Code) VALUES ('C')");
  EXPECT_EQ(::write(asked[1], "?", 1), 1);
  EXPECT_EQ(answer(), 3);
  ::close(asked[1]);
  ::kill(reader, SIGKILL);
  ::waitpid(reader, nullptr, 0);
}

// Without the store's side files nothing would tell such a reader of others' writes.
TEST_F(DataFileTest, AReaderWithoutWriteRightsNeverReadsAlone) {
  const std::string path = Make();
  int error = 0;
  std::string text;
  {
    const WithoutWriteRights rights(path, folder_, 0644);
    error = OpenError(path);
    text = OpenDescription(path);
  }
  EXPECT_EQ(error, 3051);
  EXPECT_THAT(text, testing::HasSubstr("may not write in its folder"));
  EXPECT_EQ(OpenError(path), 0);
}

TEST_F(DataFileTest, AFileThatNobodyMayWriteIsReadAlone) {
  const std::string path = Make();
  bool readOnly = false;
  std::int64_t people = -1;
  int error = 0;
  {
    const WithoutWriteRights rights(path, folder_, 0444);
    error = ErrorOf([&] {
      Connection connection(100);
      DataFiles files(connection, noNetwork);
      const auto file = files.Open(path);
      readOnly = file->ReadOnly();
      people = AskNumber(connection, "SELECT count(*) FROM " + file->Qualifier() + ".People").value_or(-1);
    });
  }
  EXPECT_EQ(error, 0);
  EXPECT_TRUE(readOnly);
  EXPECT_EQ(people, 0);
}

// What can be seen under the name is the whole file, whoever makes it and whenever one looks.
TEST_F(DataFileTest, OfSeveralMakersOneMakesTheFile) {
  constexpr int kRounds = 12;
  constexpr int kMakers = 4;
  for (int round = 0; round < kRounds; ++round) {
    const std::string path = Path("race" + std::to_string(round) + ".zdb");
    int start[2];
    ASSERT_EQ(::pipe(start), 0);
    std::vector<pid_t> makers;
    for (int i = 0; i < kMakers; ++i) {
      makers.push_back(::fork());
      ASSERT_GE(makers.back(), 0);
      if (makers.back() != 0) continue;
      ::close(start[1]);
      char none = 0;
      (void)!::read(start[0], &none, 1);
      const std::vector<TableDefinition> tables{People(), Codes()};
      const int made = ErrorOf([&] { CreateDataFile(path, tables, false); });
      const int opened = OpenError(path);
      ::_exit(opened != 0 ? 2 : made == 0 ? 0 : made == 3204 ? 1 : 3);
    }
    ::close(start[0]);
    ::close(start[1]);
    std::vector<int> ends;
    for (const pid_t maker : makers) {
      int status = 0;
      ::waitpid(maker, &status, 0);
      ends.push_back(WEXITSTATUS(status));
    }
    std::ranges::sort(ends);
    ASSERT_EQ(ends, (std::vector<int>{0, 1, 1, 1})) << "0 made, 1 was there, 2 could not be opened, 3 failed";
    EXPECT_THAT(CheckDataFile(path, std::vector<TableDefinition>{People(), Codes()}), testing::IsEmpty());
  }
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) EXPECT_EQ(entry.path().extension(), ".zdb") << entry.path();
}

}  // namespace
}  // namespace engine
