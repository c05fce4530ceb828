// The identifier tree: order, duplicates, cursor, shapes after removal, collections and the record file.
#include "identifiers/clsNodeTable.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/open_files.h"
#include "tests/identifiers/tree_shape.h"
#include "tests/platform/run_time_error_number.h"
#include "tests/platform/temporary_directory.h"

namespace plotvane::identifiers {
namespace {

using platform::Value;
using tests::RunTimeErrorNumber;
using tests::TableShape;
using tests::TemporaryDirectory;

bool AddKey(clsNodeTable& table, std::string key) {
  return table.Add(key);
}

void AddKeys(clsNodeTable& table, std::initializer_list<const char*> keys) {
  for (const char* key : keys) AddKey(table, key);
}

void AddRecord(clsNodeTable& table, const char* key, double value, std::int32_t flags) {
  clsExNode node;
  node.Id = key;
  node.Value = Value(value);
  node.Flags = flags;
  node.Description = std::string("about ") + key;
  table.AddNode(node);
}

TEST(NodeTable, finds_a_key_whatever_its_letter_case) {
  clsNodeTable table;
  AddKeys(table, {"Speed"});
  EXPECT_TRUE(table.Search("SPEED"));
  EXPECT_EQ(table.CurrentNode->Id, "Speed");
  EXPECT_EQ(table.Find("speed"), table.CurrentNode.get());
}

TEST(NodeTable, stores_keys_in_lower_case_on_request) {
  clsNodeTable table;
  table.AddLowerCase = true;
  std::string key = "SpeeD";
  EXPECT_TRUE(table.Add(key));
  EXPECT_EQ(key, "speed");
  EXPECT_EQ(table.CurrentNode->Id, "speed");
}

TEST(NodeTable, leaves_letters_beyond_ASCII_as_they_are) {
  clsNodeTable table;
  AddKeys(table, {"\xC3\x84"});  // capital A with diaeresis
  EXPECT_FALSE(table.Search("\xC3\xA4"));
  EXPECT_TRUE(table.Search("\xC3\x84"));
}

TEST(NodeTable, orders_keys_by_the_codes_of_their_lower_case_characters) {
  clsNodeTable table;
  AddKeys(table, {"B", "a", "_", "ab", "A1", "\xC3\xA4", "z"});
  EXPECT_EQ(table.DebugDispNodeD(*table.HeadNode()), "_\na\nA1\nab\nB\nz\n\xC3\xA4\n");
  EXPECT_EQ(table.DebugDispNodeA(*table.HeadNode()), "\xC3\xA4\nz\nB\nab\nA1\na\n_\n");
}

TEST(NodeTable, starts_without_nodes_but_with_a_head) {
  clsNodeTable table;
  EXPECT_FALSE(table.HasNodes());
  EXPECT_FALSE(table.Search("x"));
  EXPECT_EQ(table.ParentNode(), nullptr);
  const auto head = table.HeadNode();
  AddKeys(table, {"x"});
  EXPECT_EQ(table.HeadNode(), head);
  EXPECT_EQ(table.CurrentNode, head);
  EXPECT_TRUE(table.HasNodes());
  EXPECT_EQ(table.Check(), "");
}

TEST(NodeTable, inserts_where_the_search_ends) {
  clsNodeTable table;
  AddKeys(table, {"m", "d", "t", "a", "g", "p", "z"});
  EXPECT_EQ(TableShape(table), "m(d(a g) t(p z))");
  AddKeys(table, {"e", "f"});
  EXPECT_EQ(TableShape(table), "m(d(a g(e(. f) .)) t(p z))");
}

TEST(NodeTable, refuses_an_existing_key_and_stays_at_its_node) {
  clsNodeTable table;
  AddKeys(table, {"m", "d", "t"});
  EXPECT_FALSE(AddKey(table, "D"));
  EXPECT_EQ(TableShape(table), "m(d t)");
  EXPECT_EQ(table.CurrentNode->Id, "d");
}

TEST(NodeTable, puts_an_equal_key_into_the_left_subtree_and_finds_the_upper_one) {
  clsNodeTable table;
  table.AllowDuplicateId = true;
  AddKeys(table, {"x"});
  const auto upper = table.CurrentNode;
  AddKeys(table, {"X", "w"});
  EXPECT_EQ(TableShape(table), "x(X(w .) .)");
  AddKeys(table, {"x"});
  EXPECT_EQ(TableShape(table), "x(X(w(. x) .) .)");
  EXPECT_TRUE(table.Search("X"));
  EXPECT_EQ(table.CurrentNode, upper);
  EXPECT_EQ(table.Check(), "");
}

TEST(NodeTable, search_leaves_cursor_and_parent_on_the_path) {
  struct Case {
    const char* key;
    bool found;
    const char* current;
    const char* parent;
  };
  const Case cases[] = {
      {"m", true, "m", ""},   {"d", true, "d", "m"},  {"g", true, "g", "d"},  {"z", true, "z", "t"},
      {"b", false, "a", "d"}, {"e", false, "g", "d"}, {"n", false, "t", "m"}, {"zz", false, "z", "t"},
  };
  clsNodeTable table;
  AddKeys(table, {"m", "d", "t", "a", "g", "z"});
  for (const auto& c : cases) {
    EXPECT_EQ(table.Search(c.key), c.found) << c.key;
    EXPECT_EQ(table.CurrentNode->Id, c.current) << c.key;
    EXPECT_EQ(table.ParentNode() ? table.ParentNode()->Id : "", c.parent) << c.key;
  }
}

TEST(NodeTable, feet_are_the_ends_of_a_subtree) {
  clsNodeTable table;
  AddKeys(table, {"m", "d", "t", "a", "g", "e"});
  table.FindRightFoot(*table.HeadNode());
  EXPECT_EQ(table.CurrentNode->Id, "t");
  table.FindLeftFoot(*table.HeadNode());
  EXPECT_EQ(table.CurrentNode->Id, "a");
  (void)table.Search("d");
  table.FindRightFoot(*table.CurrentNode);
  EXPECT_EQ(table.CurrentNode->Id, "g");
}

TEST(NodeTable, removal_moves_up_the_subtree_on_the_parents_side) {
  struct Case {
    std::initializer_list<const char*> keys;
    const char* removed;
    const char* shape;
    const char* current;  // the foot, or the removed node
  };
  const Case cases[] = {
      // A right child.
      {{"m", "t"}, "t", "m", "t"},
      {{"m", "t", "z"}, "t", "m(. z)", "t"},
      {{"m", "t", "p"}, "t", "m(. p)", "t"},
      {{"m", "t", "p", "z"}, "t", "m(. p(. z))", "p"},
      {{"m", "t", "p", "z", "r", "n"}, "t", "m(. p(n r(. z)))", "r"},
      // A left child, the mirror image.
      {{"m", "d"}, "d", "m", "d"},
      {{"m", "d", "a"}, "d", "m(a .)", "d"},
      {{"m", "d", "g"}, "d", "m(g .)", "d"},
      {{"m", "d", "a", "g"}, "d", "m(g(a .) .)", "g"},
      {{"m", "d", "a", "g", "e", "k"}, "d", "m(g(e(a .) k) .)", "e"},
      // The head gives way like a right child.
      {{"m"}, "m", "", "m"},
      {{"m", "t"}, "m", "t", "m"},
      {{"m", "d"}, "m", "d", "m"},
      {{"m", "d", "t"}, "m", "d(. t)", "d"},
      {{"m", "d", "t", "a", "g"}, "m", "d(a g(. t))", "g"},
  };
  for (const auto& c : cases) {
    clsNodeTable table;
    AddKeys(table, c.keys);
    EXPECT_TRUE(table.Remove(c.removed));
    EXPECT_EQ(TableShape(table), c.shape);
    EXPECT_EQ(table.CurrentNode->Id, c.current) << c.shape;
    EXPECT_EQ(table.Check(), "") << c.shape;
    EXPECT_FALSE(table.Search(c.removed));
  }
}

TEST(NodeTable, remove_refuses_a_missing_key) {
  clsNodeTable table;
  EXPECT_FALSE(table.Remove("x"));
  AddKeys(table, {"m", "d"});
  EXPECT_FALSE(table.Remove("x"));
  EXPECT_EQ(TableShape(table), "m(d .)");
}

TEST(NodeTable, removes_the_current_node_whichever_operation_made_it_current) {
  clsNodeTable table;
  AddKeys(table, {"m", "d", "t"});
  (void)table.Search("d");
  AddKeys(table, {"p"});
  table.RemoveCurrent();
  EXPECT_EQ(TableShape(table), "m(d t)");
  table.RemoveCurrent();  // it is outside the tree now
  EXPECT_EQ(TableShape(table), "m(d t)");
  EXPECT_EQ(table.Check(), "");
}

TEST(NodeTable, is_like_new_after_its_last_node) {
  clsNodeTable table;
  AddRecord(table, "x", 5, 2);
  table.RemoveCurrent();
  EXPECT_FALSE(table.HasNodes());
  AddKeys(table, {"y"});
  EXPECT_TRUE(table.CurrentNode->Value.IsEmpty());
  EXPECT_FALSE(table.CurrentNode->Flags.has_value());
  EXPECT_EQ(table.CurrentNode->Description, "");
  EXPECT_EQ(table.Check(), "");
}

TEST(NodeTable, adding_a_node_overwrites_the_data_and_the_spelling_of_an_existing_key) {
  clsNodeTable table;
  AddRecord(table, "pi", 3, 2);
  AddRecord(table, "PI", 4, 8);
  EXPECT_EQ(table.Count(), 1U);
  EXPECT_EQ(table.HeadNode()->Id, "PI");
  EXPECT_EQ(table.HeadNode()->Value, Value(4.0));
  EXPECT_EQ(table.HeadNode()->Flags, 8);
  EXPECT_EQ(table.HeadNode()->Description, "about PI");
}

TEST(NodeTable, keeps_the_spelling_of_an_added_node_even_when_keys_are_lowered) {
  clsNodeTable table;
  table.AddLowerCase = true;
  AddRecord(table, "Ab", 1, 2);
  EXPECT_EQ(table.HeadNode()->Id, "Ab");
}

TEST(NodeTable, keeps_a_node_whose_id_was_changed_under_its_old_key) {
  clsNodeTable table;
  AddKeys(table, {"m", "d", "t"});
  (void)table.Search("d");
  table.CurrentNode->Id = "zebra";
  EXPECT_TRUE(table.Search("D"));
  EXPECT_FALSE(table.Search("zebra"));
  AddKeys(table, {"e", "z"});
  EXPECT_EQ(table.Check(), "");
  EXPECT_TRUE(table.Remove("d"));
  EXPECT_EQ(TableShape(table), "m(e t(. z))");
}

TEST(NodeTable, a_node_that_outlives_its_table_has_no_links) {
  std::shared_ptr<clsExNode> kept;
  {
    clsNodeTable table;
    AddKeys(table, {"m", "d", "t"});
    kept = table.HeadNode();
  }
  EXPECT_EQ(kept->Id, "m");
  EXPECT_FALSE(kept->LeftExists || kept->RightExists);
}

TEST(NodeTable, collects_copies_of_one_type) {
  clsNodeTable table;
  EXPECT_EQ(table.NTArray().size(), 1U);
  AddRecord(table, "m", 1, 2);
  AddRecord(table, "d", 2, 9);
  AddRecord(table, "t", 3, 2);
  AddRecord(table, "a", 4, 3);
  AddKeys(table, {"x"});
  table.CollectFlag(2);
  ASSERT_EQ(table.NTArray().size(), 1U);
  clsNodeTable& collected = *table.NTArray().front();
  EXPECT_EQ(TableShape(collected), "m(. t)");
  EXPECT_TRUE(collected.Search("t"));
  EXPECT_EQ(collected.CurrentNode->Value, Value(3.0));
  EXPECT_EQ(collected.CurrentNode->Description, "about t");
  EXPECT_NE(collected.CurrentNode.get(), table.Find("t"));
  table.CollectFlag(8);
  EXPECT_FALSE(table.NTArray().front()->HasNodes());
}

TEST(NodeTable, collects_several_types_in_one_walk) {
  clsNodeTable table;
  AddRecord(table, "m", 1, 2);
  AddRecord(table, "d", 2, 9);
  AddRecord(table, "t", 3, 2);
  const std::array types{Value(9.0), Value("2"), Value(2.0), Value(4.0)};
  table.CollectFlags(types);
  ASSERT_EQ(table.NTArray().size(), 4U);
  const char* const shapes[] = {"d", "m(. t)", "m(. t)", ""};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(TableShape(*table.NTArray()[i]), shapes[i]);
  EXPECT_EQ(RunTimeErrorNumber([&] { table.CollectFlags(std::array{Value("x")}); }), 13);
  EXPECT_EQ(RunTimeErrorNumber([&] { table.CollectFlags(std::array{Value(3e9)}); }), 6);
  EXPECT_EQ(RunTimeErrorNumber([&] { table.CollectFlags(std::vector<Value>(32768)); }), 6);
  EXPECT_EQ(table.NTArray().size(), 4U);
  table.CollectFlags({});
  EXPECT_TRUE(table.NTArray().empty());
}

TEST(NodeTable, collects_every_one_of_several_equal_keys) {
  clsNodeTable table;
  table.AllowDuplicateId = true;
  AddRecord(table, "x", 1, 2);
  AddRecord(table, "x", 2, 2);
  table.CollectFlag(2);
  EXPECT_EQ(table.NTArray().front()->Count(), 2U);
}

TEST(NodeTable, writes_records_in_descending_order) {
  const TemporaryDirectory directory;
  clsNodeTable table;
  AddRecord(table, "Pi", 3.14159265358979, 9);
  AddRecord(table, "x", 0.1, 2);
  table.CurrentNode->Description = "say \"x\"";
  AddKeys(table, {"bare"});
  AddRecord(table, "t", 0, 9);
  table.CurrentNode->Value = Value(true);
  table.SaveToFile(directory.File("a.txt"));
  EXPECT_EQ(directory.Read("a.txt"),
            "\"x\",0.1,2,\"say \"\"x\"\"\"\r\n"
            "\"t\",#TRUE#,9,\"about t\"\r\n"
            "\"Pi\",3.14159265358979,9,\"about Pi\"\r\n"
            "\"bare\",,,\"\"\r\n");
}

TEST(NodeTable, an_empty_table_makes_an_empty_file_and_reads_one) {
  const TemporaryDirectory directory;
  directory.Write("a.txt", "something old");
  clsNodeTable table;
  table.SaveToFile(directory.File("a.txt"));
  EXPECT_EQ(directory.Read("a.txt"), "");
  table.LoadFromFile(directory.File("a.txt"));
  EXPECT_FALSE(table.HasNodes());
}

TEST(NodeTable, saved_and_loaded_it_saves_the_same_bytes) {
  const TemporaryDirectory directory;
  clsNodeTable table;
  for (const char* key : {"m", "d", "T", "a", "g", "p", "z"}) AddRecord(table, key, 1.0 / key[0], key[0]);
  AddKeys(table, {"quote \" and\r\nline", "bare", ""});
  table.SaveToFile(directory.File("a.txt"));
  clsNodeTable loaded;
  loaded.LoadFromFile(directory.File("a.txt"));
  loaded.SaveToFile(directory.File("b.txt"));
  EXPECT_EQ(directory.Read("b.txt"), directory.Read("a.txt"));
  EXPECT_EQ(loaded.Count(), table.Count());
}

TEST(NodeTable, a_loaded_table_is_a_chain_to_the_left) {
  const TemporaryDirectory directory;
  clsNodeTable table;
  AddKeys(table, {"b", "a", "c", "d"});
  table.SaveToFile(directory.File("a.txt"));
  clsNodeTable loaded;
  loaded.LoadFromFile(directory.File("a.txt"));
  EXPECT_EQ(TableShape(loaded), "d(c(b(a .) .) .)");
}

TEST(NodeTable, loading_adds_to_what_is_there_and_replaces_equal_names) {
  const TemporaryDirectory directory;
  const std::string path = directory.Write("a.txt", "\xEF\xBB\xBF\"X\",7,2,\n\n\"y\",,,\"why\"");
  clsNodeTable table;
  AddRecord(table, "x", 1, 9);
  AddRecord(table, "k", 2, 4);
  table.LoadFromFile(path);
  EXPECT_EQ(table.Count(), 3U);
  EXPECT_EQ(table.Find("x")->Id, "X");
  EXPECT_EQ(table.Find("x")->Value, Value(7.0));
  EXPECT_EQ(table.Find("x")->Description, "");
  EXPECT_TRUE(table.Find("y")->Value.IsEmpty());
  EXPECT_EQ(table.Find("k")->Value, Value(2.0));
}

TEST(NodeTable, a_damaged_record_ends_loading_and_keeps_the_records_before_it) {
  struct Case {
    const char* damaged;
    int error;
  };
  const Case cases[] = {
      {"\"b\",1,2", 62},
      {"\"b\",1,2,\"\",5", 62},
      {"\"b\",1,2,\"open", 62},
      {"\"b\"x,1,2,\"\"", 62},
      {"b,1,2,\"\"", 13},
      {"5,1,2,\"\"", 13},
      {"\"b\",one,2,\"\"", 13},
      {"\"b\",1,\"2\",\"\"", 13},
      {"\"b\",1,#TRUE#,\"\"", 13},
      {"\"b\",1,2,3", 13},
      {"\"b\",1,3e9,\"\"", 6},
      {"\"b\",1e999,2,\"\"", 6},
      {"\x01\x02\xFF\xFE\x80", 62},
  };
  const TemporaryDirectory directory;
  for (const auto& c : cases) {
    const std::string path =
        directory.Write("a.txt", std::string("\"c\",1,2,\"\"\n") + c.damaged + "\n\"a\",1,2,\"\"\n");
    clsNodeTable table;
    AddRecord(table, "k", 2, 4);
    EXPECT_EQ(RunTimeErrorNumber([&] { table.LoadFromFile(path); }), c.error) << c.damaged;
    EXPECT_EQ(TableShape(table), "k(c .)") << c.damaged;
    EXPECT_EQ(platform::SharedOpenFiles().FreeNumber(), 1);
  }
}

TEST(NodeTable, passes_file_errors_to_the_caller) {
  const TemporaryDirectory directory;
  clsNodeTable table;
  AddRecord(table, "k", 2, 4);
  EXPECT_EQ(RunTimeErrorNumber([&] { table.LoadFromFile(directory.File("none.txt")); }), 53);
  EXPECT_EQ(RunTimeErrorNumber([&] { table.LoadFromFile(directory.Path()); }), 75);
  EXPECT_EQ(RunTimeErrorNumber([&] { table.SaveToFile(directory.Path()); }), 75);
  const std::string missing = platform::FileInDirectory(directory.File("none"), "a.txt");
  EXPECT_EQ(RunTimeErrorNumber([&] { table.SaveToFile(missing); }), 76);
#ifdef __linux__
  EXPECT_EQ(RunTimeErrorNumber([&] { table.SaveToFile("/dev/full"); }), 61);
#endif
  EXPECT_EQ(TableShape(table), "k");
  EXPECT_EQ(platform::SharedOpenFiles().FreeNumber(), 1);
}

TEST(ExNode, copies_data_but_not_links) {
  clsNodeTable table;
  AddKeys(table, {"m", "d"});
  clsExNode copy;
  copy.CopyData(*table.HeadNode());
  EXPECT_EQ(copy.Id, "m");
  EXPECT_FALSE(copy.LeftExists);
}

TEST(ExNode, stays_as_it_was_when_its_record_is_damaged) {
  const TemporaryDirectory directory;
  const platform::ScopedFile file(directory.Write("a.txt", "\"b\",1,x,\"\"\n"), platform::FileMode::Input);
  clsExNode node;
  node.Id = "a";
  EXPECT_EQ(RunTimeErrorNumber([&] { node.LoadDataFromOpenFile(file.Number()); }), 13);
  EXPECT_EQ(node.Id, "a");
  EXPECT_EQ(RunTimeErrorNumber([&] { node.LoadDataFromOpenFile(99); }), 52);
}

}  // namespace
}  // namespace plotvane::identifiers
