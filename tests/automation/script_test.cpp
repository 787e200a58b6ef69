// Script engines as hosts: scripts in tests/automation/scripts run in a process of their own on the
// registered component, and the user at their boxes is this process.

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>

#include "model/about.h"
#include "tests/automation/component_file.h"
#include "tests/automation/host_process.h"
#include "tests/automation/interface_table.h"
#include "tests/automation/object_fixture.h"
#include "tests/support/test_paths.h"
#include "text/encoding.h"

namespace quarvel::automation {
namespace {

std::wstring Wide(const std::string& utf8) {
  const std::u16string units = text::Utf8ToUtf16(utf8);
  std::wstring wide(units.begin(), units.end());
  for (wchar_t& c : wide) c = c == L'/' ? L'\\' : c;
  return wide;
}

// Whether hosts are to use the component as they find it, installed or unpacked from a delivered file:
// tests/windows_packages.sh.
bool ComponentIsDelivered() { return std::getenv("QUARVEL_DELIVERED") != nullptr; }

class Script : public ::testing::Test {
 protected:
  void SetUp() override { Register("DllRegisterServer"); }
  void TearDown() override { Register("DllUnregisterServer"); }

  void Register(const char* entry_point) {
    if (ComponentIsDelivered()) return;
    ASSERT_EQ(component_.Call(entry_point), S_OK);
  }

  // Runs a script with the folder to write in as its argument; what it printed.
  std::string Run(const std::string& script) { return RunFile(SourceFolder() + "/" + script); }

  std::string RunFile(const std::string& path) {
    return RunCommand(L"cscript.exe //nologo \"" + Wide(path) + L"\" \"" + Wide(folder_.path()) +
                      L"\"");
  }

  std::string RunCommand(const std::wstring& command) {
    const std::string output = folder_.File("output.txt");
    {
      const HostProcess host(command, Wide(output));
      EXPECT_TRUE(host.Attend([this](const SeenWindow& window) { return Attend(window); }, 60))
          << "the host did not end; windows: " << testing::PrintToString(windows_);
    }
    return ReadWholeFile(output);
  }

  // The user: answers No where that can be answered, chooses the next of `files_`, closes viewers.
  bool Attend(const SeenWindow& window) {
    if (IsBox(window)) {
      boxes_.push_back(window.text);
      PressButton(window.handle, GetDlgItem(window.handle, IDNO) != nullptr ? IDNO : IDOK);
      return true;
    }
    // After the question that comes with closing, a viewer takes input for a moment before it goes.
    const bool is_viewer = window.title == "Model Viewer";
    if (is_viewer && !closed_viewers_.insert(window.handle).second) return true;
    windows_.push_back(window.title);
    if (!files_.empty() && window.window_class == "#32770") {
      ChooseFile(window.handle, Wide(files_.front()));
      files_.pop_front();
    } else if (window.title == "Set Default Bounds") {
      PostMessageW(window.handle, WM_COMMAND, IDOK, 0);
    } else if (is_viewer) {
      PostMessageW(window.handle, WM_CLOSE, 0, 0);
    } else {
      return false;
    }
    return true;
  }

  LoadedComponent component_;
  TemporaryFolder folder_;
  std::deque<std::string> files_;
  std::vector<std::string> boxes_;
  std::vector<std::string> windows_;  // titles of those that are no boxes
  std::set<HWND> closed_viewers_;
};

const std::vector<std::string>& BoxesOfMembers() {
  static const std::vector<std::string> boxes = {
      "Invalid row or column given when attempting to AddElement()",
      "Row not added:  that name is already in use",
      "Column not added:  empty name given",
      "Invalid Column number when attempting to SetColUpperBound()",
      "Invalid Column number when attempting to SetColLowerBound()",
      "Invalid Column number when attempting to SetColName()",
      "That name is already in use",
      "Invalid Column number when attempting to SetColType()",
      "Invalid Column Type",
      "Invalid Element number when attempting to SetRowElementValue()",
      "Spaces are not allowed in row names",
      "Invalid Row number when attempting to SetRowName()",
      "Invalid Row Type",
      "Invalid Row number when attempting to SetRowLowerBound()",
      "Invalid Row number when attempting to SetRowUpperBound()",
      model::AboutText(),
      "Do you want to simplify the model?\r\nThis will remove empty rows and columns, and will "
      "convert any rows with just one element into equivalent column bounds",
      "Quarvel.dll error: row 9 is out of range.  \r\nRows range from 0 to 1.",
      "Quarvel.dll error: column 9 is out of range.  \r\nColumns range from 0 to 2.",
      "Quarvel.dll error: row 9 is out of range.  \r\nBinding rows range from 0 to 0.",
      "Quarvel.dll error: row 9 is out of range.  \r\nNon-Binding Rows range from 0 to 0.",
      "Cannot remove the only row.\r\nRename it instead of removing it and creating a new one.",
  };
  return boxes;
}

TEST_F(Script, VBScriptReachesEveryMember) {
  EXPECT_EQ(Run("tests/automation/scripts/members.vbs"), "112 checks, 0 failed\r\n");
  EXPECT_EQ(boxes_, BoxesOfMembers());
}

TEST_F(Script, JScriptReachesEveryMember) {
  EXPECT_EQ(Run("tests/automation/scripts/members.js"), "98 checks, 0 failed\r\n");
  EXPECT_EQ(boxes_, BoxesOfMembers());
}

TEST_F(Script, ReadsShowsAndSavesInWindowsOfAUser) {
  WriteWholeFile(folder_.File("in.mps"),
                 "NAME TOUR\r\nROWS\r\n N COST\r\n L LIM\r\nCOLUMNS\r\n X COST 1\r\n X LIM 2\r\n"
                 " Y LIM 3\r\nRHS\r\n RHS LIM 10\r\nENDATA\r\n");
  files_ = {folder_.File("in.mps"), folder_.File("out.mps")};
  EXPECT_EQ(
      Run("tests/automation/scripts/journey.vbs"),
      "read -1\r\nTOUR + 2*X + 3*Y  <=  10\r\nshowing 0\r\nshowing 0\r\nsaved -1\r\nnew 0\r\n");
  EXPECT_EQ(windows_.front(), "Identify the MPS file to open");
  EXPECT_EQ(std::count(windows_.begin(), windows_.end(), "Set Default Bounds"), 1);
  EXPECT_EQ(std::count(windows_.begin(), windows_.end(), "Model Viewer"), 3);
  EXPECT_EQ(std::count(windows_.begin(), windows_.end(), "Save As..."), 1);
  EXPECT_NE(ReadWholeFile(folder_.File("out.mps")).find("TOUR"), std::string::npos);
}

// The blocks of VBScript on a page.
std::vector<std::string> BlocksOf(const std::string& page) {
  std::vector<std::string> blocks;
  std::istringstream lines(page);
  bool inside = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (inside && line == "```") {
      inside = false;
    } else if (inside) {
      blocks.back() += line + "\r\n";
    } else if (line == "```vb") {
      blocks.emplace_back();
      inside = true;
    }
  }
  return blocks;
}

// What a block says that it prints.
std::string ToldBy(const std::string& block) {
  constexpr std::string_view kMark = "  '> ";
  std::string told;
  for (std::size_t at = block.find(kMark); at != std::string::npos; at = block.find(kMark, at)) {
    at += kMark.size();
    told += block.substr(at, block.find("\r\n", at) + 2 - at);
  }
  return told;
}

// Each example of docs/members.md on a model of its own, which the first block of the page makes.
TEST_F(Script, ExamplesOfThePageOfMembersPrintWhatStandsThere) {
  const std::vector<std::string> blocks = BlocksOf(ProjectFile("docs/members.md"));
  ASSERT_EQ(blocks.size(), 1 + InterfaceTable().size());
  std::string script = "folder = WScript.Arguments(0)\r\n" + blocks[0];
  std::string expected;
  for (std::size_t i = 1; i < blocks.size(); ++i) {
    const std::string name = "Example" + std::to_string(i);
    script += "Sub " + name + "\r\n" + blocks[i] + "End Sub\r\nSet model = SmallModel()\r\n" +
              "WScript.Echo \"" + name + "\"\r\n" + name + "\r\n";
    expected += name + "\r\n" + ToldBy(blocks[i]);
  }
  WriteWholeFile(folder_.File("examples.vbs"), script);
  WriteWholeFile(folder_.File("transport.mps"), ProjectFile("examples/transport.mps"));
  files_ = {folder_.File("transport.mps"), folder_.File("chosen.mps")};
  EXPECT_EQ(RunFile(folder_.File("examples.vbs")), expected);
  EXPECT_NE(ReadWholeFile(folder_.File("chosen.mps")), "");
}

// The tours of the examples, whose hosts print the same.
class Tour : public Script {
 protected:
  void Take(const std::function<std::string()>& run) {
    WriteWholeFile(folder_.File("transport.mps"),
                   ReadWholeFile(SourceFolder() + "/examples/transport.mps"));
    files_ = {folder_.File("transport.mps")};
    std::string printed = run();
    std::erase(printed, '\r');
    EXPECT_EQ(printed, ProjectFile("examples/automation/tour.txt"));
    EXPECT_EQ(windows_.back(), "Model Viewer");
    EXPECT_NE(ReadWholeFile(folder_.File("transport_tour.mps")).find("\r\n UP "),
              std::string::npos);
  }
};

TEST_F(Tour, IsTakenByVBScript) {
  Take([this] { return Run("examples/automation/tour.vbs"); });
}

TEST_F(Tour, IsTakenByJScript) {
  Take([this] { return Run("examples/automation/tour.js"); });
}

TEST_F(Tour, IsTakenByAProgramWithoutRegistration) {
  Register("DllUnregisterServer");
  const std::wstring file = ComponentFile();
  const std::wstring folder = file.substr(0, file.rfind(L'\\') + 1);
  Take([&] { return RunCommand(L"\"" + folder + L"quarvel_tour.exe\""); });
}

}  // namespace
}  // namespace quarvel::automation
