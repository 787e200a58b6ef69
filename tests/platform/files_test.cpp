#include "platform/files.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/platform/file_failures.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;

fs::path Native(const std::string& utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string ReadInPieces(InputFile& file, std::size_t piece_size) {
  std::string content;
  std::vector<char> piece(piece_size);
  while (const std::size_t count = file.Read(piece.data(), piece.size())) {
    EXPECT_LE(count, piece_size);
    content.append(piece.data(), count);
  }
  return content;
}

// Bytes of every value in a pattern that repeats at no power of two.
std::string Noise(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>((i * 31 + i / 251) & 0xFF);
  return bytes;
}

TEST(InputFile, ReadsAllBytesInPiecesOfAnySize) {
  const TemporaryFolder folder;
  const std::string bytes = Noise(3'000'000);
  WriteWholeFile(folder.File("noise"), bytes);
  for (const std::size_t piece_size : {std::size_t{7919}, std::size_t{65536}, bytes.size() + 1}) {
    InputFile file(folder.File("noise"));
    EXPECT_EQ(file.size(), bytes.size());
    EXPECT_TRUE(ReadInPieces(file, piece_size) == bytes) << piece_size;
  }
}

TEST(InputFile, StaysAtTheEndOnceReached) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("two"), "ab");
  InputFile file(folder.File("two"));
  EXPECT_EQ(ReadInPieces(file, 10), "ab");
  char c = 0;
  EXPECT_EQ(file.Read(&c, 1), 0U);
}

TEST(InputFile, ReadsAnEmptyFileAsItsEnd) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("empty"), "");
  InputFile file(folder.File("empty"));
  EXPECT_EQ(file.size(), 0U);
  EXPECT_EQ(ReadInPieces(file, 16), "");
}

TEST(InputFile, CanBeOpenedTwiceAtATime) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("shared"), "text");
  InputFile first(folder.File("shared"));
  InputFile second(folder.File("shared"));
  EXPECT_EQ(ReadInPieces(first, 8), "text");
  EXPECT_EQ(ReadInPieces(second, 8), "text");
}

TEST(InputFile, ReleasesItsFileWhenMovedOver) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("a"), "one");
  WriteWholeFile(folder.File("b"), "two");
  InputFile file(folder.File("a"));
  file = InputFile(folder.File("b"));
  EXPECT_EQ(ReadInPieces(file, 8), "two");
  RemoveFile(folder.File("a"));
  EXPECT_FALSE(FileExists(folder.File("a")));
}

TEST(Files, OpeningSaysWhatIsWrongWithTheName) {
  const TemporaryFolder folder;
  EXPECT_EQ(OpeningFailure(folder.File("missing.mps")), 53);
  EXPECT_EQ(OpeningFailure(folder.File("missing/model.mps")), 76);
  EXPECT_EQ(OpeningFailure(folder.path()), 75);
  EXPECT_EQ(OpeningFailure(""), 75);
  EXPECT_EQ(OpeningFailure(folder.File(std::string("a\0b", 3))), 52);
}

TEST(Files, CreatingSaysWhatIsWrongWithTheName) {
  const TemporaryFolder folder;
  EXPECT_EQ(CreatingFailure(folder.File("missing/model.mps")), 76);
  EXPECT_EQ(CreatingFailure(folder.path()), 75);
  EXPECT_EQ(CreatingFailure(""), 75);
  EXPECT_EQ(CreatingFailure(folder.File(std::string("a\0b", 3))), 52);
  EXPECT_TRUE(fs::is_empty(Native(folder.path())));
}

TEST(Files, AFileIsNoFolder) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "text");
  EXPECT_EQ(OpeningFailure(folder.File("file/model.mps")), 76);
  EXPECT_EQ(CreatingFailure(folder.File("file/model.mps")), 76);
}

TEST(OutputFile, WritesPiecesSmallAndLargeInOrder) {
  const TemporaryFolder folder;
  const std::string large = Noise(1'000'000);
  std::string expected;
  OutputFile file(folder.File("out"));
  for (const std::size_t size : {3U, 100'000U, 65'536U, 131'072U, 0U, 400'000U, 1U, 70'000U}) {
    file.Write(std::string_view(large).substr(size / 7, size));
    expected += large.substr(size / 7, size);
  }
  file.Close();
  EXPECT_TRUE(ReadWholeFile(folder.File("out")) == expected);
}

TEST(OutputFile, EmptiesAnExistingFile) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("out"), "a longer old text");
  OutputFile file(folder.File("out"));
  file.Write("new");
  file.Close();
  EXPECT_EQ(ReadWholeFile(folder.File("out")), "new");
}

TEST(OutputFile, FlushMakesTheBytesSeenByOthers) {
  const TemporaryFolder folder;
  OutputFile file(folder.File("out"));
  file.Write("seen");
  EXPECT_EQ(FileLength(folder.File("out")), 0U);
  file.Flush();
  InputFile reader(folder.File("out"));
  EXPECT_EQ(ReadInPieces(reader, 8), "seen");
}

TEST(OutputFile, WritesWhatIsLeftWhenItGoesAway) {
  const TemporaryFolder folder;
  { OutputFile(folder.File("out")).Write("left"); }
  EXPECT_EQ(ReadWholeFile(folder.File("out")), "left");
}

TEST(OutputFile, WritesWhatIsLeftWhenMovedOver) {
  const TemporaryFolder folder;
  OutputFile file(folder.File("a"));
  file.Write("first");
  file = OutputFile(folder.File("b"));
  file.Write("second");
  file.Close();
  EXPECT_EQ(ReadWholeFile(folder.File("a")), "first");
  EXPECT_EQ(ReadWholeFile(folder.File("b")), "second");
}

TEST(OutputFile, MovesWithItsBuffer) {
  const TemporaryFolder folder;
  OutputFile first(folder.File("out"));
  first.Write("one ");
  OutputFile second(std::move(first));
  second.Write("two");
  second.Close();
  EXPECT_EQ(ReadWholeFile(folder.File("out")), "one two");
}

TEST(OutputFile, ClosesOnceAndTakesNothingAfterwards) {
  const TemporaryFolder folder;
  OutputFile file(folder.File("out"));
  file.Close();
  EXPECT_EQ(FailureOf([&] { file.Close(); }), 0);
  EXPECT_EQ(FailureOf([&] { file.Write("late"); }), 52);
  EXPECT_EQ(ReadWholeFile(folder.File("out")), "");
}

#ifdef _WIN32
TEST(OutputFile, KeepsOtherWritersAwayWhileOpen) {
  const TemporaryFolder folder;
  OutputFile file(folder.File("out"));
  EXPECT_EQ(CreatingFailure(folder.File("out")), 70);
  EXPECT_EQ(FailureOf([&] { RemoveFile(folder.File("out")); }), 70);
  file.Close();
  EXPECT_EQ(CreatingFailure(folder.File("out")), 0);
}
#endif

TEST(Files, NamesBeyondAsciiAndWithBlanksAreFound) {
  const TemporaryFolder folder;
  const std::string name = folder.File("mod\u00E8le \u6A21\u578B \U0001F600.mps");
  OutputFile file(name);
  file.Write("NAME");
  file.Close();
  EXPECT_TRUE(fs::exists(Native(name)));
  EXPECT_TRUE(FileExists(name));
  EXPECT_EQ(FileLength(name), 4U);
  RemoveFile(name);
  EXPECT_FALSE(fs::exists(Native(name)));
}

TEST(Files, PathsBeyond260CharactersWork) {
  const TemporaryFolder folder;
  std::string deep = folder.path();
  for (int level = 0; level < 4; ++level) deep += "/" + std::string(90, 'd');
#ifdef _WIN32
  fs::path native = LR"(\\?\)" + Native(deep).make_preferred().wstring();
#else
  fs::path native = Native(deep);
#endif
  fs::create_directories(native);
  const std::string name = deep + "/model.mps";
  WriteWholeFile(folder.File("source"), "NAME");
  CopyFileContents(folder.File("source"), name);
  EXPECT_EQ(FileLength(name), 4U);
  RemoveFile(name);
  EXPECT_FALSE(FileExists(name));
  EXPECT_EQ(OpeningFailure(name), 53);
  // One by one: walking such folders does not always come to an end under Wine.
  for (int level = 0; level < 4; ++level, native = native.parent_path()) fs::remove(native);
}

TEST(FileExists, IsTrueForFilesOnly) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "");
  EXPECT_TRUE(FileExists(folder.File("file")));
  EXPECT_FALSE(FileExists(folder.File("missing")));
  EXPECT_FALSE(FileExists(folder.path()));
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists(folder.File(std::string("file\0", 5))));
}

TEST(FileLength, RaisesWhereThereIsNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(FailureOf([&] { FileLength(folder.File("missing")); }), 53);
  EXPECT_EQ(FailureOf([&] { FileLength(folder.File("missing/file")); }), 76);
  EXPECT_EQ(FailureOf([&] { FileLength(folder.path()); }), 75);
  EXPECT_EQ(FailureOf([&] { FileLength(""); }), 75);
}

TEST(CopyFileContents, ReplacesTheTarget) {
  const TemporaryFolder folder;
  const std::string bytes = Noise(500'000);
  WriteWholeFile(folder.File("from"), bytes);
  WriteWholeFile(folder.File("to"), Noise(600'000));
  CopyFileContents(folder.File("from"), folder.File("to"));
  EXPECT_TRUE(ReadWholeFile(folder.File("to")) == bytes);
}

TEST(CopyFileContents, LeavesTheTargetWhenTheSourceIsMissing) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("to"), "kept");
  EXPECT_EQ(FailureOf([&] { CopyFileContents(folder.File("missing"), folder.File("to")); }), 53);
  EXPECT_EQ(ReadWholeFile(folder.File("to")), "kept");
}

TEST(CopyFileContents, RefusesToCopyAFileToItself) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "kept");
  const std::string other_way = folder.path() + "/./file";
  EXPECT_EQ(FailureOf([&] { CopyFileContents(folder.File("file"), other_way); }), 70);
  EXPECT_EQ(ReadWholeFile(folder.File("file")), "kept");
}

TEST(RemoveFile, RaisesWhereThereIsNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(FailureOf([&] { RemoveFile(folder.File("missing")); }), 53);
  EXPECT_EQ(FailureOf([&] { RemoveFile(folder.File("missing/file")); }), 76);
  EXPECT_EQ(FailureOf([&] { RemoveFile(folder.path()); }), 75);
  EXPECT_EQ(FailureOf([&] { RemoveFile(""); }), 75);
  EXPECT_TRUE(fs::exists(Native(folder.path())));
}

TEST(IsSameFile, SeesThroughTheWayAFileIsNamed) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("a"), "same");
  WriteWholeFile(folder.File("b"), "same");
  fs::create_hard_link(Native(folder.File("a")), Native(folder.File("link")));
  EXPECT_TRUE(IsSameFile(folder.File("a"), folder.path() + "/./a"));
  EXPECT_TRUE(IsSameFile(folder.File("a"), folder.File("link")));
  EXPECT_FALSE(IsSameFile(folder.File("a"), folder.File("b")));
  EXPECT_FALSE(IsSameFile(folder.File("a"), folder.File("missing")));
  EXPECT_FALSE(IsSameFile(folder.File("missing"), folder.File("missing")));
}

TEST(FolderOf, IsThePathWithoutItsLastName) {
  EXPECT_EQ(FolderOf("a/b/model.mps"), "a/b");
  EXPECT_EQ(FolderOf("/model.mps"), "/");
  EXPECT_EQ(FolderOf("model.mps"), ".");
  EXPECT_EQ(FolderOf(""), ".");
#ifdef _WIN32
  EXPECT_EQ(FolderOf("C:\\a\\model.mps"), "C:\\a");
  EXPECT_EQ(FolderOf("C:\\model.mps"), "C:\\");
  EXPECT_EQ(FolderOf("C:model.mps"), "C:");
  EXPECT_EQ(FolderOf("\\\\host\\share\\model.mps"), "\\\\host\\share");
#endif
}

TEST(ComponentFolder, HoldsTheRunningProgram) {
  const fs::path folder = Native(ComponentFolder());
  EXPECT_TRUE(folder.is_absolute());
  EXPECT_TRUE(folder.has_filename()) << "a separator at the end";
#ifdef _WIN32
  EXPECT_TRUE(fs::is_directory(folder));
#else
  EXPECT_TRUE(fs::equivalent(folder, fs::read_symlink("/proc/self/exe").parent_path()));
#endif
}

}  // namespace
}  // namespace quarvel::platform
