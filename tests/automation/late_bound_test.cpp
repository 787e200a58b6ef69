// Every member by name, right and wrong, on a small model.

#include <string>
#include <vector>

#include "tests/automation/object_fixture.h"

namespace quarvel::automation {
namespace {

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr WORD kWrite = DISPATCH_PROPERTYPUT;

struct Case {
  const wchar_t* name;
  WORD flags;
  std::vector<Value> arguments;
  std::string outcome;
  std::vector<std::string> boxes = {};
};

const char kColumn9[] =
    "! -2147220974 | LPModel.PropertyGetColumn() | Quarvel.dll error: column 9 is out of range.  "
    "\r\nColumns range from 0 to 2.";
const char kRow9[] =
    "! -2147220972 | LPModel.PropertyGetRow() | Quarvel.dll error: row 9 is out of range.  "
    "\r\nRows range from 0 to 1.";
const char kColumnElement7[] =
    "! -2147220973 | LPModel.PropertyGetColumn() | Quarvel.dll error: element 7 is out of range.  "
    "\r\nElements in this row range from 0 to 0.";
const char kRowElement7[] =
    "! -2147220971 | LPModel.PropertyGetRow() | Quarvel.dll error: element 7 is out of range.  "
    "\r\nElements in this row range from 0 to 1.";
const char kSubscriptOutOfRange[] = "! -2146828279 |  | Subscript out of range";
const char kThirteen[] = "! -2146828275 |  | Type mismatch";

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases = {
      {L"strMPSFile", kRead, {}, "= BSTR "},
      {L"strMPSFile", kWrite, {"a.mps"}, "= EMPTY"},
      {L"strMPSFile", kRead, {1}, "! DISP_E_BADPARAMCOUNT"},
      {L"ReadMPSFileErr", kRead, {}, "= I2 0"},
      {L"ReadMPSFileErr", kWrite, {-1}, "= EMPTY"},
      {L"ReadMPSFileErr", kWrite, {70000}, "! DISP_E_OVERFLOW 0"},
      {L"frmViewEquationsIsShowing", kRead, {}, "= BOOL 0"},
      {L"frmViewEquationsIsShowing", kWrite, {true}, "= EMPTY"},
      {L"frmViewEquationsIsShowing", kWrite, {"neither"}, "! DISP_E_TYPEMISMATCH 0"},
      {L"showFrm", kRead, {}, "= EMPTY"},
      {L"showFrm", kWrite, {5}, "= EMPTY"},
      {L"ColElementrow", kRead, {1, 0}, "= I4 0"},
      {L"ColElementrow", kRead, {9, 7}, kColumn9},
      {L"ColElementrow", kRead, {0, 7}, kColumnElement7},
      {L"ColElementvalue", kRead, {1, 1}, "= R8 -3.5"},
      {L"ColElementvalue", kRead, {9, 7}, kColumn9},
      {L"ColElementvalue", kRead, {0, 7}, kColumnElement7},
      {L"ColNumberElements", kRead, {1}, "= I4 2"},
      {L"ColNumberElements", kRead, {9}, kColumn9},
      {L"ColUpperBound", kRead, {1}, "= R8 4"},
      {L"ColUpperBound", kRead, {9}, kColumn9},
      {L"SetColUpperBound", kWrite, {0, 5}, "= EMPTY"},
      {L"SetColUpperBound",
       kWrite,
       {9, 5},
       "= EMPTY",
       {"Invalid Column number when attempting to SetColUpperBound()"}},
      {L"SetColUpperBound", kWrite, {0, "five"}, kThirteen},
      {L"ColLowerBound", kRead, {1}, "= R8 0"},
      {L"ColLowerBound", kRead, {9}, kColumn9},
      {L"SetColLowerBound", kWrite, {0, "-5.5"}, "= EMPTY"},
      {L"SetColLowerBound",
       kWrite,
       {9, 5},
       "= EMPTY",
       {"Invalid Column number when attempting to SetColLowerBound()"}},
      {L"ColName", kRead, {2}, "= BSTR Z"},
      {L"ColName", kRead, {9}, kColumn9},
      {L"SetColName", kWrite, {0, "NEW"}, "= EMPTY"},
      {L"SetColName", kWrite, {0, "Y"}, "= EMPTY", {"That name is already in use"}},
      {L"ColType", kRead, {0}, "= BSTR R"},
      {L"ColType", kRead, {9}, kColumn9},
      {L"SetColType", kWrite, {0, "I"}, "= EMPTY"},
      {L"SetColType", kWrite, {0, "B"}, "= EMPTY", {"Invalid Column Type"}},
      {L"RowEquation", kRead, {1}, "= BSTR  - 3.5*Y + 4*Z  <=  10"},
      {L"RowEquation", kRead, {9}, kRow9},
      {L"RowGradient", kRead, {0, 1}, "! DISP_E_TYPEMISMATCH 0"},
      {L"ElementValue", kRead, {1, 1}, "= R8 -3.5"},
      {L"ElementValue",
       kRead,
       {9, 9},
       "! -2147220972 | LPModel.PropertyGetRow() | Quarvel.dll error: row out of range."},
      {L"ElementValue",
       kRead,
       {0, 9},
       "! -2147220974 | LPModel.PropertyGetColumn() | Quarvel.dll error: column out of range."},
      {L"FileLocation", kRead, {}, "= BSTR "},
      {L"NumberOfElements", kRead, {}, "= I4 4"},
      {L"NumberOfColumns", kRead, {}, "= I4 3"},
      {L"NumberOfRows", kRead, {}, "= I4 2"},
      {L"NumberOfBindingRows", kRead, {}, "= I4 1"},
      {L"NumberOfNonBindingRows", kRead, {}, "= I4 1"},
      {L"NumberOfRows", kWrite, {3}, "! DISP_E_MEMBERNOTFOUND"},
      {L"ModelDescription", kRead, {}, "= BSTR "},
      {L"SetModelDescription", kWrite, {"two\r\nlines"}, "= EMPTY"},
      {L"ModelName", kRead, {}, "= BSTR "},
      {L"SetModelName", kWrite, {5}, "= EMPTY"},
      {L"SetModelName", kRead, {}, "! DISP_E_MEMBERNOTFOUND"},
      {L"RowElementCol", kRead, {1, 1}, "= I4 2"},
      {L"RowElementCol", kRead, {9, 7}, kRow9},
      {L"RowElementCol", kRead, {0, 7}, kRowElement7},
      {L"RowElementValue", kRead, {1, 1}, "= R8 4"},
      {L"RowElementValue", kRead, {9, 7}, kRow9},
      {L"RowElementValue", kRead, {0, 7}, kRowElement7},
      {L"RowName", kRead, {1}, "= BSTR LIM"},
      {L"RowName", kRead, {9}, kRow9},
      {L"SetRowName", kWrite, {0, "NEW"}, "= EMPTY"},
      {L"SetRowName", kWrite, {0, "A B"}, "= EMPTY", {"Spaces are not allowed in row names"}},
      {L"SetRowElementValue", kWrite, {0, 1, 9.5}, "= EMPTY"},
      {L"SetRowElementValue",
       kWrite,
       {0, 7, 9.5},
       "= EMPTY",
       {"Invalid Element number when attempting to SetRowElementValue()"}},
      {L"RowNumberElements", kRead, {0}, "= I4 2"},
      {L"RowNumberElements", kRead, {9}, kRow9},
      {L"RowType", kRead, {1}, "= BSTR L"},
      {L"RowType", kRead, {9}, kRow9},
      {L"SetRowType", kWrite, {1, "E"}, "= EMPTY"},
      {L"SetRowType", kWrite, {1, "X"}, "= EMPTY", {"Invalid Row Type"}},
      {L"SetRowType", kWrite, {9, "E"}, kSubscriptOutOfRange},
      {L"RowLowerBound", kRead, {1}, "= R8 0"},
      {L"RowLowerBound", kRead, {9}, kRow9},
      {L"SetRowLowerBound", kWrite, {1, -1}, "= EMPTY"},
      {L"SetRowLowerBound",
       kWrite,
       {9, 5},
       "= EMPTY",
       {"Invalid Row number when attempting to SetRowLowerBound()"}},
      {L"RowUpperBound", kRead, {1}, "= R8 10"},
      {L"RowUpperBound", kRead, {9}, kRow9},
      {L"SetRowUpperBound", kWrite, {1, 11}, "= EMPTY"},
      {L"SetRowUpperBound",
       kWrite,
       {9, 5},
       "= EMPTY",
       {"Invalid Row number when attempting to SetRowUpperBound()"}},
      {L"RowBodyValue", kRead, {0, 1, 2.0}, "! DISP_E_TYPEMISMATCH 1"},
      {L"SaveMPSFile", kRead, {}, "! DISP_E_BADPARAMCOUNT"},
      {L"DeleteRow", kRead, {1}, "= I2 -1"},
      {L"DeleteRow", kRead, {"one"}, "! DISP_E_TYPEMISMATCH 0"},
      {L"DeleteColumn", kRead, {1}, "= I2 -1"},
      {L"DeleteElement", kRead, {1, 0}, "= I2 -1"},
      {L"DeleteElement", kRead, {9, 0}, "= I2 0"},
      {L"DeleteElement", kRead, {1, 9}, kSubscriptOutOfRange},
      {L"MakeNewModel", kRead, {}, "= EMPTY"},
      {L"MakeNewModel", kRead, {1}, "! DISP_E_BADPARAMCOUNT"},
      {L"AddElement", kRead, {0, 2, 5}, "= EMPTY"},
      {L"AddElement",
       kRead,
       {0, 9, 5},
       "= EMPTY",
       {"Invalid row or column given when attempting to AddElement()"}},
      {L"AddRow", kRead, {"NEW"}, "= I2 -1"},
      {L"AddRow", kRead, {"LIM"}, "= I2 0", {"Row not added:  that name is already in use"}},
      {L"AddColumn", kRead, {"NEW"}, "= I2 -1"},
      {L"AddColumn", kRead, {""}, "= I2 0", {"Column not added:  empty name given"}},
      {L"SetDefaultToPlusMinusInfinity", kRead, {true}, "= EMPTY"},
      {L"ViewEquationsWindowIsShowing", kRead, {}, "= BOOL 0"},
      {L"NonBindingRowIndex", kRead, {0}, "= I4 0"},
      {L"NonBindingRowIndex",
       kRead,
       {9},
       "! -2147220974 | LPModel.NonBindingRowIndex() | Quarvel.dll error: column 9 is out of range."
       "  \r\nThe valid range for NonBindnigRowIndex is from 0 to 0."},
      {L"BindingRowIndex", kRead, {0}, "= I4 1"},
      {L"BindingRowIndex",
       kRead,
       {9},
       "! -2147220974 | LPModel.BindingRowIndex() | Quarvel.dll error: column 9 is out of range.  "
       "\r\nThe valid range for BindnigRowIndex is from 0 to 0."},
      {L"NumNonBindingRows", kRead, {}, "= I4 1"},
      {L"NumBindingRows", kRead, {}, "= I4 1"},
      {L"StartFileReding", kRead, {1}, "! DISP_E_BADPARAMCOUNT"},
      {L"NoSuchMember", kRead, {}, "! DISP_E_MEMBERNOTFOUND"},
  };
  return cases;
}

using LateBound = ObjectFixture;

TEST_F(LateBound, CallsGiveTheMembersResultBoxOrError) {
  for (const Case& c : Cases()) {
    Renew();
    FillModel();
    const std::string outcome = Run({c.name, c.flags, c.arguments});
    EXPECT_EQ(outcome, c.outcome) << Utf8(c.name);
    EXPECT_EQ(Boxes(), c.boxes) << Utf8(c.name);
  }
}

// The rows of the table above, in the order of tests: a write is seen by the read beside it.
TEST_F(LateBound, WritesAreSeenByReads) {
  const struct {
    const wchar_t* write;
    std::vector<Value> written;
    const wchar_t* read;
    std::vector<Value> place;
    std::string seen;
  } pairs[] = {
      {L"strMPSFile", {"a.mps"}, L"strMPSFile", {}, "= BSTR a.mps"},
      {L"ReadMPSFileErr", {-1}, L"ReadMPSFileErr", {}, "= I2 -1"},
      {L"frmViewEquationsIsShowing", {1}, L"ViewEquationsWindowIsShowing", {}, "= BOOL -1"},
      {L"showFrm", {"kept"}, L"showFrm", {}, "= BSTR kept"},
      {L"SetColUpperBound", {0, 5}, L"ColUpperBound", {0}, "= R8 5"},
      {L"SetColLowerBound", {0, "-5.5"}, L"ColLowerBound", {0}, "= R8 -5.5"},
      {L"SetColName", {0, "NEW"}, L"ColName", {0}, "= BSTR NEW"},
      {L"SetColType", {0, "I"}, L"ColType", {0}, "= BSTR I"},
      {L"SetModelDescription", {"text"}, L"ModelDescription", {}, "= BSTR text"},
      {L"SetModelName", {2.5}, L"ModelName", {}, "= BSTR 2.5"},
      {L"SetRowName", {0, "NEW"}, L"RowName", {0}, "= BSTR NEW"},
      {L"SetRowElementValue", {0, 1, 9.5}, L"ElementValue", {0, 1}, "= R8 9.5"},
      {L"SetRowType", {1, "E"}, L"RowType", {1}, "= BSTR E"},
      {L"SetRowLowerBound", {1, -1}, L"RowLowerBound", {1}, "= R8 -1"},
      {L"SetRowUpperBound", {1, true}, L"RowUpperBound", {1}, "= R8 -1"},
  };
  for (const auto& pair : pairs) {
    FillModel();
    EXPECT_EQ(Put(pair.write, pair.written), "= EMPTY") << Utf8(pair.write);
    EXPECT_EQ(Call(pair.read, pair.place), pair.seen) << Utf8(pair.read);
  }
}

TEST_F(LateBound, BindingRowsMissingIsAnErrorOfItsOwn) {
  model_->MakeNewModel();
  EXPECT_EQ(Call(L"BindingRowIndex", {0}),
            "! -2147220974 | LPModel.BindingRowIndex() | "
            "Quarvel.dll error: There are no Binding Rows");
  EXPECT_EQ(Call(L"NonBindingRowIndex", {0}),
            "! -2147220974 | LPModel.NonBindingRowIndex() | "
            "Quarvel.dll error: There are no Non-Binding Rows");
}

}  // namespace
}  // namespace quarvel::automation
