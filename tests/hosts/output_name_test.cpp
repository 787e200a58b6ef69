#include "hosts/output_name.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

TEST(OutputName, IsRefusedWhereItsSuffixSaysAnotherFormat) {
  for (const char* const path :
       {"a.mps", "a", "a.txt", "gz", "a.gz.mps", "dir.lp/a", "a.mps.bak"}) {
    EXPECT_EQ(ObjectionToOutput(path), "") << path;
  }
  EXPECT_EQ(ObjectionToOutput("a.mps.Zip"),
            "is no name for an MPS file: .Zip is another format; a name that ends in .mps is "
            "fine, packed in .mps.gz, .bz2, .xz or .zst");
  for (const char* const path :
       {"a.lp",      "a.png",    "a.svg", "a.PDF",    "a.jpg",  "a.docx", "a.tar",
        "a.tar.gz",  "a.tgz",    "a.rar", "a.mps.7z", "a.zstd", "a.bz",   "a.taz",
        "a.tbz",     "a.deb",    "a.rpm", "a.mp3",    "a.npy",  "a.o",    "a.mps.Z",
        "a.mps.lz4", "a.mps.br", "a.xml", "a.py"}) {
    EXPECT_NE(ObjectionToOutput(path), "") << path;
  }
}

TEST(OutputName, MaySayHowTheFileIsPacked) {
  EXPECT_EQ(ObjectionToOutput("a.mps.gz"), "");
  EXPECT_EQ(ObjectionToOutput("a.GZ"), "");
  EXPECT_EQ(ObjectionToOutput("a.lp.gz"),
            "is no name for an MPS file: .lp is another format; a name that ends in .mps is "
            "fine, packed in .mps.gz, .bz2, .xz or .zst");
}

TEST(OutputName, IsLookedAtBeforeAnythingIsWritten) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"convert", model, folder.Path("b.lp")},
        {"simplify", model, folder.Path("b.lp")},
        {"edit", model, folder.Path("b.lp"), "-c", "set-bound X UP 7"}}) {
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 2) << words[0];
    EXPECT_TRUE(run.err.starts_with(folder.Expand("quarvel: @b.lp is no name for an MPS file")))
        << run.err;
    EXPECT_FALSE(folder.Has("b.lp"));
  }
}

}  // namespace
}  // namespace quarvel::hosts
