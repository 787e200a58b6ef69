#include "inspect/receipt.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "mps/read_file.h"
#include "tests/support/given_bytes.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::inspect {
namespace {

using Texts = std::vector<std::string>;

class ReceiptTest : public ::testing::Test {
 protected:
  // The receipt of kSmallModel for a file that holds `text`.
  Receipt Compare(const std::string& text, mps::FileLayout layout = mps::FileLayout::kFree,
                  const std::string& model = std::string(kSmallModel)) {
    const mps::FileFacts facts = mps::ReadFile(folder_.Write("a.mps", model), {}, store_).facts;
    Receipt receipt = ReceiptOf(store_, facts, layout);
    CompareWithFile(store_, facts, testing::BytesOf(folder_.Write("b.mps", text)), receipt);
    return receipt;
  }

  static std::string SmallWith(const std::string& from, const std::string& to) {
    std::string text(kSmallModel);
    return text.replace(text.find(from), from.size(), to);
  }

  HostFolder folder_;
  model::ModelStore store_;
};

TEST_F(ReceiptTest, IsWholeWhereAllComesBack) {
  const Receipt receipt = Compare(std::string(kSmallModel));
  EXPECT_TRUE(receipt.is_whole());
  EXPECT_EQ(receipt.equal_rows, 2);
  EXPECT_EQ(receipt.equal_columns, 2);
  EXPECT_EQ(receipt.equal_coefficients, 3);
}

TEST_F(ReceiptTest, NamesWhatNobodyExpected) {
  const struct {
    const char* from;
    const char* to;
    Texts unexpected;
    std::int64_t rows, columns, coefficients;  // that are equal
  } cases[] = {
      {"R2 8", "R2 9", {"1 difference: row-upper, row R2"}, 1, 2, 3},
      {" L R2",
       " E R2",
       {"1 difference: row-type, row R2", "1 difference: row-lower, row R2"},
       1,
       2,
       3},
      {"X 10", "X 11", {"1 difference: column-upper, column X"}, 2, 1, 3},
      {"-3.5", "3.5", {"1 difference: element-value, row R1, column Y"}, 2, 2, 2},
      {" Y R1 -3.5\n", "", {"1 difference: column-went, column Y"}, 2, 1, 2},
      {" R2 2", "", {"1 difference: element-went, row R2, column X"}, 2, 2, 2},
      {" Y R1 -3.5\n",
       " Y R1 -3.5 R2 1\n",
       {"1 difference: element-came, row R2, column Y"},
       2,
       2,
       3},
      {"SMALL", "OTHER", {"1 difference: model-name"}, 2, 2, 3},
      {" N R1\n",
       " L R1\n",
       {"1 difference: row-type, row R1", "1 difference: row-upper, row R1", "another objective"},
       1,
       2,
       3},
  };
  for (const auto& c : cases) {
    const Receipt receipt = Compare(SmallWith(c.from, c.to));
    EXPECT_FALSE(receipt.is_whole()) << c.to;
    EXPECT_EQ(receipt.unexpected, c.unexpected) << c.to;
    EXPECT_EQ(receipt.equal_rows, c.rows) << c.to;
    EXPECT_EQ(receipt.equal_columns, c.columns) << c.to;
    EXPECT_EQ(receipt.equal_coefficients, c.coefficients) << c.to;
  }
}

// An empty row that the component's file leaves out, and a value that it rounds.
TEST_F(ReceiptTest, ExpectsWhatTheLayoutLoses) {
  const std::string model =
      "ROWS\n N R1\n L R2\n L EMPTY\nCOLUMNS\n X R1 1 R2 0.12345678912345\nENDATA\n";
  const std::string written = "ROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R2 .1234567891\nENDATA\n";
  const Receipt fixed = Compare(written, mps::FileLayout::kFixed, model);
  EXPECT_EQ(fixed.unexpected, Texts());
  EXPECT_FALSE(fixed.is_whole());
  EXPECT_EQ(fixed.equal_rows, 2);
  EXPECT_EQ(fixed.equal_coefficients, 1);
  EXPECT_EQ(fixed.losses.CountOf(mps::LossKind::kEmptyRow), 1);
  const Receipt free = Compare(written, mps::FileLayout::kFree, model);
  EXPECT_EQ(free.unexpected, (Texts{"1 difference: row-went, row EMPTY",
                                    "1 difference: element-value, row R2, column X"}));
}

TEST_F(ReceiptTest, CountsCoefficientsThatWentWithTheirRow) {
  const Receipt receipt = Compare("ROWS\n N R1\nCOLUMNS\n X R1 1\n Y R1 -3.5\nENDATA\n");
  EXPECT_EQ(receipt.equal_rows, 1);
  EXPECT_EQ(receipt.equal_coefficients, 2);
}

TEST_F(ReceiptTest, SaysWhenTheFileCannotBeRead) {
  model::ModelStore store;
  Receipt receipt;
  const std::string path = folder_.Write("gone.mps", "");
  CompareWithFile(store, {}, testing::BytesOf(path), receipt);
  // Nothing was to be written, and nothing is there.
  EXPECT_EQ(receipt.unexpected, Texts());
  EXPECT_TRUE(receipt.is_read_again);
}

}  // namespace
}  // namespace quarvel::inspect
