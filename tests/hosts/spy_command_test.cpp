#include <algorithm>
#include <filesystem>
#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include "hosts/png_file.h"
#include "tests/support/run_quarvel.h"
#include "text/cell_width.h"

namespace quarvel {
namespace {

TEST(Spy, ShowsTheMatrixInAPipe) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"spy", folder.Example("transport.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            folder.Expand("@transport.mps: 6 rows, 6 columns, 18 elements\n"
                          "      columns 0 to 5\n"
                          "     \u250C\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500"
                          "\u2500\u2500\u2510\n"
                          "   0 \u2502\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF"
                          "\u28FF\u28FF\u2502\n"
                          "     \u2502\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u2800\u2800\u2800\u2800"
                          "\u2800\u2800\u2502\n"
                          "     \u2502\u2800\u2800\u2800\u2800\u2800\u2800\u28FF\u28FF\u28FF\u28FF"
                          "\u28FF\u28FF\u2502\n"
                          "rows \u2502\u28FF\u28FF\u2800\u2800\u2800\u2800\u28FF\u28FF\u2800\u2800"
                          "\u2800\u2800\u2502\n"
                          "     \u2502\u2800\u2800\u28FF\u28FF\u2800\u2800\u2800\u2800\u28FF\u28FF"
                          "\u2800\u2800\u2502\n"
                          "   5 \u2502\u2800\u2800\u2800\u2800\u28FF\u28FF\u2800\u2800\u2800\u2800"
                          "\u28FF\u28FF\u2502\n"
                          "     \u2514\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500"
                          "\u2500\u2500\u2518\n"));
}

TEST(Spy, WritesAFileByItsSuffix) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  const Outcome svg = RunQuarvel({"spy", model, "-o", folder.Path("a.svg")});
  EXPECT_EQ(svg.status, 0);
  EXPECT_EQ(svg.out, folder.Expand("@a.svg: 5 rows, 5 columns, 25 elements\n"));
  EXPECT_TRUE(folder.Read("a.svg").starts_with("<svg "));
  EXPECT_EQ(RunQuarvel({"spy", model, "--output=" + folder.Path("a.png"), "--width", "50"}).status,
            0);
  EXPECT_TRUE(folder.Read("a.png").starts_with("\x89PNG"));
}

TEST(Spy, MakesAFileAsWideAsAskedOrSaysWhyNot) {
  const HostFolder folder;
  const std::string model = folder.Example("transport.mps");
  const std::string picture = folder.Path("a.svg");
  const Outcome wide = RunQuarvel({"spy", model, "-o", picture, "--width", "600"});
  EXPECT_EQ(wide.err, "");
  EXPECT_NE(folder.Read("a.svg").find(" width=\"600\""), std::string::npos);
  const Outcome narrow =
      RunQuarvel({"spy", model, "-o", picture, "--width", "50", "--height", "20"});
  EXPECT_EQ(narrow.status, 0);
  EXPECT_EQ(narrow.err,
            folder.Expand("quarvel: @a.svg is 90 pixels wide, not 50: the numbers beside "
                          "the matrix leave no less\n"
                          "quarvel: @a.svg is 58 pixels high, not 20: the numbers beside "
                          "the matrix leave no less\n"));
  EXPECT_NE(folder.Read("a.svg").find(" width=\"90\" height=\"58\""), std::string::npos);
}

TEST(Spy, TakesSizesOfTheWholePictureAndSaysWhereThereIsNoRoom) {
  const HostFolder folder;
  const std::string model = folder.Example("transport.mps");
  const Outcome narrow = RunQuarvel({"spy", model, "--width", "1", "--height", "1"});
  EXPECT_EQ(
      narrow.err,
      "quarvel: the picture is 20 characters wide, not 1: the numbers beside the matrix leave "
      "no less\nquarvel: the picture is 4 lines high, not 1: the numbers beside the matrix "
      "leave no less\n");
  const Outcome fitting =
      RunQuarvel({"spy", model, "--width", "20", "--height", "5", "--color", "always"});
  EXPECT_EQ(fitting.err, "");
  EXPECT_EQ(std::count(fitting.out.begin(), fitting.out.end(), '\n'), 6);
}

TEST(Spy, TakesSuffixesInEitherCase) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"spy", folder.Example("diet.mps"), "-o", folder.Path("A.SVG")}).status, 0);
  EXPECT_TRUE(folder.Read("A.SVG").starts_with("<svg "));
}

TEST(Spy, SaysOfAFolderThatItIsOne) {
  const HostFolder folder;
  std::filesystem::create_directory(ToPath(folder.Path("p.svg")));
  EXPECT_EQ(RunQuarvel({"spy", folder.Example("diet.mps"), "-o", folder.Path("p.svg")}).err,
            folder.Expand("quarvel: @p.svg: it is a folder, not a file\n"));
}

TEST(Spy, RefusesOtherFiles) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  const Outcome run = RunQuarvel({"spy", model, "-o", folder.Path("a.jpg")});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with(
      folder.Expand("quarvel: spy writes files that end in .svg or .png, not @a.jpg\n")));
  EXPECT_FALSE(folder.Has("a.jpg"));
  EXPECT_EQ(RunQuarvel({"spy", model, "-o", folder.Path("no/a.svg")}).status, 1);
  const std::string odd = folder.Write("model.svg", kSmallModel);
  EXPECT_EQ(RunQuarvel({"spy", odd, "-o", odd}).status, 2);
  EXPECT_EQ(folder.Read("model.svg"), kSmallModel);
}

TEST(Spy, TakesSizes) {
  const HostFolder folder;
  const std::string model = folder.Example("transport.mps");
  const std::string out = RunQuarvel({"spy", model, "--width", "20", "--height", "1"}).out;
  EXPECT_LT(out.size(), RunQuarvel({"spy", model}).out.size());
  for (const char* const size : {"0", "-3", "10001", "x", ""}) {
    EXPECT_EQ(RunQuarvel({"spy", model, "--width", size}).status, 2) << size;
    EXPECT_EQ(RunQuarvel({"spy", model, std::string("--height=") + size}).status, 2) << size;
  }
}

// The most cells of a line, but for the path and the words below the picture.
std::size_t WidestLine(const std::string& text) {
  std::istringstream lines(text);
  std::size_t widest = 0;
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) {
    if (!line.starts_with("A dot")) widest = std::max(widest, text::CellCount(line));
  }
  return widest;
}

std::int64_t LineCount(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

// So many columns of one element, in rows that follow one another round and round.
std::string WideModel(int rows, int columns) {
  std::string text = "NAME WIDE\nROWS\n";
  for (int r = 0; r < rows; ++r) text += " L R" + std::to_string(r) + '\n';
  text += "COLUMNS\n";
  for (int c = 0; c < columns; ++c) {
    text += " C" + std::to_string(c) + " R" + std::to_string(c % rows) + " 1\n";
  }
  return text + "ENDATA\n";
}

TEST(Spy, FillsTheTerminal) {
  const HostFolder folder;
  const std::string model = folder.Write("wide.mps", WideModel(300, 3000));
  for (const std::size_t width : {std::size_t{40}, std::size_t{80}, std::size_t{200}}) {
    const hosts::Screen screen = {.is_terminal = true, .width = width, .height = 24};
    const Outcome run = RunQuarvelOn(screen, {"spy", model});
    EXPECT_EQ(WidestLine(run.out), width);
    EXPECT_LT(LineCount(run.out), 24);
    EXPECT_EQ(run.out.find('\x1B'), std::string::npos);
  }
  EXPECT_EQ(WidestLine(RunQuarvelOn({.is_terminal = true}, {"spy", model}).out), 80u);
}

TEST(Spy, DrawsInColorsWhereThereAreSome) {
  const HostFolder folder;
  const std::string model = folder.Write("wide.mps", WideModel(300, 5000));
  const hosts::Screen screen = {.is_terminal = true, .width = 80, .takes_colors = true};
  const auto is_colored = [](const Outcome& run) {
    return run.out.find("\x1B[") != std::string::npos;
  };
  EXPECT_TRUE(is_colored(RunQuarvelOn(screen, {"spy", model})));
  EXPECT_FALSE(is_colored(RunQuarvelOn(screen, {"spy", model, "--color=never"})));
  EXPECT_FALSE(is_colored(RunQuarvel({"spy", model})));
  EXPECT_TRUE(is_colored(RunQuarvel({"spy", model, "--color=always"})));
}

TEST(Spy, DrawsMatricesOfAnyShape) {
  const HostFolder folder;
  for (const auto& [rows, columns] : {std::pair(1, 1), {1, 40000}, {40000, 1}, {3, 2000}}) {
    const std::string model = folder.Write("m.mps", WideModel(rows, std::max(columns, rows)));
    const Outcome run = RunQuarvel({"spy", model});
    EXPECT_EQ(run.status, 0) << rows << ' ' << columns;
    EXPECT_LE(WidestLine(run.out), 80u) << run.out;
    EXPECT_LE(LineCount(run.out), 40) << run.out;
    for (const char* const name : {"m.svg", "m.png"}) {
      if (std::string_view(name) == "m.png" && !hosts::CanWritePng()) continue;
      EXPECT_EQ(RunQuarvel({"spy", model, "-o", folder.Path(name)}).status, 0);
      EXPECT_LT(folder.Read(name).size(), 100000u);
      EXPECT_EQ(folder.Read(name).find("nan"), std::string::npos) << name;
    }
  }
}

TEST(Spy, DrawsNothingOfNoMatrix) {
  const HostFolder folder;
  const std::string model = folder.Write("e.mps", "NAME E\nROWS\n N R\nCOLUMNS\nENDATA\n");
  for (const std::string& name : {std::string(), folder.Path("e.svg")}) {
    std::vector<std::string> words = {"spy", model, "--on-error", "continue"};
    if (!name.empty()) words.insert(words.end(), {"-o", name});
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.ends_with(
        folder.Expand("@e.mps has no matrix to draw: 1 row, 0 columns, 0 elements\n")))
        << run.err;
    EXPECT_EQ(run.out, "");
  }
  EXPECT_FALSE(folder.Has("e.svg"));
}

TEST(Spy, ReadsStandardInput) {
  const Outcome run = RunQuarvel({"spy", "-"}, kSmallModel);
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(run.out.starts_with("standard input: 2 rows, 2 columns, 3 elements\n")) << run.out;
}

TEST(Spy, HasAHelpWithExamples) {
  const Outcome run = RunQuarvel({"spy", "--help"});
  EXPECT_NE(run.out.find("\n  quarvel spy "), std::string::npos);
  EXPECT_NE(run.out.find("-o, --output FILE"), std::string::npos);
}

}  // namespace
}  // namespace quarvel
