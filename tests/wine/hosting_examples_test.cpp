// The first plots in docs/hosting.md, of every language: short, and true to the type library. Those in
// languages that run here are run as well, from the text of the document.
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/wine/host.h"

namespace plotvane::tests {
namespace {

using Blocks = std::map<std::string, std::string>;  // code by language

Blocks CodeBlocks() {
  std::ifstream document(PLOTVANE_SOURCE "/docs/hosting.md");
  EXPECT_TRUE(document.is_open());
  Blocks blocks;
  std::string language;
  for (std::string line; std::getline(document, line);) {
    if (line.starts_with("```")) {
      language = language.empty() ? line.substr(3) : "";
    } else if (!language.empty()) {
      blocks[language] += line + "\n";
    }
  }
  return blocks;
}

// The members of an interface with the numbers of arguments that they take.
struct Count {
  int least;
  int most;
};
using Members = std::multimap<std::string, Count>;

ComPtr<ITypeLib> OwnLibrary() {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(::LoadTypeLibEx(Library::Path().c_str(), REGKIND_NONE, library.Receive()), S_OK);
  return library;
}

Members MembersOf(REFGUID guid) {
  ComPtr<ITypeInfo> type;
  EXPECT_EQ(OwnLibrary()->GetTypeInfoOfGuid(guid, type.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  type->GetTypeAttr(&attributes);
  const UINT functions = attributes->cFuncs;
  type->ReleaseTypeAttr(attributes);
  Members members;
  for (UINT index = 0; index < functions; ++index) {
    FUNCDESC* function = nullptr;
    type->GetFuncDesc(index, &function);
    Bstr name;
    type->GetDocumentation(function->memid, name.Receive(), nullptr, nullptr, nullptr);
    int optional = 0;
    for (int parameter = 0; parameter < function->cParams; ++parameter) {
      if ((function->lprgelemdescParam[parameter].paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0) ++optional;
    }
    members.emplace(name.Text(), Count{function->cParams - optional, function->cParams});
    type->ReleaseFuncDesc(function);
  }
  return members;
}

struct Use {
  std::string member;
  int arguments = -1;  // -1: read or written like a field
};

int CountOf(const std::string& list) {
  if (list.find_first_not_of(" \t") == std::string::npos) return 0;
  int depth = 0;
  int count = 1;
  for (const char letter : list) {
    if (letter == '(' || letter == '[' || letter == '{') ++depth;
    if (letter == ')' || letter == ']' || letter == '}') --depth;
    if (letter == ',' && depth == 0) ++count;
  }
  return count;
}

// What stands between the bracket that opens at `from` and the one that closes it.
std::string Bracketed(const std::string& code, std::size_t from) {
  int depth = 0;
  for (std::size_t place = from; place < code.size(); ++place) {
    if (code[place] == '(') ++depth;
    if (code[place] == ')' && --depth == 0) return code.substr(from + 1, place - from - 1);
  }
  return {};
}

// Members of the control named graph, $graph or Graph1.
std::vector<Use> UsesOfControl(const std::string& code) {
  static const std::regex kUse(R"(\$?[Gg]raph1?(\.|->)(\w+)([( ])?)");
  std::vector<Use> uses;
  for (std::sregex_iterator found(code.begin(), code.end(), kUse), end; found != end; ++found) {
    Use use{(*found)[2].str(), -1};
    const std::string after = (*found)[3].str();
    const auto next = static_cast<std::size_t>(found->position() + found->length());
    if (after == "(") {
      use.arguments = CountOf(Bracketed(code, next - 1));
    } else if (after == " " && std::isalpha(static_cast<unsigned char>(code[next])) != 0 &&
               code.substr(next, 2) != "to") {
      use.arguments = CountOf(code.substr(next, code.find('\n', next) - next));  // a call without brackets
    }
    uses.push_back(use);
  }
  return uses;
}

class HostingExamples : public testing::TestWithParam<const char*> {
 protected:
  [[nodiscard]] std::string Code() const {
    return mBlocks.contains(GetParam()) ? mBlocks.at(GetParam()) : "";
  }

  Apartment mApartment;
  Blocks mBlocks = CodeBlocks();
};

TEST_P(HostingExamples, first_plot_takes_at_most_fifteen_lines) {
  std::istringstream lines(Code());
  int count = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.find_first_not_of(" \t") != std::string::npos) ++count;
  }
  EXPECT_GT(count, 0) << "there is no example";
  EXPECT_LE(count, 15);
}

TEST_P(HostingExamples, uses_members_that_exist_with_arguments_that_they_take) {
  const Members members = MembersOf(IID__Graph);
  const bool smartPointer = std::string(GetParam()) == "cpp-import";
  bool plots = false;
  for (const Use& use : UsesOfControl(Code())) {
    if (smartPointer && use.member == "CreateInstance") continue;  // of the pointer, not of the control
    plots = plots || use.member == "SetYArray";
    const auto [first, last] = members.equal_range(use.member);
    EXPECT_NE(first, last) << use.member;
    if (use.arguments < 0) continue;
    bool fits = false;
    for (auto member = first; member != last; ++member)
      fits = fits || (use.arguments >= member->second.least && use.arguments <= member->second.most);
    EXPECT_TRUE(fits) << use.member << " with " << use.arguments << " arguments";
  }
  EXPECT_TRUE(plots) << "SetYArray hands in the functions";
}

TEST_P(HostingExamples, gives_a_function_the_five_fields) {
  const std::string language = GetParam();
  // The example in C++ takes its function from a file beside the document.
  std::string code = Code();
  if (language == "cpp" || language == "cpp-import") {
    std::ifstream file(PLOTVANE_SOURCE "/docs/examples/YFunction.h");
    code.assign(std::istreambuf_iterator<char>(file), {});
  }
  // VB takes the class of VBA.
  if (language == "vb") code += mBlocks.at("vba");
  for (const char* field : {"Equation", "Enabled", "DrawStyle", "DrawColor", "QuickRedraw"})
    EXPECT_NE(code.find(field), std::string::npos) << field;
}

TEST_P(HostingExamples, names_the_class_and_its_events_as_they_are) {
  const std::string code = Code();
  static const std::regex kEvent(R"(Graph1_(\w+))");
  const Members events = MembersOf(DIID___Graph);
  for (std::sregex_iterator found(code.begin(), code.end(), kEvent), end; found != end; ++found)
    EXPECT_TRUE(events.contains((*found)[1].str())) << (*found)[1].str();
  static const std::regex kClass(R"(\bPlotvane\.(\w+))");
  for (std::sregex_iterator found(code.begin(), code.end(), kClass), end; found != end; ++found) {
    const std::string name = (*found)[1].str();
    EXPECT_TRUE(name == "Graph" || name == "h" || name == "ocx") << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, HostingExamples,
                         testing::Values("vba", "vb", "vbscript", "jscript", "powershell", "csharp", "cpp",
                                         "cpp-import", "delphi"),
                         [](const auto& language) {
                           std::string name = language.param;
                           for (char& letter : name) letter = letter == '-' ? '_' : letter;
                           return name;
                         });

// The checks themselves are no use if they pass everything.
TEST(HostingExampleChecks, wrong_members_and_counts_would_be_seen) {
  const std::vector<Use> uses =
      UsesOfControl("graph.SetYArray(a, f(b, c), d);\nGraph1.PlotEverything\n$graph.ZNum 2\n");
  ASSERT_EQ(uses.size(), 3U);
  EXPECT_EQ(uses[0].arguments, 3);
  EXPECT_EQ(uses[1].member, "PlotEverything");
  EXPECT_EQ(uses[1].arguments, -1);
  const Apartment apartment;
  const Members members = MembersOf(IID__Graph);
  EXPECT_FALSE(members.contains("PlotEverything"));
  EXPECT_EQ(members.find("SetYArray")->second.least, 1);
  EXPECT_EQ(members.find("SetYArray")->second.most, 2);
  EXPECT_EQ(members.count("Xmin"), 2U);
}

TEST(HostingDocument, warns_of_arrays_from_zero_before_the_first_example) {
  std::ifstream document(PLOTVANE_SOURCE "/docs/hosting.md");
  const std::string text(std::istreambuf_iterator<char>(document), {});
  const std::size_t warning = text.find("element 0 empty");
  EXPECT_LT(warning, text.find("```"));
}

}  // namespace
}  // namespace plotvane::tests
