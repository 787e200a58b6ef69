#include "hosts/packing/packing.h"

#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/output_name.h"
#include "hosts/packing/file_bytes.h"
#include "tests/support/given_bytes.h"
#include "tests/support/json_value.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

class KeptBytes : public platform::ByteSink {
 public:
  void Write(std::string_view bytes) override { kept += bytes; }
  void Finish() override { ++finished; }
  std::string kept;
  int finished = 0;
};

std::string UnpackedBytes(std::string packed) {
  const auto source = Unpacked(std::make_unique<testing::GivenBytes>(std::move(packed)));
  std::string text;
  char buffer[5000];
  while (const std::size_t count = source->Read(buffer, sizeof(buffer))) text.append(buffer, count);
  return text;
}

// Noise, which packs to more than it is, and then much of the same: together more than any packer takes at
// once.
std::string ManyBytes() {
  std::string bytes;
  std::uint32_t seed = 1;
  for (int i = 0; i < 1'000'000; ++i) {
    seed = seed * 1664525U + 1013904223U;
    bytes += static_cast<char>(seed >> 24U);
  }
  return bytes + std::string(300'000, 'X');
}

class PackedOutput : public ::testing::TestWithParam<const char*> {
 protected:
  // Null where this build has no library for it, which is then what commands say.
  const Packing& packing() const { return *PackingOfSuffix("a" + suffix()); }
  std::string suffix() const { return GetParam(); }
  HostFolder folder_;
};

TEST_P(PackedOutput, IsUnpackedToWhatItWas) {
  if (packing().pack == nullptr) GTEST_SKIP() << "built without " << packing().name;
  for (const std::string& bytes : {std::string(), std::string("A"), ManyBytes()}) {
    for (const std::size_t at_once : {std::size_t{1000}, std::size_t{2'000'000}}) {
      KeptBytes packed;
      const auto packer = packing().pack(packed);
      for (std::size_t at = 0; at < bytes.size(); at += at_once) {
        packer->Write(std::string_view(bytes).substr(at, at_once));
      }
      packer->Finish();
      EXPECT_EQ(packed.finished, 1);
      EXPECT_TRUE(packed.kept.starts_with(packing().first)) << bytes.size();
      EXPECT_TRUE(UnpackedBytes(packed.kept) == bytes) << bytes.size() << ' ' << at_once;
    }
  }
}

TEST_P(PackedOutput, IsWrittenByItsSuffixAndReadAgain) {
  const std::string model = folder_.Write("a.mps", kSmallModel);
  const std::string out = folder_.Path("b.mps" + suffix());
  const Outcome run = RunQuarvel({"convert", model, out});
  if (packing().pack == nullptr) {
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with("quarvel: " + out +
                                    " cannot be written: this program was built without " +
                                    std::string(packing().name) + "\n"))
        << run.err;
    return;
  }
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, out + ": written and verified: 2 rows, 2 columns, 3 coefficients equal\n");
  EXPECT_EQ(RunQuarvel({"convert", model, folder_.Path("plain.mps")}).status, 0);
  EXPECT_EQ(UnpackedBytes(folder_.Read("b.mps" + suffix())), folder_.Read("plain.mps"));
  EXPECT_EQ(RunQuarvel({"diff", model, out}).status, 0);
}

TEST_P(PackedOutput, StaysPackedWhereAFileOfAnotherNameIsWrittenInPlace) {
  if (packing().pack == nullptr) GTEST_SKIP() << "built without " << packing().name;
  const std::string model = folder_.Write("a.mps", kSmallModel);
  const std::string packed = folder_.Path("b.mps" + suffix());
  ASSERT_EQ(RunQuarvel({"convert", model, packed}).status, 0);
  const std::string bare = folder_.Write("bare.mps", folder_.Read("b.mps" + suffix()));
  const Outcome run = RunQuarvel({"edit", bare, bare, "-c", "set-bound X UP 7", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  const JsonValue story = JsonValue::Parse(run.out);
  EXPECT_EQ(story["packing"].text(), packing().name);
  EXPECT_EQ(story["inPlace"].text(), "true");
  EXPECT_EQ(story["receipt"]["whole"].text(), "true");
  EXPECT_TRUE(folder_.Read("bare.mps").starts_with(packing().first));
  EXPECT_NE(RunQuarvel({"columns", bare, "--csv"}).out.find("X,R,0,7,"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(EachWay, PackedOutput, ::testing::Values(".gz", ".bz2", ".xz", ".zst"),
                         [](const auto& suffix) { return std::string(suffix.param + 1); });

TEST(Packing, IsKnownByASuffixInAnyCase) {
  EXPECT_EQ(PackingOfSuffix("a.mps.GZ")->name, "gzip");
  EXPECT_EQ(PackingOfSuffix("a.mps"), nullptr);
  EXPECT_EQ(PackingOfSuffix("gz"), nullptr);
  EXPECT_EQ(PackingOfSuffix("a.zip"), nullptr);
  EXPECT_EQ(PackingOfBytes("PK\x03\x04")->name, "zip");
  EXPECT_EQ(PackingOfBytes("NAME"), nullptr);
  EXPECT_EQ(PackingOfBytes(""), nullptr);
}

}  // namespace
}  // namespace quarvel::hosts
