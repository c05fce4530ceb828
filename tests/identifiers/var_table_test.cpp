// The variable table: types and write access, legal names, predefined constants, element symbols, files,
// binding.
#include "identifiers/clsVarTable.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/identifiers/element_data_directory.h"
#include "tests/platform/run_time_error_number.h"
#include "tests/platform/temporary_directory.h"

namespace plotvane::identifiers {
namespace {

using platform::Value;
using tests::ElementDataDirectory;
using tests::RunTimeErrorNumber;
using tests::TemporaryDirectory;

// Everything about one identifier.
struct Record {
  bool exists = false;
  Value value;
  std::int32_t type = 0;
  std::string description;
};

Record Get(const clsVarTable& table, const char* id) {
  Record record;
  record.exists = table.GetId(id, record.value, record.type, record.description);
  return record;
}

double NumberOf(clsVarTable& table, const char* id) {
  Value value;
  EXPECT_TRUE(table.GetIdValue(id, value)) << id;
  return value.ToNumber().OrThrow();
}

TEST(VarTable, a_new_table_holds_the_predefined_constants) {
  struct Case {
    const char* id;
    Value value;
    const char* description;
  };
  const Case cases[] = {
      {"Pi", Value(3.14159265358979), "Pi"},
      {"g", Value(9.80655), "Gravitational acceleration on earth"},
      {"gc", Value(6.67259e-11), "Gravitational constant"},
      {"cc", Value(8987551787.37), "Charge of coulumb"},
      {"True", Value(true), "Boolean True"},
      {"False", Value(false), "Boolean False"},
  };
  const clsVarTable table;
  EXPECT_EQ(table.Records().Count(), 6U);
  for (const auto& c : cases) {
    const Record record = Get(table, c.id);
    EXPECT_TRUE(record.exists) << c.id;
    EXPECT_EQ(record.value, c.value) << c.id;
    EXPECT_EQ(record.type, 9) << c.id;
    EXPECT_EQ(record.description, c.description);
  }
}

TEST(VarTable, change_creates_an_ordinary_variable_that_any_letter_case_finds) {
  clsVarTable table;
  EXPECT_TRUE(table.Change("x", Value(5.0)));
  EXPECT_EQ(NumberOf(table, "X"), 5);
  EXPECT_EQ(Get(table, "X").type, 2);
  EXPECT_TRUE(table.Change("X", Value("text")));
  EXPECT_EQ(Get(table, "x").value, Value("text"));
  EXPECT_EQ(table.FindRecord("X")->Id, "x");
}

TEST(VarTable, leaves_the_arguments_alone_when_an_identifier_is_missing) {
  clsVarTable table;
  Value value(7.0);
  std::int32_t type = 7;
  std::string description = "seven";
  EXPECT_FALSE(table.GetIdValue("x", value));
  EXPECT_FALSE(table.GetIdType("x", type));
  EXPECT_FALSE(table.GetId("x", value, type, description));
  EXPECT_FALSE(table.IdExists("x"));
  EXPECT_EQ(value, Value(7.0));
  EXPECT_EQ(type, 7);
  EXPECT_EQ(description, "seven");
}

TEST(VarTable, tests_only_the_first_character_of_a_name) {
  clsVarTable table;
  for (const char* id : {"_t", "Ab3", "z", "Z", "a b", "_", "x+y"})
    EXPECT_TRUE(table.Change(id, Value(1.0))) << id;
  const auto count = table.Records().Count();
  for (const char* id : {"2x", "", " x", "@", "[", "`", "{", "\xC3\xA4", "-x"}) {
    EXPECT_FALSE(table.Change(id, Value(1.0))) << id;
    EXPECT_FALSE(table.ChangeConstant(id, Value(1.0))) << id;
  }
  EXPECT_EQ(table.Records().Count(), count);
}

TEST(VarTable, protects_predefined_constants_until_reserved_access) {
  clsVarTable table;
  EXPECT_FALSE(table.Change("pi", Value(3.0)));
  EXPECT_EQ(NumberOf(table, "pi"), 3.14159265358979);
  table.ConstWriteAccess = true;
  EXPECT_FALSE(table.Change("pi", Value(3.0)));
  EXPECT_FALSE(table.Remove("pi"));
  table.ReservedWriteAccess = true;
  EXPECT_TRUE(table.Change("pi", Value(3.0)));
  EXPECT_EQ(NumberOf(table, "Pi"), 3);
  EXPECT_EQ(Get(table, "Pi").type, 2);
  EXPECT_EQ(Get(table, "Pi").description, "");
  EXPECT_EQ(table.FindRecord("pi")->Id, "Pi");
}

TEST(VarTable, protects_constants_until_constant_access) {
  clsVarTable table;
  EXPECT_TRUE(table.ChangeConstant("k", Value(2.5)));
  EXPECT_EQ(Get(table, "k").type, 4);
  EXPECT_FALSE(table.ConstWriteAccess);
  table.ReservedWriteAccess = true;
  EXPECT_FALSE(table.Change("k", Value(1.0)));
  EXPECT_FALSE(table.Remove("k"));
  table.ConstWriteAccess = true;
  EXPECT_TRUE(table.Change("k", Value(1.0)));
  EXPECT_EQ(Get(table, "k").type, 2);
  EXPECT_TRUE(table.ChangeConstant("k", Value(2.5), "again"));
  EXPECT_EQ(Get(table, "k").description, "again");
  EXPECT_TRUE(table.ConstWriteAccess);
  EXPECT_TRUE(table.Remove("k"));
  EXPECT_FALSE(table.IdExists("k"));
}

TEST(VarTable, write_access_by_type_tests_the_constant_bit_first) {
  struct Case {
    std::int32_t type;
    bool constAccess, reservedAccess, allowed;
  };
  const Case cases[] = {
      {2, false, false, true},   {0, false, false, true}, {4, false, true, false},  {4, true, false, true},
      {8, true, false, false},   {8, false, true, true},  {12, false, true, false}, {12, true, false, true},
      {24, false, false, false}, {24, false, true, true}, {9, false, false, false}, {16, false, false, true},
      {-1, false, true, false},  {-1, true, false, true}, {6, false, true, false},  {1, false, false, true},
  };
  for (const auto& c : cases) {
    clsVarTable table;
    ASSERT_TRUE(table.Change("k", Value(1.0), c.type));
    table.ConstWriteAccess = c.constAccess;
    table.ReservedWriteAccess = c.reservedAccess;
    EXPECT_EQ(table.Change("k", Value(2.0), c.type, "new"), c.allowed) << c.type;
    EXPECT_EQ(NumberOf(table, "k"), c.allowed ? 2 : 1) << c.type;
    EXPECT_EQ(table.Remove("k"), c.allowed) << c.type;
  }
}

TEST(VarTable, reserved_names_are_changed_through_their_own_operation) {
  clsVarTable table;
  EXPECT_TRUE(table.ChangeReserved("r", Value(1.0), "mine"));
  EXPECT_EQ(Get(table, "r").type, 8);
  EXPECT_FALSE(table.Change("r", Value(2.0)));
  EXPECT_FALSE(table.ChangeConstant("r", Value(2.0)));
  EXPECT_TRUE(table.ChangeReserved("r", Value(3.0)));
  EXPECT_EQ(NumberOf(table, "r"), 3);
  EXPECT_EQ(Get(table, "r").description, "");
  EXPECT_FALSE(table.ReservedWriteAccess);
  EXPECT_TRUE(table.ChangeConstant("k", Value(1.0)));
  EXPECT_FALSE(table.ChangeReserved("k", Value(2.0)));
}

TEST(VarTable, change_without_type_and_description_makes_an_ordinary_variable_of_anything_it_may_write) {
  clsVarTable table;
  EXPECT_TRUE(table.Change("x", Value(1.0), 16, "sixteen"));
  EXPECT_EQ(Get(table, "x").description, "sixteen");
  EXPECT_TRUE(table.Change("x", Value(2.0), std::nullopt, "two"));
  EXPECT_EQ(Get(table, "x").type, 2);
  EXPECT_EQ(Get(table, "x").description, "two");
  EXPECT_TRUE(table.Change("x", Value(3.0)));
  EXPECT_EQ(Get(table, "x").description, "");
}

TEST(VarTable, rename_carries_value_type_and_description_over) {
  clsVarTable table;
  EXPECT_TRUE(table.Change("x", Value(5.0), 16, "five"));
  EXPECT_TRUE(table.Rename("X", "y"));
  EXPECT_FALSE(table.IdExists("x"));
  EXPECT_EQ(Get(table, "y").value, Value(5.0));
  EXPECT_EQ(Get(table, "y").type, 16);
  EXPECT_EQ(Get(table, "y").description, "five");
  EXPECT_TRUE(table.Rename("y", "Y"));
  EXPECT_EQ(table.FindRecord("y")->Id, "Y");
}

TEST(VarTable, no_step_of_rename_stops_the_next) {
  clsVarTable table;
  EXPECT_TRUE(table.Rename("Pi", "p"));  // protected: copied
  EXPECT_TRUE(table.IdExists("Pi"));
  EXPECT_EQ(Get(table, "p").type, 9);
  EXPECT_EQ(Get(table, "p").description, "Pi");
  EXPECT_TRUE(table.Rename("missing", "m"));
  EXPECT_TRUE(Get(table, "m").value.IsEmpty());
  EXPECT_EQ(Get(table, "m").type, 0);
  EXPECT_TRUE(table.Change("x", Value(5.0)));
  EXPECT_FALSE(table.Rename("x", "2x"));  // removed, then refused
  EXPECT_FALSE(table.IdExists("x"));
  EXPECT_TRUE(table.Change("x", Value(5.0)));
  EXPECT_FALSE(table.Rename("x", "g"));
  EXPECT_EQ(NumberOf(table, "g"), 9.80655);
}

TEST(VarTable, collects_exactly_one_type) {
  clsVarTable table;
  EXPECT_EQ(table.CollectFlag(9)->Count(), 6U);
  EXPECT_EQ(table.CollectFlag(8)->Count(), 0U);
  const auto predefined = table.CollectFlag(9);
  EXPECT_TRUE(predefined->Search("PI"));
  predefined->CurrentNode->Value = Value(3.0);
  EXPECT_EQ(NumberOf(table, "pi"), 3.14159265358979);
}

TEST(VarTable, saves_one_type_and_loads_it_into_another_table) {
  const TemporaryDirectory directory;
  clsVarTable table;
  EXPECT_TRUE(table.Change("x", Value(0.1)));
  EXPECT_TRUE(table.Change("Yes", Value(true)));
  EXPECT_TRUE(table.Change("name", Value("a \"b\"")));
  EXPECT_TRUE(table.ChangeConstant("k", Value(1.0)));
  table.SaveTypeToFile(2, directory.File("a.txt"));
  EXPECT_EQ(directory.Read("a.txt"),
            "\"Yes\",#TRUE#,2,\"\"\r\n\"x\",0.1,2,\"\"\r\n\"name\",\"a \"\"b\"\"\",2,\"\"\r\n");
  clsVarTable other;
  EXPECT_TRUE(other.Change("X", Value(7.0)));
  other.LoadTypeFromFile(directory.File("a.txt"));
  EXPECT_EQ(other.Records().Count(), 9U);
  EXPECT_EQ(NumberOf(other, "x"), 0.1);
  EXPECT_EQ(Get(other, "yes").value, Value(true));
  EXPECT_EQ(Get(other, "name").type, 2);
  EXPECT_EQ(RunTimeErrorNumber([&] { other.LoadTypeFromFile(directory.File("none.txt")); }), 53);
  EXPECT_EQ(RunTimeErrorNumber([&] { other.SaveTypeToFile(2, directory.Path()); }), 75);
}

TEST(VarTable, the_predefined_constants_have_known_bytes) {
  const TemporaryDirectory directory;
  clsVarTable table;
  table.SaveTypeToFile(9, directory.File("a.txt"));
  EXPECT_EQ(directory.Read("a.txt"),
            "\"True\",#TRUE#,9,\"Boolean True\"\r\n"
            "\"Pi\",3.14159265358979,9,\"Pi\"\r\n"
            "\"gc\",6.67259E-11,9,\"Gravitational constant\"\r\n"
            "\"g\",9.80655,9,\"Gravitational acceleration on earth\"\r\n"
            "\"False\",#FALSE#,9,\"Boolean False\"\r\n"
            "\"cc\",8987551787.37,9,\"Charge of coulumb\"\r\n");
}

TEST(VarTable, loading_overwrites_protected_identifiers_too) {
  const TemporaryDirectory directory;
  clsVarTable table;
  table.LoadTypeFromFile(directory.Write("a.txt", "\"PI\",3,2,\"\"\n\"_\",1,4,\"\"\n"));
  EXPECT_EQ(NumberOf(table, "pi"), 3);
  EXPECT_TRUE(table.Change("pi", Value(4.0)));
  EXPECT_FALSE(table.Change("_", Value(4.0)));
}

TEST(VarTable, element_symbols_become_reserved_identifiers) {
  clsVarTable table;
  EXPECT_TRUE(table.Change("H", Value("mine")));
  table.LoadOriginalChemData(clsPeriodicTable(ElementDataDirectory()));
  EXPECT_EQ(table.Records().Count(), 124U);
  EXPECT_EQ(table.CollectFlag(24)->Count(), 118U);
  EXPECT_EQ(2 * NumberOf(table, "h") + NumberOf(table, "o"), 2 * 1.008 + 15.999);
  EXPECT_EQ(Get(table, "HE").description, "Helium");
  for (const char* id : {"c", "H", "n", "o", "y"}) {
    EXPECT_FALSE(table.Change(id, Value(1.0))) << id;
    EXPECT_FALSE(table.Remove(id)) << id;
  }
  EXPECT_EQ(table.Records().Check(), "");
}

TEST(VarTable, element_data_that_cannot_be_read_change_nothing) {
  const TemporaryDirectory directory;
  clsVarTable table;
  EXPECT_EQ(RunTimeErrorNumber([&] { table.LoadOriginalChemData(clsPeriodicTable(directory.Path())); }), 53);
  // The data files lie beside programs that people use, not beside this one.
  EXPECT_EQ(RunTimeErrorNumber([&] { table.LoadOriginalChemData(); }), 53);
  EXPECT_EQ(table.Records().Count(), 6U);
}

TEST(VarTable, the_generation_grows_with_all_that_may_break_a_binding) {
  const TemporaryDirectory directory;
  const std::string path = directory.Write("a.txt", "\"q\",1,2,\"\"\n");
  clsVarTable table;
  std::uint64_t before = table.Generation();
  const auto grew = [&] { return std::exchange(before, table.Generation()) != table.Generation(); };
  EXPECT_TRUE(table.Change("x", Value(1.0)));
  EXPECT_TRUE(grew()) << "a new name";
  EXPECT_TRUE(table.Change("x", Value("two")));
  EXPECT_FALSE(grew()) << "a value only";
  EXPECT_TRUE(table.Change("x", Value(2.0), 16));
  EXPECT_TRUE(grew()) << "a type";
  EXPECT_TRUE(table.Change("x", Value(2.0), 16, "text"));
  EXPECT_TRUE(grew()) << "a description";
  EXPECT_FALSE(table.Change("pi", Value(2.0)));
  EXPECT_FALSE(table.Remove("pi"));
  EXPECT_FALSE(grew()) << "refusals";
  EXPECT_TRUE(table.Rename("x", "y"));
  EXPECT_TRUE(grew()) << "a new name for an old one";
  EXPECT_TRUE(table.Remove("y"));
  EXPECT_TRUE(grew()) << "a removal";
  table.LoadTypeFromFile(path);
  EXPECT_TRUE(grew()) << "a load";
  table.LoadOriginalChemData(clsPeriodicTable(ElementDataDirectory()));
  EXPECT_TRUE(grew()) << "element symbols";
  table.LoadOtherConstData();
  EXPECT_TRUE(grew()) << "predefined constants";
  (void)table.CollectFlag(2);
  EXPECT_FALSE(grew()) << "reading";
}

TEST(VarTable, the_change_counter_grows_with_values_too) {
  clsVarTable table;
  std::uint64_t before = table.Changes();
  const auto grew = [&] { return std::exchange(before, table.Changes()) != table.Changes(); };
  EXPECT_TRUE(table.Change("x", Value(1.0)));
  EXPECT_TRUE(grew());
  EXPECT_TRUE(table.Change("x", Value(2.0)));
  EXPECT_TRUE(grew());
  table.SetNumber(*table.FindRecord("x"), 3);
  EXPECT_TRUE(grew());
  EXPECT_EQ(NumberOf(table, "x"), 3);
  EXPECT_TRUE(table.Remove("x"));
  EXPECT_TRUE(grew());
  EXPECT_FALSE(table.Change("pi", Value(2.0)));
  EXPECT_TRUE(table.IdExists("pi"));
  EXPECT_FALSE(grew());
}

TEST(VarTable, a_bound_plain_variable_is_stored_to_as_by_change) {
  clsVarTable table;
  EXPECT_TRUE(table.Change("x", Value(1.0)));
  EXPECT_TRUE(table.Change("d", Value(1.0), 2, "described"));
  clsExNode* record = table.FindRecord("X");
  ASSERT_NE(record, nullptr);
  EXPECT_TRUE(clsVarTable::IsPlainVariable(*record));
  EXPECT_FALSE(clsVarTable::IsPlainVariable(*table.FindRecord("d")));
  EXPECT_FALSE(clsVarTable::IsPlainVariable(*table.FindRecord("pi")));
  EXPECT_EQ(table.FindRecord("nothing"), nullptr);
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(table.Change("v" + std::to_string(i), Value(0.0)));
  EXPECT_EQ(table.FindRecord("x"), record);
  record->Value = Value(9.0);
  EXPECT_EQ(NumberOf(table, "x"), 9);
}

}  // namespace
}  // namespace plotvane::identifiers
