// Random operations on the identifier tree beside the rules carried out plainly and a multimap; depth and
// cost.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <random>
#include <string>

#include "identifiers/clsNodeTable.h"
#include "platform/open_files.h"
#include "tests/identifiers/plain_tree.h"
#include "tests/identifiers/tree_shape.h"
#include "tests/platform/temporary_directory.h"

namespace plotvane::identifiers {
namespace {

using platform::Value;
using tests::PlainTree;
using tests::TableShape;
using tests::TemporaryDirectory;

// The tree, its model and the multimap of its content, driven by one random sequence.
class Trial {
 public:
  explicit Trial(std::uint32_t seed) : mRandom(seed) {}

  void Step() {
    const std::string key = RandomKey();
    switch (mRandom() % 10) {
      case 0:
      case 1:
      case 2: return AddNode(key);
      case 3: return Add(key);
      case 4:
      case 5:
      case 6: return Remove(key);
      case 7: return Search(key);
      case 8: return FindFoot();
      default: return ToggleDuplicates();
    }
  }

  void ExpectAgreement() {
    ASSERT_EQ(mTable.Check(), "");
    ASSERT_EQ(TableShape(mTable), TableShape(mModel));
    ASSERT_EQ(mTable.Count(), mContent.size());
    if (mModel.CurrentNode != nullptr && mCursorCounts) {
      ASSERT_EQ(mTable.CurrentNode->Id, mModel.CurrentNode->Id);
      ASSERT_EQ(Tag(mTable.CurrentNode->Value), mModel.CurrentNode->Value);
    }
    std::string keys;
    for (const auto& [key, id] : mContent) keys += key + "\n";
    if (mTable.HasNodes()) {
      ASSERT_EQ(platform::LowerCaseText(mTable.DebugDispNodeD(*mTable.HeadNode())), keys);
    }
  }

  clsNodeTable& Table() { return mTable; }

 private:
  static double Tag(const Value& value) { return value.IsNumber() ? value.Number() : 0; }

  // Few enough keys for collisions, in both letter cases.
  std::string RandomKey() {
    std::string key(1 + mRandom() % 2, ' ');
    for (char& c : key) c = "abcdefgHIJ_1"[mRandom() % 12];
    if (mRandom() % 2 == 0) key = platform::LowerCaseText(key);
    return key;
  }

  void Insert(const std::string& id) {
    const std::string key = platform::LowerCaseText(id);
    if (mModel.AllowDuplicateId || !mContent.contains(key)) mContent.emplace(key, id);
  }

  void AddNode(const std::string& key) {
    clsExNode node;
    node.Id = key;
    node.Value = Value(++mTag);
    mTable.AddNode(node);
    mModel.AddNode(key, mTag);
    Insert(key);
    mCursorCounts = true;
  }

  void Add(const std::string& key) {
    std::string id = key;
    ASSERT_EQ(mTable.Add(id), mModel.Add(key));
    Insert(key);
    mCursorCounts = true;
  }

  void Remove(const std::string& key) {
    const bool removed = mModel.Remove(key);
    ASSERT_EQ(mTable.Remove(key), removed);
    const auto found = mContent.find(platform::LowerCaseText(key));
    ASSERT_EQ(found != mContent.end(), removed);
    if (removed) mContent.erase(found);
  }

  void Search(const std::string& key) {
    ASSERT_EQ(mTable.Search(key), mModel.Search(key));
    ASSERT_EQ(mTable.Find(key) != nullptr, mContent.contains(platform::LowerCaseText(key)));
    if (!mTable.HasNodes()) return;
    ASSERT_EQ(mTable.ParentNode() == nullptr, mModel.ParentNode == nullptr);
    if (mModel.ParentNode != nullptr) {
      ASSERT_EQ(mTable.ParentNode()->Id, mModel.ParentNode->Id);
    }
  }

  void FindFoot() {
    if (!mTable.HasNodes()) return;
    if (mRandom() % 2 == 0) {
      mTable.FindRightFoot(*mTable.HeadNode());
      mModel.FindRightFoot(mModel.HeadNode());
    } else {
      mTable.FindLeftFoot(*mTable.HeadNode());
      mModel.FindLeftFoot(mModel.HeadNode());
    }
  }

  void ToggleDuplicates() {
    if (mRandom() % 20 == 0) mTable.AllowDuplicateId = mModel.AllowDuplicateId = !mModel.AllowDuplicateId;
  }

  std::mt19937 mRandom;
  clsNodeTable mTable;
  PlainTree mModel;
  std::multimap<std::string, std::string> mContent;
  double mTag = 0;
  bool mCursorCounts = false;
};

TEST(NodeTableModel, random_operations_agree_with_the_plain_rules_after_every_step) {
  for (std::uint32_t seed = 1; seed <= 10; ++seed) {
    Trial trial(seed);
    for (int step = 0; step < 2000; ++step) {
      trial.Step();
      trial.ExpectAgreement();
      if (testing::Test::HasFatalFailure()) FAIL() << "seed " << seed << ", step " << step;
    }
  }
}

TEST(NodeTableModel, random_tables_save_load_and_save_the_same_bytes) {
  const TemporaryDirectory directory;
  Trial trial(99);
  trial.Table().AllowDuplicateId = false;
  for (int step = 0; step < 3000; ++step) {
    trial.Step();
    if (step % 300 != 0 || trial.Table().AllowDuplicateId) continue;
    trial.Table().SaveToFile(directory.File("a.txt"));
    clsNodeTable loaded;
    loaded.AllowDuplicateId = true;  // keys that came twice stay two
    loaded.LoadFromFile(directory.File("a.txt"));
    loaded.SaveToFile(directory.File("b.txt"));
    ASSERT_EQ(loaded.Check(), "");
    ASSERT_EQ(loaded.Count(), trial.Table().Count());
    ASSERT_EQ(directory.Read("b.txt"), directory.Read("a.txt"));
  }
}

// Keys of equal length, so that their order is that of their numbers.
std::string NumberedKey(int number) {
  char key[16];
  std::snprintf(key, sizeof key, "k%08d", number);
  return key;
}

double Seconds(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// A plain descent takes five thousand million steps for this; the bound leaves room for sanitizers and busy
// machines.
constexpr int kMany = 100'000;
constexpr double kSecondsAllowed = 8;

TEST(NodeTableCost, sorted_keys_are_added_without_walking_their_chain) {
  const auto start = std::chrono::steady_clock::now();
  clsNodeTable ascending;
  clsNodeTable descending;
  for (int i = 0; i < kMany; ++i) {
    std::string key = NumberedKey(i);
    ascending.Add(key);
    key = NumberedKey(kMany - i);
    descending.Add(key);
  }
  EXPECT_LT(Seconds(start), kSecondsAllowed);
  EXPECT_EQ(ascending.Check(), "");
  EXPECT_EQ(descending.Check(), "");
  EXPECT_FALSE(ascending.HeadNode()->LeftExists);
  EXPECT_FALSE(descending.HeadNode()->RightExists);
}

TEST(NodeTableCost, a_saved_file_is_loaded_without_walking_its_chain) {
  const TemporaryDirectory directory;
  {
    const platform::ScopedFile file(directory.File("a.txt"), platform::FileMode::Output);
    clsExNode record;
    record.Flags = 2;
    for (int i = kMany; i > 0; --i) {
      record.Id = NumberedKey(i);
      record.Value = Value(1.0 / i);
      record.SaveDataToOpenFile(file.Number());
    }
  }
  const auto start = std::chrono::steady_clock::now();
  clsNodeTable table;
  table.LoadFromFile(directory.File("a.txt"));
  const double seconds = Seconds(start);
  RecordProperty("seconds", std::to_string(seconds));
  EXPECT_LT(seconds, kSecondsAllowed);
  EXPECT_EQ(table.Count(), static_cast<std::size_t>(kMany));
  EXPECT_EQ(table.Check(), "");
}

TEST(NodeTableCost, a_chain_of_a_million_nodes_is_walked_copied_saved_and_released) {
  constexpr int kChain = 1'000'000;
  const TemporaryDirectory directory;
  clsNodeTable table;
  clsExNode record;
  record.Flags = 2;
  for (int i = kChain; i > 0; --i) {
    record.Id = NumberedKey(i);
    table.AddNode(record);
  }
  EXPECT_EQ(table.Check(), "");
  EXPECT_EQ(table.DebugDispNodeA(*table.HeadNode()).size(), std::size_t{kChain} * 10);
  EXPECT_EQ(table.DebugDispNodeD(*table.HeadNode()).size(), std::size_t{kChain} * 10);
  table.CollectFlag(2);
  EXPECT_EQ(table.NTArray().front()->Count(), std::size_t{kChain});
  table.CollectFlag(9);
  table.SaveToFile(directory.File("a.txt"));
  EXPECT_TRUE(table.Remove(NumberedKey(kChain)));
  EXPECT_EQ(table.HeadNode()->Id, NumberedKey(kChain - 1));
}

}  // namespace
}  // namespace plotvane::identifiers
