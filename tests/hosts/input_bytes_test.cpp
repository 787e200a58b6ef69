#include "hosts/input_bytes.h"

#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/packing/file_bytes.h"
#include "hosts/packing/packing.h"
#include "platform/automation_error.h"
#include "tests/support/given_bytes.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

constexpr std::string_view kTiny =
    "ROWS\n N COST\n L LIM\nCOLUMNS\n X COST 1 LIM 2\nRHS\n RHS LIM 4\nENDATA\n";

// The same packed by the four programs, in hexadecimal.
constexpr std::string_view kGzip =
    "1f8b08000000000002030bf20f0fe652f05370f60f0ee152f051f0f1f4e572f6f709f5f5030a478085150c41"
    "a20a465c411e40312001e69a70b9fab9388638720100b67b008742000000";
constexpr std::string_view kBzip2 =
    "425a683931415926535934283f3b00001ade000010400034002e679ec0200050a069a19193106527a26f547a"
    "989b53d4dece6f756a8d4af5fb62e561982e202350220fcd1982bab5267ca38d08cb2fc5dc914e14240d0a0f"
    "cec0";
constexpr std::string_view kXz =
    "fd377a585a000004e6d6b4460200210116000000742fe5a3e0004100395d002913c734c745fa3396e20443cb"
    "5738e80873dd457dad313603a068d4a24a1482d8dbbec4d68e8849600500acb7bef0153e48b862c47bc5e2c6"
    "00000000fc3974dfc4cbe7e400015542863c987f1fb6f37d010000000004595a";
constexpr std::string_view kZstd =
    "28b52ffd2442110200524f57530a204e20434f53540a204c204c494d0a434f4c554d4e530a205820434f5354"
    "2031204c494d20320a5248530a20524853204c494d20340a454e444154410a3dcb8745";

std::string FromHex(std::string_view hex) {
  std::string bytes;
  for (std::size_t at = 0; at + 1 < hex.size(); at += 2) {
    bytes += static_cast<char>(std::stoi(std::string(hex.substr(at, 2)), nullptr, 16));
  }
  return bytes;
}

struct Packed {
  const char* name;
  const char* suffix;
  std::string bytes;
};

const std::vector<Packed>& AllPacked() {
  static const std::vector<Packed> all = {{"gzip", "gz", FromHex(kGzip)},
                                          {"bzip2", "bz2", FromHex(kBzip2)},
                                          {"xz", "xz", FromHex(kXz)},
                                          {"zstd", "zst", FromHex(kZstd)}};
  return all;
}

std::string UnpackedText(const std::string& bytes, std::size_t at_once = 1000,
                         std::size_t capacity = 1000) {
  const auto source = Unpacked(std::make_unique<testing::GivenBytes>(bytes, at_once));
  std::string text;
  std::string buffer(capacity, ' ');
  for (;;) {
    const std::size_t count = source->Read(buffer.data(), capacity);
    if (count == 0) return text;
    text.append(buffer, 0, count);
  }
}

// What is raised; empty when nothing is.
std::string FailureOf(const std::string& bytes) {
  try {
    UnpackedText(bytes);
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 57);
    return error.description();
  }
  return "";
}

bool IsBuiltIn(const Packed& packed) {
  return FailureOf(packed.bytes).find("built without") == std::string::npos;
}

class PackedInput : public ::testing::TestWithParam<std::size_t> {
 protected:
  void SetUp() override {
#ifdef _WIN32
    // Debian has these libraries for Windows in part only.
    if (IsBuiltIn(packed())) return;
    const HostFolder folder;
    const Outcome run = RunQuarvel({"info", folder.Write("a.mps", packed().bytes)});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(
        run.err,
        folder.Expand(std::string("quarvel: @a.mps: this program was built without ") +
                      packed().name + ": unpack the file first\nquarvel: @a.mps was not read\n"));
    GTEST_SKIP() << "this build has no library for " << packed().name;
#else
    ASSERT_TRUE(IsBuiltIn(packed())) << "built without the library for " << packed().name;
#endif
  }
  const Packed& packed() const { return AllPacked()[GetParam()]; }
};

TEST_P(PackedInput, AreUnpackedInPiecesOfAnySize) {
  for (const std::size_t at_once : {1U, 7U, 1000U}) {
    for (const std::size_t capacity : {1U, 10U, 1000U}) {
      EXPECT_EQ(UnpackedText(packed().bytes, at_once, capacity), kTiny) << at_once << capacity;
    }
  }
}

TEST_P(PackedInput, MayBeOfSeveralPartsOneBehindTheOther) {
  const std::string twice = std::string(kTiny) + std::string(kTiny);
  EXPECT_EQ(UnpackedText(packed().bytes + packed().bytes), twice);
  EXPECT_EQ(UnpackedText(packed().bytes + packed().bytes, 1, 1), twice);
}

TEST_P(PackedInput, CutOffAnywhereAreTold) {
  for (std::size_t size = 6; size < packed().bytes.size(); ++size) {
    EXPECT_EQ(FailureOf(packed().bytes.substr(0, size)),
              std::string("the ") + packed().name + " data end too early: the file may be cut off")
        << size;
  }
}

TEST_P(PackedInput, DamagedAreTold) {
  // In the middle of the data; for bzip2 in the sum of its first block, as other damage may look like
  // data that go on.
  const bool has_sum_in_front = packed().bytes.starts_with("BZh");
  std::string damaged = packed().bytes;
  const std::size_t first = has_sum_in_front ? 10 : damaged.size() / 2;
  for (std::size_t at = first; at < first + 4; ++at) damaged[at] = static_cast<char>(~damaged[at]);
  EXPECT_EQ(FailureOf(damaged), std::string("the ") + packed().name + " data are damaged");
}

TEST_P(PackedInput, AreReadByCommandsUnderAnyName) {
  const HostFolder folder;
  for (const std::string& name : {std::string("a.mps.") + packed().suffix, std::string("a.mps")}) {
    const Outcome run = RunQuarvel({"info", folder.Write(name, packed().bytes)});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("2 rows, 1 column, 2 elements"), std::string::npos) << run.out;
    EXPECT_EQ(run.err, "");
  }
}

TEST_P(PackedInput, ThatFailEndTheRead) {
  const HostFolder folder;
  const std::string path =
      folder.Write("a.mps", packed().bytes.substr(0, packed().bytes.size() - 3));
  const Outcome run = RunQuarvel({"info", path, "--on-error", "continue"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, folder.Expand(std::string("quarvel: @a.mps: the ") + packed().name +
                                   " data end too early: the file may be cut off\n"
                                   "quarvel: @a.mps was not read\n"));
}

INSTANTIATE_TEST_SUITE_P(All, PackedInput, ::testing::Range(std::size_t{0}, std::size_t{4}),
                         [](const auto& tested) { return AllPacked()[tested.param].name; });

TEST(InputBytes, StayAsTheyAreOtherwise) {
  for (const std::string& text : {std::string(kTiny), std::string("B"), std::string()}) {
    EXPECT_EQ(UnpackedText(text), text);
    EXPECT_EQ(UnpackedText(text, 1, 2), text);
  }
}

TEST(InputBytes, OfOtherPackersAreRefused) {
  EXPECT_EQ(FailureOf("PK\x03\x04 and more"), "this is a zip archive: unpack it first");
  EXPECT_EQ(FailureOf("\x1F\x9D and more"),
            "this was packed by compress: unpack it first (gzip -d does)");
}

TEST(InputBytes, OfAnArchiveAreNoModel) {
  std::string tar(512, '\0');
  tar.replace(0, 8, "diet.mps");
  tar.replace(257, 5, "ustar");
  EXPECT_EQ(FailureOf(tar + std::string(kTiny)),
            "this is a tar archive: unpack it first (tar -xf does)");
}

#ifdef QUARVEL_HAS_ZLIB
TEST(InputBytes, ThatArePackedTwiceAreTold) {
  class Kept : public platform::ByteSink {
   public:
    void Write(std::string_view bytes) override { text += bytes; }
    void Finish() override {}
    std::string text;
  };
  const auto pack = [](std::string_view bytes) {
    Kept kept;
    const auto packer = PackingOfSuffix("a.gz")->pack(kept);
    packer->Write(bytes);
    packer->Finish();
    return kept.text;
  };
  EXPECT_EQ(FailureOf(pack(pack(kTiny))),
            "this is packed twice, by gzip and within by gzip: unpack it once first");
  std::string tar(600, '\0');
  tar.replace(257, 5, "ustar");
  EXPECT_EQ(FailureOf(pack(tar)), "this is a tar archive: unpack it first (tar -xf does)");
}
#endif

TEST(InputBytes, OfStandardInputAreReadOnce) {
  const Outcome run = RunQuarvel({"info", "-"}, std::string(kTiny));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("2 rows, 1 column, 2 elements"), std::string::npos) << run.out;
  const Outcome wrong = RunQuarvel({"info", "-"}, "ROWS\n Q R1\nENDATA\n");
  EXPECT_EQ(wrong.status, 1);
  EXPECT_TRUE(wrong.err.starts_with("quarvel: standard input: line 2: no type of a row: Q\n"))
      << wrong.err;
}

TEST(InputBytes, OfStandardInputHaveOneNameInTextAndOneInJson) {
  const HostFolder folder;
  const std::string other = folder.Write("a.mps", kTiny);
  const std::string point = folder.Write("p", "X=1\n");
  const std::vector<std::vector<std::string>> commands = {
      {"info", "-"},       {"info", "-", other}, {"stats", "-"},
      {"check", "-"},      {"dialects", "-"},    {"diff", "-", other},
      {"why", "-", point}, {"why", other, "-"},  {"explain", "-", "X"}};
  for (std::vector<std::string> words : commands) {
    const std::string input(words.back() == "-" && words.size() == 3 ? "X=1\n" : kTiny);
    const Outcome text = RunQuarvel(words, input);
    if (words[1] == "-" && words[0] != "explain") {
      EXPECT_NE(text.out.find("standard input"), std::string::npos) << text.out;
    }
    words.emplace_back("--json");
    const std::string json = RunQuarvel(words, input).out;
    EXPECT_NE(json.find(":\"-\""), std::string::npos) << json;
    EXPECT_EQ(json.find("standard input"), std::string::npos) << json;
  }
  const Outcome convert =
      RunQuarvel({"convert", "-", folder.Path("b.mps"), "--json"}, std::string(kTiny));
  EXPECT_TRUE(convert.out.starts_with("{\"input\":\"-\",")) << convert.out;
  const Outcome failed = RunQuarvel({"info", "-"}, "ROWS\n Q R1\nENDATA\n");
  EXPECT_NE(failed.err.find("\nquarvel: standard input was not read"), std::string::npos);
}

TEST(InputBytes, OfStandardInputAreNotCommandsToo) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"edit", "-", folder.Path("b.mps")}, std::string(kTiny));
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with("quarvel: edit reads its commands from standard input"))
      << run.err;
  const Outcome good =
      RunQuarvel({"edit", "-", folder.Path("b.mps"), "-c", "set-bound X UP 7"}, std::string(kTiny));
  EXPECT_EQ(good.status, 0) << good.err;
  EXPECT_NE(folder.Read("b.mps").find("UP BOUND"), std::string::npos);
}

}  // namespace
}  // namespace quarvel::hosts
