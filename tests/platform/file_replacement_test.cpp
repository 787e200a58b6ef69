#include "platform/file_replacement.h"

#include <filesystem>
#include <optional>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "platform/system_file.h"
#include "platform/system_names.h"
#include "tests/support/file_faults.h"
#include "tests/support/form_fixture.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;
using Contents = FileReplacement::Contents;

fs::path AsPath(const std::string& utf8) { return std::u8string(utf8.begin(), utf8.end()); }

std::set<std::string> NamesIn(const TemporaryFolder& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(AsPath(folder.path()))) {
    const std::u8string name = entry.path().filename().u8string();
    names.emplace(name.begin(), name.end());
  }
  return names;
}

using FileNames = std::set<std::string>;

void Replace(const std::string& path, std::string_view text) {
  FileReplacement replacement(path);
  replacement.output().Write(text);
  replacement.Commit();
}

TEST(FileReplacement, TakesTheFilesPlaceWhenCommitted) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("model.mps"), "a longer old text");
  FileReplacement replacement(folder.File("model.mps"));
  replacement.output().Write("new");
  replacement.output().Flush();
  EXPECT_EQ(ReadWholeFile(folder.File("model.mps")), "a longer old text");
  EXPECT_EQ(replacement.contents(), Contents::kOld);
  EXPECT_EQ(NamesIn(folder), (FileNames{"model.mps", ".model.mps.quarvel-0~"}));
  replacement.Commit();
  EXPECT_EQ(replacement.contents(), Contents::kNew);
  EXPECT_EQ(ReadWholeFile(folder.File("model.mps")), "new");
  EXPECT_EQ(NamesIn(folder), FileNames{"model.mps"});
}

TEST(FileReplacement, ShowsTheNewContentsBeforeTheyTakeTheFilesPlace) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("model.mps"), "old");
  FileReplacement replacement(folder.File("model.mps"));
  replacement.output().Write("new contents");
  std::optional<InputFile> review = replacement.Review();
  ASSERT_TRUE(review.has_value());
  std::string read(100, '\0');
  EXPECT_EQ(review->size(), 12U);
  read.resize(review->Read(read.data(), read.size()));
  EXPECT_EQ(read, "new contents");
  EXPECT_EQ(ReadWholeFile(folder.File("model.mps")), "old");
  review.reset();
  replacement.Commit();
  EXPECT_EQ(ReadWholeFile(folder.File("model.mps")), "new contents");
}

TEST(FileReplacement, LeavesEverythingAsItWasWithoutCommit) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("old"), "old");
  for (const char* name : {"old", "new"}) {
    FileReplacement(folder.File(name)).output().Write(std::string(1'000'000, 'x'));
  }
  EXPECT_EQ(ReadWholeFile(folder.File("old")), "old");
  EXPECT_EQ(NamesIn(folder), FileNames{"old"});
}

TEST(FileReplacement, MakesAFileThatWasNotThere) {
  const TemporaryFolder folder;
  const std::string path = folder.File("mod\u00E8le \u6A21\u578B.mps");
  Replace(path, "new");
  EXPECT_EQ(ReadWholeFile(path), "new");
  EXPECT_EQ(NamesIn(folder).size(), 1u);
}

struct FileAsRead {
  bool has_two_names = false;
  TemporaryFolder folder{};
  std::string path = folder.File("model.mps");
  FileStamp stamp{};

  void Lay() {
    WriteWholeFile(path, "as read");
    if (has_two_names) fs::create_hard_link(AsPath(path), AsPath(folder.File("second.mps")));
    stamp = StampUnder(path).value();
  }
  int Replace(std::string_view text, const std::string& others = "") const {
    return FailureOf([&] {
      FileReplacement replacement(path, nullptr, stamp);
      replacement.output().Write(text);
      if (!others.empty()) WriteWholeFile(path, others);
      replacement.Commit();
    });
  }
};

TEST(FileReplacement, LeavesAFileThatIsNoMoreWhatWasRead) {
  for (const bool has_two_names : {false, true}) {
    SCOPED_TRACE(has_two_names);
    FileAsRead file{has_two_names};
    file.Lay();
    EXPECT_EQ(file.Replace("new", "what others write"), 70);
    EXPECT_EQ(ReadWholeFile(file.path), "what others write");
    EXPECT_EQ(NamesIn(file.folder).size(), has_two_names ? 2 : 1);
  }
}

TEST(FileReplacement, LetsOneOfTwoAloneReplaceWhatBothHaveRead) {
  for (const bool has_two_names : {false, true}) {
    SCOPED_TRACE(has_two_names);
    FileAsRead file{has_two_names};
    file.Lay();
    EXPECT_EQ(file.Replace("of the first"), 0);
    EXPECT_EQ(file.Replace("of the second"), 70);
    EXPECT_EQ(ReadWholeFile(file.path), "of the first");
  }
}

TEST(FileReplacement, MakesAFileAnewThatIsGoneSinceItWasRead) {
  FileAsRead file;
  file.Lay();
  fs::remove(AsPath(file.path));
  EXPECT_EQ(file.Replace("new"), 0);
  EXPECT_EQ(ReadWholeFile(file.path), "new");
}

TEST(FileReplacement, SaysWhatIsWrongWithTheName) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "text");
  const struct Case {
    std::string name;
    int error;
  } cases[] = {
      {folder.File("missing/model.mps"), 76},
      {folder.path(), 75},
      {"", 75},
      {folder.File(std::string("a\0b", 3)), 52},
      {folder.File("file/model.mps"), 76},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FailureOf([&] { const FileReplacement replacement(c.name); }), c.error) << c.name;
  }
  EXPECT_EQ(NamesIn(folder), FileNames{"file"});
}

TEST(FileReplacement, LeavesAFileThatMayNotBeWritten) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "old");
  FileFaults faults(FaultKind::kNotPermitted, 2);  // asked about, then followed or opened
  EXPECT_EQ(FailureOf([&] { const FileReplacement replacement(folder.File("file")); }), 70);
  EXPECT_EQ(ReadWholeFile(folder.File("file")), "old");
}

TEST(FileReplacement, ShortensTemporaryNamesOfLongNames) {
  const TemporaryFolder folder;
  std::string name;
  while (name.size() < 240) name += "\u00E8";
  FileReplacement replacement(folder.File(name));
  const FileNames names = NamesIn(folder);
  ASSERT_EQ(names.size(), 1u);
  EXPECT_EQ(*names.begin(), "." + name.substr(0, 100) + ".quarvel-0~");
  replacement.Commit();
  EXPECT_EQ(NamesIn(folder), FileNames{name});
}

TEST(FileReplacement, WorksForTwoAtATimeAndTheLastOneStands) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  WriteWholeFile(path, "old");
  FileReplacement first(path);
  FileReplacement second(path);
  EXPECT_EQ(NamesIn(folder).size(), 3u);
  first.output().Write("first");
  second.output().Write("second");
  first.Commit();
  EXPECT_EQ(ReadWholeFile(path), "first");
  second.Commit();
  EXPECT_EQ(ReadWholeFile(path), "second");
  EXPECT_EQ(NamesIn(folder), FileNames{"model.mps"});
}

TEST(FileReplacement, ClearsWhatEndedProcessesLeftButNothingElse) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  fs::create_directory(AsPath(folder.File(".model.mps.quarvel-0~")));
  WriteWholeFile(folder.File(".model.mps.quarvel-1~"), "left");
  WriteWholeFile(folder.File(".model.mps.quarvel-2~"), "left");
  WriteWholeFile(folder.File(".model.mps.quarvel-5~"), "after a gap");
  WriteWholeFile(folder.File(".model.mps.quarvel-1700~"), "after a long gap");
  const FileNames others = {".other.mps.quarvel-0~",  ".model.mps.quarvel-~",
                            ".model.mps.quarvel-1x~", ".model.mps.quarvel-2",
                            ".model.mps.quarvel-",    "model.mps.quarvel-0~"};
  for (const std::string& name : others) WriteWholeFile(folder.File(name), "another's");
  Replace(path, "new");
  FileNames expected = others;
  expected.insert({"model.mps", ".model.mps.quarvel-0~"});
  EXPECT_EQ(NamesIn(folder), expected);
  EXPECT_EQ(ReadWholeFile(path), "new");
}

#ifndef _WIN32
TEST(FileReplacement, WritesAFileOfTwoNamesInPlace) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("a"), "a longer old text");
  fs::create_hard_link(AsPath(folder.File("a")), AsPath(folder.File("b")));
  Replace(folder.File("a"), "new");
  EXPECT_EQ(ReadWholeFile(folder.File("b")), "new");
  EXPECT_EQ(fs::hard_link_count(AsPath(folder.File("b"))), 2u);
  EXPECT_EQ(NamesIn(folder), (FileNames{"a", "b"}));
}
#endif

TEST(FileReplacement, WritesInPlaceWhereTheNameMayNotBeTaken) {
  // Whichever call it is that renames: what is refused last shows in the number of the file.
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  bool in_place = false;
  for (int call = 1; call < 100 && !in_place; ++call) {
    WriteWholeFile(path, "a longer old text");
    const auto before = StampUnder(path);
    FileFaults faults(FaultKind::kNotPermitted, call);
    if (FailureOf([&] { Replace(path, "new"); }) != 0) continue;
    const auto after = StampUnder(path);
    in_place = before && after && before->number == after->number;
    EXPECT_EQ(ReadWholeFile(path), "new");
  }
  EXPECT_TRUE(in_place);
}

TEST(FileReplacement, RaisesWhenNotEveryByteArrived) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  WriteWholeFile(path, "old");
  EXPECT_EQ(FailureOf([&] {
              FileReplacement replacement(path);
              replacement.output().Write("new text");
              replacement.output().Flush();
              replacement.output().system_file().CutOff(3);
              replacement.Commit();
            }),
            57);
  EXPECT_EQ(ReadWholeFile(path), "old");
  EXPECT_EQ(NamesIn(folder), FileNames{"model.mps"});
}

TEST(ReplaceByCopy, HasTheFileHoldWhatTheOtherHolds) {
  const TemporaryFolder folder;
  const std::string text(300'000, 'x');
  WriteWholeFile(folder.File("from"), text);
  for (const char* name : {"there", "missing"}) {
    if (name[0] == 't') WriteWholeFile(folder.File(name), "old");
    ReplaceByCopy(folder.File("from"), folder.File(name));
    EXPECT_EQ(ReadWholeFile(folder.File(name)), text);
  }
  EXPECT_EQ(NamesIn(folder), (FileNames{"from", "there", "missing"}));
}

TEST(IsTemporaryName, IsTrueOfWhatTheNextSaveClears) {
  for (const char* const name :
       {".m.mps.quarvel-0~", "a/.m.quarvel-12~", ".quarvel-a.quarvel-3~"}) {
    EXPECT_TRUE(IsTemporaryName(name)) << name;
  }
  for (const char* const name :
       {"m.mps.quarvel-0~", ".m.mps.quarvel-~", ".m.mps.quarvel-0", ".m.mps~", ""}) {
    EXPECT_FALSE(IsTemporaryName(name)) << name;
  }
}

TEST(IsUntouchedCopy, IsFalseOfOtherFilesAndOfACopyThatWasWrittenTo) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  const std::string copy = folder.File("copy");
  const auto is_copy = [&](const std::string& name) {
    const auto stamp = StampUnder(name);
    return stamp && IsUntouchedCopy(*stamp);
  };
  WriteWholeFile(path, "text");
  EXPECT_FALSE(is_copy(path));
  ASSERT_TRUE(CopyBeside(path, copy)->TakeName(copy));
  EXPECT_TRUE(is_copy(copy));
  WriteWholeFile(copy, "text");
  EXPECT_FALSE(is_copy(copy));
}

TEST(RenameToFree, ReplacesNothing) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("a"), "a");
  WriteWholeFile(folder.File("b"), "b");
  EXPECT_FALSE(RenameToFree(folder.File("a"), folder.File("b")));
  EXPECT_TRUE(RenameToFree(folder.File("a"), folder.File("c")));
  EXPECT_EQ(ReadWholeFile(folder.File("b")), "b");
  EXPECT_EQ(ReadWholeFile(folder.File("c")), "a");
  EXPECT_EQ(FailureOf([&] { RenameToFree(folder.File("a"), folder.File("d")); }), 53);
}

TEST(LastBytes, AreThoseAtTheEnd) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("a"), "0123456789");
  EXPECT_EQ(LastBytes(folder.File("a"), 3), "789");
  EXPECT_EQ(LastBytes(folder.File("a"), 30), "0123456789");
  EXPECT_EQ(LastBytes(folder.File("a"), 0), "");
}

}  // namespace
}  // namespace quarvel::platform
