// Files of the suite as schemas of a server: definitions, numbers, links, what opening refuses.
#include "engine/store/postgres/postgres_store.h"

#include <optional>

#include "engine/store/postgres/text/text_key.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

using platform::FieldType;
using platform::TableDefinition;
using platform::Value;

std::vector<TableDefinition> Tables() {
  return {{"People",
           {Field("ID", FieldType::Counter), TextField("Name", 10), TextField("City", 12), Field("Flag", FieldType::Boolean, Value(true)),
            Field("Small", FieldType::Byte, Value(std::uint8_t{7})), Field("Age", FieldType::Short, Value(std::int16_t{-3})),
            Field("Far", FieldType::Long, Value(std::int32_t{70'000})), Field("Balance", FieldType::Currency, Value(platform::Currency{-12'500})),
            Field("Rate", FieldType::Double, Value(2.5)), Field("Born", FieldType::Date, Value(platform::Date{36'191})),
            Field("Note", FieldType::Memo, Value("it's: (so) \\ \u00E9"))},
           {{"PrimaryKey", {"ID"}, true, true}, {"ByName", {"Name"}, false, false}, {"ByCity", {"City", "ID"}, false, false},
            {"OneRate", {"Rate"}, true, false}}},
          {"Rates", {Field("ID", FieldType::Long), TextField("Dept", 3)}, {{"PrimaryKey", {"ID", "Dept"}, true, true}}},
          {"Words", {TextField("Word", 20)}, {}}};
}

void ExpectSame(const TableDefinition& read, const TableDefinition& made) {
  EXPECT_EQ(read.name, made.name);
  ASSERT_EQ(read.fields.size(), made.fields.size());
  for (std::size_t i = 0; i < made.fields.size(); ++i) {
    EXPECT_EQ(read.fields[i].name, made.fields[i].name);
    EXPECT_EQ(read.fields[i].type, made.fields[i].type) << made.fields[i].name;
    EXPECT_EQ(read.fields[i].size, made.fields[i].size) << made.fields[i].name;
    EXPECT_TRUE(read.fields[i].defaultValue == made.fields[i].defaultValue) << made.fields[i].name;
  }
  ASSERT_EQ(read.indexes.size(), made.indexes.size());
  for (std::size_t i = 0; i < made.indexes.size(); ++i) {
    EXPECT_EQ(read.indexes[i].name, made.indexes[i].name);
    EXPECT_EQ(read.indexes[i].fields, made.indexes[i].fields);
    EXPECT_EQ(read.indexes[i].unique, made.indexes[i].unique) << made.indexes[i].name;
    EXPECT_EQ(read.indexes[i].primary, made.indexes[i].primary) << made.indexes[i].name;
  }
}

class Files : public ServerTest {
 protected:
  Files() : store(Asking()) { Create("People.zdb", Tables()); }
  std::shared_ptr<StoreFile> Open(const std::string& file = "people.zdb") { return store.Open(Path(file), Path(file)); }
  void Add(const std::string& name) { Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Name\") VALUES ('" + name + "')"); }
  PostgresStore store;
};

TEST_F(Files, KeepTheirDefinitions) {
  const auto file = Open();
  EXPECT_EQ(file->Qualifier(), "orv1_people");
  EXPECT_EQ(file->Path(), Path("people.zdb"));
  EXPECT_FALSE(file->ReadOnly());
  EXPECT_EQ(file->TableNames(), (std::vector<std::string>{"People", "Rates", "Words"}));
  for (const TableDefinition& table : Tables()) ExpectSame(file->ReadTable(table.name), table);
  EXPECT_EQ(file->StoredName("pEOPLE"), "People");
  EXPECT_EQ(file->StoredName("Nobody"), "");
  EXPECT_EQ(file->StoredName("~info"), "");
  EXPECT_EQ(file->RowKeyOf(file->ReadTable("People")), "ID");
  EXPECT_EQ(file->RowKeyOf(file->ReadTable("Words")), "~key");
}

TEST_F(Files, AreTheSameObjectWhileOpen) {
  const auto file = Open();
  EXPECT_EQ(Open("PEOPLE.zdb"), file);
}

TEST_F(Files, ThatAreThereAreNotMadeAgain) { EXPECT_EQ(ErrorOf([&] { Create("people.zdb", {}); }), 3204); }

TEST_F(Files, ThatCantBeUsedSayWhy) {
  EXPECT_EQ(ErrorOf([&] { Open("none.zdb"); }), 3024);
  Other("CREATE SCHEMA orv1_foreign; CREATE TABLE orv1_foreign.t (x int)");
  EXPECT_EQ(ErrorOf([&] { Open("foreign.zdb"); }), 3343);
  Other("UPDATE orv1_people.\"~info\" SET value = '2' WHERE key = 'format'");
  EXPECT_EQ(ErrorOf([&] { Open(); }), 3343);
  Other("UPDATE orv1_people.\"~info\" SET value = '1x' WHERE key = 'format'");
  EXPECT_EQ(ErrorOf([&] { Open(); }), 3049);
  Other("DELETE FROM orv1_people.\"~info\"");
  EXPECT_EQ(ErrorOf([&] { Open(); }), 3049);
  const std::string elsewhere = server_.PathOf("postgres") + "orv1/people.zdb";
  EXPECT_EQ(ErrorOf([&] { store.Open(elsewhere, elsewhere); }), 3043);
}

TEST_F(Files, AreReadOnlyForWhoMayOnlyRead) {
  Other("CREATE ROLE " + database_ + "_reader LOGIN; GRANT USAGE ON SCHEMA orv1_people TO " + database_ +
        "_reader; GRANT SELECT ON ALL TABLES IN SCHEMA orv1_people TO " + database_ + "_reader; CREATE ROLE " + database_ + "_stranger LOGIN");
  ::setenv("PGUSER", (database_ + "_reader").c_str(), 1);
  const auto file = Open();
  EXPECT_TRUE(file->ReadOnly());
  EXPECT_EQ(ErrorOf([&] { Add("x"); }), 3027);
  EXPECT_EQ(ErrorOf([&] { file->AddLink({"L", "p", "s"}); }), 3027);
  EXPECT_EQ(ErrorOf([&] { file->TakeNumber(file->ReadTable("People")); }), 3027);
  ::setenv("PGUSER", (database_ + "_stranger").c_str(), 1);
  PostgresStore strange(Short());
  EXPECT_EQ(ErrorOf([&] { strange.Open(Path("people.zdb"), "x"); }), 3051);
  ::setenv("PGUSER", "office", 1);
}

TEST_F(Files, RowsThatLeaveFieldsOutGetTheDefaults) {
  const auto file = Open();
  Add("A");
  const TableDefinition people = file->ReadTable("People");
  Query query(store, std::string_view("SELECT \"Flag\", \"Small\", \"Age\", \"Far\", \"Balance\", \"Rate\", \"Born\", \"Note\" FROM \"orv1_people\".\"People\""));
  ASSERT_TRUE(query.Step());
  for (int i = 0; i < 8; ++i) EXPECT_TRUE(query.Read(i, people.fields[i + 3].type) == people.fields[i + 3].defaultValue) << people.fields[i + 3].name;
}

TEST_F(Files, KeysFollowTheirTexts) {
  Open();
  for (const char* name : {"Smith", "M\u00FCller", "stra\u00DFe  ", "a:b"}) {
    Run(store, "DELETE FROM \"orv1_people\".\"People\"");
    Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Name\", \"City\") VALUES (" + std::string("'") + name + "', '" + name + "')");
    EXPECT_EQ(Ask(store, "SELECT \"~k.Name\" FROM \"orv1_people\".\"People\""), std::vector<std::string>{TextKey(name)});
  }
  Run(store, "DELETE FROM \"orv1_people\".\"Words\"");
  Run(store, "INSERT INTO \"orv1_people\".\"Words\" (\"Word\") VALUES ('Smith'), ('M\u00FCller'), (NULL)");
  EXPECT_EQ(Ask(store, "SELECT \"~s.Word\" FROM \"orv1_people\".\"Words\" ORDER BY \"~key\""),
            (std::vector<std::string>{"Null", TextKey("M\u00FCller"), "Null"}));
  EXPECT_EQ(Ask(store, "SELECT coalesce(\"~s.Word\", lower(\"Word\")) FROM \"orv1_people\".\"Words\" ORDER BY \"~key\""),
            (std::vector<std::string>{"smith", TextKey("M\u00FCller"), "Null"}));
}

TEST_F(Files, UniqueKeysAreThoseOfTheTextOrderAndNullsDontCollide) {
  Open();
  const std::string insert = "INSERT INTO \"orv1_people\".\"Rates\" VALUES (";
  Run(store, "INSERT INTO \"orv1_people\".\"Rates\" (\"ID\", \"Dept\") VALUES (1, 'ab')");
  EXPECT_EQ(ErrorOf([&] { Run(store, "INSERT INTO \"orv1_people\".\"Rates\" (\"ID\", \"Dept\") VALUES (1, 'AB ')"); }), 3022);
  EXPECT_EQ(ErrorOf([&] { Run(store, "INSERT INTO \"orv1_people\".\"Rates\" (\"ID\") VALUES (2)"); }), 3058);
  Run(store, "UPDATE \"orv1_people\".\"People\" SET \"Rate\" = NULL");
  for (int i = 0; i < 2; ++i) Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Rate\") VALUES (NULL)");
  Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Rate\") VALUES (1.5)");
  EXPECT_EQ(ErrorOf([&] { Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Rate\") VALUES (1.5)"); }), 3022);
}

TEST_F(Files, AnIndexServesPagesInItsOrder) {
  Open();
  Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Name\", \"Rate\") SELECT 'n' || n % 1000, n FROM generate_series(1, 20000) AS n");
  Run(store, "ANALYZE \"orv1_people\".\"People\"");
  const std::string page = "SELECT \"ID\" FROM \"orv1_people\".\"People\" ORDER BY \"~k.Name\" NULLS FIRST, \"ID\" LIMIT 50";
  EXPECT_FALSE(store.ScansAll(page));
  EXPECT_TRUE(store.ReadsCheaply(1000, [&] { Ask(store, page); }));
  const std::string sorted = "SELECT \"ID\" FROM \"orv1_people\".\"People\" ORDER BY \"Far\", \"ID\" LIMIT 50";
  EXPECT_TRUE(store.ScansAll(sorted));
  EXPECT_FALSE(store.ReadsCheaply(1000, [&] { Ask(store, sorted); }));
  EXPECT_FALSE(store.ReadsCheaply(1000, [&] { Ask(store, "SELECT count(*) FROM \"orv1_people\".\"People\""); }));
  EXPECT_EQ(Ask(store, sorted).size(), 50);
}

TEST_F(Files, NumbersAreUsedUpWhateverBecomesOfTheUnit) {
  const auto file = Open();
  const TableDefinition people = file->ReadTable("People");
  EXPECT_EQ(file->TakeNumber(people), 1);
  {
    Transaction unit(store, Transaction::Kind::Write);
    EXPECT_EQ(file->TakeNumber(people), 2);
  }
  EXPECT_EQ(file->TakeNumber(people), 3);
  Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"ID\") VALUES (100)");
  EXPECT_EQ(file->TakeNumber(people), 101);
  EXPECT_EQ(file->TakeNumber(people), 102);
  Run(store, "DELETE FROM \"orv1_people\".\"People\"");
  EXPECT_EQ(file->TakeNumber(people), 103);
  EXPECT_EQ(file->TakeNumber(file->ReadTable("Words")), 1);
}

TEST_F(Files, NumbersOfTwoWritersNeverMeet) {
  const auto file = Open();
  PostgresStore other(Short());
  const auto again = other.Open(Path("people.zdb"), "x");
  const TableDefinition people = file->ReadTable("People");
  std::vector<std::int64_t> numbers;
  for (int i = 0; i < 50; ++i) {
    if (i % 10 == 0) Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"ID\", \"Rate\") VALUES (" + std::to_string(1000 + i * 10) + ", NULL)");
    numbers.push_back(file->TakeNumber(people));
    numbers.push_back(again->TakeNumber(people));
  }
  for (std::size_t i = 1; i < numbers.size(); ++i) EXPECT_GT(numbers[i], numbers[i - 1]);
}

TEST_F(Files, AHeldFileGivesNoNumbers) {
  const auto file = Open();
  const TableDefinition people = file->ReadTable("People");
  EXPECT_EQ(file->TakeNumber(people), 1);
  ServerConnection other(TargetOf("people.zdb"), Short());
  std::optional<Transaction> held(std::in_place, other, Transaction::Kind::Write);
  Run(other, "LOCK TABLE \"orv1_people\".\"People\" IN EXCLUSIVE MODE");
  EXPECT_EQ(ErrorOf([&] { file->TakeNumber(people); }), 3218);
  EXPECT_EQ(Ask(store, "SELECT count(*) FROM \"orv1_people\".\"People\""), std::vector<std::string>{"0"});
  held.reset();
  EXPECT_EQ(file->TakeNumber(people), 2);
}

TEST_F(Files, LinksAreKeptInTheirOrder) {
  const auto file = Open();
  file->AddLink({"Zeta", "gl.zdb", "Accounts"});
  file->AddLink({"Alpha", "gl.zdb", "Departments"});
  EXPECT_EQ(ErrorOf([&] { file->AddLink({"ZETA", "x", "y"}); }), 3012);
  const std::vector<StoredLink> links = file->Links();
  ASSERT_EQ(links.size(), 2);
  EXPECT_EQ(links[0].name, "Zeta");
  EXPECT_EQ(links[1].source, "Departments");
}

TEST_F(Files, DefinitionsAreReadAgainWhenSomebodyChangedThem) {
  const auto file = Open();
  const std::int64_t before = file->SchemaVersion();
  EXPECT_EQ(file->SchemaVersion(), before);
  Other("INSERT INTO orv1_people.\"Words\" (\"Word\") VALUES ('x')");
  EXPECT_EQ(file->SchemaVersion(), before);
  Other("ALTER TABLE orv1_people.\"Words\" ADD COLUMN \"More\" orv1_people.\"Long\"");
  const std::int64_t added = file->SchemaVersion();
  EXPECT_NE(added, before);
  EXPECT_EQ(file->ReadTable("Words").fields.back().name, "More");
  Other("ALTER TABLE orv1_people.\"Words\" RENAME COLUMN \"More\" TO \"Less\"");
  EXPECT_NE(file->SchemaVersion(), added);
  EXPECT_EQ(file->ReadTable("Words").fields.back().name, "Less");
  Other("DROP TABLE orv1_people.\"Words\"");
  EXPECT_EQ(file->StoredName("Words"), "");
}

TEST_F(Files, ATableThatIsNotOursIsDamage) {
  Other("CREATE TABLE orv1_people.\"Odd\" (x money)");
  const auto file = Open();
  EXPECT_EQ(file->StoredName("odd"), "Odd");
  EXPECT_EQ(ErrorOf([&] { file->ReadTable("Odd"); }), 3049);
  ExpectSame(file->ReadTable("Words"), Tables()[2]);
}

TEST_F(Files, CanBeDumpedAndRestored) {
  Open();
  Add("M\u00FCller");
  const std::string copy = database_ + "_copy";
  server_.CreateDatabase(copy);
  EXPECT_EQ(server_.CopyByDump(database_, copy), "");
  EXPECT_EQ(server_.Run(copy, "SELECT \"~k.Name\" FROM orv1_people.\"People\""), TextKey("M\u00FCller") + "\n");
  server_.DropDatabase(copy);
}

TEST_F(Files, OneMissingServerIsToldInOneWay) {
  PostgresStore nowhere({.lock = 150, .connect = 2'000, .silence = 2'000});
  EXPECT_EQ(ErrorOf([&] { nowhere.Open("postgresql://127.0.0.1:1/suite/dat.zdb", "x"); }), 3043);
  EXPECT_EQ(ErrorOf([&] { Run(nowhere, "SELECT 1"); }), 3043);
}

}  // namespace
}  // namespace engine::postgres
