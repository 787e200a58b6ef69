// A C++ host that calls the members through the interface's own order.

#include <string>

#include "automation/bstr.h"
#include "automation/safe_array.h"
#include "model/about.h"
#include "platform/basic_controls.h"
#include "tests/automation/object_fixture.h"
#include "tests/support/test_paths.h"

namespace quarvel::automation {
namespace {

class EarlyBound : public ObjectFixture {
 protected:
  EarlyBound() { FillModel(); }

  template <class Result, class... Parameters, class... Arguments>
  Result Get(HRESULT (STDMETHODCALLTYPE _LPModel::*member)(Parameters...), Arguments... arguments) {
    Result result = {};
    EXPECT_EQ((model_.get()->*member)(arguments..., &result), S_OK);
    return result;
  }
  template <class... Parameters, class... Arguments>
  std::string GetText(HRESULT (STDMETHODCALLTYPE _LPModel::*member)(Parameters...),
                      Arguments... arguments) {
    Bstr result;
    EXPECT_EQ((model_.get()->*member)(arguments..., result.Receive()), S_OK);
    return Utf8FromBstr(result.get());
  }
  template <class Member, class... Arguments>
  void Put(Member member, Arguments... arguments) {
    EXPECT_EQ((model_.get()->*member)(arguments...), S_OK);
  }
  static VARIANT* Address(Value& value) {
    address_ = value.variant();
    return &address_;
  }

  static inline VARIANT address_;
};

TEST_F(EarlyBound, PublicVariablesKeepWhatIsPut) {
  Put(&_LPModel::put_strMPSFile, Bstr("a.mps").get());
  EXPECT_EQ(GetText(&_LPModel::get_strMPSFile), "a.mps");
  Put(&_LPModel::put_strMPSFile, BSTR{nullptr});
  EXPECT_EQ(GetText(&_LPModel::get_strMPSFile), "");
  Put(&_LPModel::put_ReadMPSFileErr, SHORT{-1});
  EXPECT_EQ(Get<SHORT>(&_LPModel::get_ReadMPSFileErr), -1);
  Put(&_LPModel::put_frmViewEquationsIsShowing, VARIANT_BOOL{1});
  EXPECT_EQ(Get<VARIANT_BOOL>(&_LPModel::get_frmViewEquationsIsShowing), VARIANT_TRUE);
  EXPECT_EQ(Get<VARIANT_BOOL>(&_LPModel::ViewEquationsWindowIsShowing), VARIANT_TRUE);
  Value five(5);
  Put(&_LPModel::put_showFrm, five.variant());
  EXPECT_EQ(TextOf(Get<VARIANT>(&_LPModel::get_showFrm)), "I4 5");
  Put(&_LPModel::putref_showFrm, Value(2.5).variant());
  EXPECT_EQ(TextOf(Get<VARIANT>(&_LPModel::get_showFrm)), "R8 2.5");
}

TEST_F(EarlyBound, QueriesReadTheModel) {
  EXPECT_EQ(Get<LONG>(&_LPModel::get_ColElementrow, 1, 1), 1);
  EXPECT_EQ(Get<double>(&_LPModel::get_ColElementvalue, 1, 1), -3.5);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_ColNumberElements, 1), 2);
  EXPECT_EQ(Get<double>(&_LPModel::get_ColUpperBound, 1), 4);
  EXPECT_EQ(Get<double>(&_LPModel::get_ColLowerBound, 1), 0);
  EXPECT_EQ(GetText(&_LPModel::get_ColName, 1), "Y");
  EXPECT_EQ(GetText(&_LPModel::get_ColType, 1), "R");
  EXPECT_EQ(GetText(&_LPModel::get_RowEquation, 0), " + 1*X + 2*Y  (non-binding/objective)");
  EXPECT_EQ(Get<double>(&_LPModel::get_ElementValue, 0, 1), 2);
  EXPECT_EQ(GetText(&_LPModel::get_FileLocation), "");
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfElements), 4);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfColumns), 3);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfRows), 2);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfBindingRows), 1);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfNonBindingRows), 1);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_RowElementCol, 1, 1), 2);
  EXPECT_EQ(Get<double>(&_LPModel::get_RowElementValue, 1, 1), 4);
  EXPECT_EQ(GetText(&_LPModel::get_RowName, 1), "LIM");
  EXPECT_EQ(Get<LONG>(&_LPModel::get_RowNumberElements, 1), 2);
  EXPECT_EQ(GetText(&_LPModel::get_RowType, 1), "L");
  EXPECT_EQ(Get<double>(&_LPModel::get_RowLowerBound, 1), 0);
  EXPECT_EQ(Get<double>(&_LPModel::get_RowUpperBound, 1), 10);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NonBindingRowIndex, 0), 0);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_BindingRowIndex, 0), 1);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumNonBindingRows), 1);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumBindingRows), 1);
}

TEST_F(EarlyBound, WritesChangeTheModel) {
  Value number(7.5);
  Put(&_LPModel::put_SetColUpperBound, 0, Address(number));
  EXPECT_EQ(Get<double>(&_LPModel::get_ColUpperBound, 0), 7.5);
  Put(&_LPModel::put_SetColLowerBound, 0, Address(number));
  EXPECT_EQ(Get<double>(&_LPModel::get_ColLowerBound, 0), 7.5);
  Put(&_LPModel::put_SetRowElementValue, 0, 1, Address(number));
  EXPECT_EQ(Get<double>(&_LPModel::get_ElementValue, 0, 1), 7.5);
  Put(&_LPModel::put_SetRowLowerBound, 1, Address(number));
  EXPECT_EQ(Get<double>(&_LPModel::get_RowLowerBound, 1), 7.5);
  Put(&_LPModel::put_SetRowUpperBound, 1, Address(number));
  EXPECT_EQ(Get<double>(&_LPModel::get_RowUpperBound, 1), 7.5);
  Value name("NEU\xC3\x84");
  Put(&_LPModel::put_SetColName, 0, Address(name));
  EXPECT_EQ(GetText(&_LPModel::get_ColName, 0), "NEU\xC3\x84");
  Put(&_LPModel::put_SetRowName, 0, Address(name));
  EXPECT_EQ(GetText(&_LPModel::get_RowName, 0), "NEU\xC3\x84");
  Put(&_LPModel::put_SetModelName, Address(name));
  EXPECT_EQ(GetText(&_LPModel::get_ModelName), "NEU\xC3\x84");
  Put(&_LPModel::put_SetModelDescription, Address(name));
  EXPECT_EQ(GetText(&_LPModel::get_ModelDescription), "NEU\xC3\x84");
  Value integer("I");
  Put(&_LPModel::put_SetColType, 0, Address(integer));
  EXPECT_EQ(GetText(&_LPModel::get_ColType, 0), "I");
  Value equality("E");
  Put(&_LPModel::put_SetRowType, 1, Address(equality));
  EXPECT_EQ(GetText(&_LPModel::get_RowType, 1), "E");
}

TEST_F(EarlyBound, EditsAddAndDelete) {
  EXPECT_EQ(Get<SHORT>(&_LPModel::AddRow, Bstr("R3").get()), -1);
  EXPECT_EQ(Get<SHORT>(&_LPModel::AddColumn, Bstr("C4").get()), -1);
  Put(&_LPModel::AddElement, 2, 3, 1.5);
  EXPECT_EQ(Get<double>(&_LPModel::get_ElementValue, 2, 3), 1.5);
  EXPECT_EQ(Get<SHORT>(&_LPModel::DeleteElement, 1, 0), -1);
  EXPECT_EQ(Get<SHORT>(&_LPModel::DeleteColumn, 0), -1);
  EXPECT_EQ(Get<SHORT>(&_LPModel::DeleteRow, 0), -1);
  EXPECT_EQ(GetText(&_LPModel::get_RowEquation, 0), " + 4*Z  <=  10");
  VARIANT_BOOL yes = VARIANT_TRUE;
  Put(&_LPModel::SetDefaultToPlusMinusInfinity, &yes);
  Put(&_LPModel::MakeNewModel);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfRows), 0);
  EXPECT_EQ(GetText(&_LPModel::get_ModelName), "");
}

TEST_F(EarlyBound, RowsAreEvaluatedInTheCallersArrays) {
  SafeArrayHolder array(SafeArrayCreateVector(VT_R8, 0, 3));
  EXPECT_EQ(Get<SHORT>(&_LPModel::RowGradient, 1, array.address()), -1);
  double answer = 77;
  // The gradient itself as the point: -3.5 * -3.5 + 4 * 4.
  EXPECT_EQ(Get<SHORT>(&_LPModel::RowBodyValue, 1, array.address(), &answer), -1);
  EXPECT_EQ(answer, 28.25);
}

TEST_F(EarlyBound, JobsShowTheirWindowsAndBoxes) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  Put(&_LPModel::DisplayAuthor);
  Bstr location(path);
  EXPECT_EQ(Get<SHORT>(&_LPModel::SaveMPSFile, location.Receive()), 1);  // no path given
  location = Bstr(path);
  BSTR named = location.get();
  EXPECT_EQ(Get<SHORT>(&_LPModel::SaveMPSFile, &named), -1);
  EXPECT_EQ(GetText(&_LPModel::get_FileLocation), path);
  desktop_->files = {path, "", folder.File("other.mps")};
  desktop_->on_idle = [](platform::Form& form) {
    auto* const button = static_cast<platform::Button*>(form.Find("cmdOK"));
    if (button != nullptr) button->on_click();
  };
  desktop_->on_box = [](const platform::ShownBox&) { return platform::MsgBoxResult::kNo; };
  EXPECT_EQ(Get<SHORT>(&_LPModel::ReadMPSFile), -1);
  EXPECT_EQ(Get<SHORT>(&_LPModel::ReadMPSFile), 1);
  EXPECT_EQ(Get<SHORT>(&_LPModel::SaveAsMPSFile), -1);
  Put(&_LPModel::put_strMPSFile, Bstr(path).get());
  EXPECT_EQ(Get<SHORT>(&_LPModel::StartFileReding), -1);
  Put(&_LPModel::SimplifyMPSModel);
  EXPECT_EQ(Boxes().front(), model::AboutText());
  EXPECT_EQ(Boxes().back(), "No simplifications were made.");
}

TEST_F(EarlyBound, ViewsShowTheViewerUntilItIsClosed) {
  int shown = 0;
  desktop_->on_idle = [&shown](platform::Form& form) {
    EXPECT_EQ(form.name(), "frmViewEquations");
    ++shown;
    form.RequestClose();
  };
  desktop_->on_box = [](const platform::ShownBox&) { return platform::MsgBoxResult::kNo; };
  VARIANT_BOOL editing = VARIANT_TRUE;
  Put(&_LPModel::ViewEquations, &editing);
  Put(&_LPModel::ViewCol, 1, &editing);
  Put(&_LPModel::ViewRow, 1, &editing);
  Put(&_LPModel::ViewNonBindingRow, 0, &editing);
  Put(&_LPModel::ViewBindingRow, 0, &editing);
  EXPECT_EQ(shown, 5);
  Put(&_LPModel::NewMPSModel);
  EXPECT_EQ(shown, 6);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfRows), 0);
}

TEST_F(EarlyBound, ArraysOfAnotherTypeAreATypeMismatch) {
  SafeArrayHolder array(SafeArrayCreateVector(VT_I4, 0, 3));
  SHORT result = 5;
  EXPECT_EQ(TextOfFailure(model_->RowGradient(1, array.address(), &result)),
            "-2146828275 |  | Type mismatch");
  EXPECT_EQ(result, 0);
}

TEST_F(EarlyBound, FailuresCarryNumberSourceAndDescription) {
  Bstr name;
  const HRESULT code = model_->get_ColName(3, name.Receive());
  EXPECT_EQ(code, static_cast<HRESULT>(0x80040212));
  EXPECT_EQ(name.get(), nullptr);
  EXPECT_EQ(TextOfFailure(code),
            "-2147220974 | LPModel.PropertyGetColumn() | Quarvel.dll error: column 3 is out of "
            "range.  \r\nColumns range from 0 to 2.");
}

TEST_F(EarlyBound, EachCallDropsTheErrorOfAnEarlierOne) {
  Bstr name;
  EXPECT_TRUE(FAILED(model_->get_ColName(3, name.Receive())));
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfRows), 2);
  ComPtr<IErrorInfo> info;
  EXPECT_EQ(GetErrorInfo(0, info.Receive()), S_FALSE);
}

TEST_F(EarlyBound, NullPointersAreRefusedWithoutErrorInformation) {
  const std::string refused = "E_POINTER";
  EXPECT_EQ(TextOfFailure(model_->get_NumberOfRows(nullptr)), refused);
  EXPECT_EQ(TextOfFailure(model_->get_ColName(0, nullptr)), refused);
  EXPECT_EQ(TextOfFailure(model_->get_showFrm(nullptr)), refused);
  EXPECT_EQ(TextOfFailure(model_->put_SetColUpperBound(0, nullptr)), refused);
  EXPECT_EQ(TextOfFailure(model_->ViewEquations(nullptr)), refused);
  EXPECT_EQ(TextOfFailure(model_->SetDefaultToPlusMinusInfinity(nullptr)), refused);
  SHORT result = 0;
  EXPECT_EQ(TextOfFailure(model_->SaveMPSFile(nullptr, &result)), refused);
  EXPECT_EQ(TextOfFailure(model_->RowGradient(0, nullptr, &result)), refused);
  SafeArrayHolder point(SafeArrayCreateVector(VT_R8, 0, 3));
  EXPECT_EQ(TextOfFailure(model_->RowBodyValue(0, point.address(), nullptr, &result)), refused);
  EXPECT_EQ(TextOfFailure(model_->AddRow(Bstr("R3").get(), nullptr)), refused);
  EXPECT_EQ(Get<LONG>(&_LPModel::get_NumberOfRows), 2);
}

TEST_F(EarlyBound, ReferencesToNothingAreNoValues) {
  VARIANT nothing = {};
  for (const int type : {VT_R8, VT_BSTR, VT_VARIANT}) {
    V_VT(&nothing) = static_cast<VARTYPE>(VT_BYREF | type);
    EXPECT_EQ(model_->put_SetColUpperBound(0, &nothing), static_cast<HRESULT>(0x800A000D));
    EXPECT_EQ(model_->put_SetColName(0, &nothing), static_cast<HRESULT>(0x800A000D));
  }
}

}  // namespace
}  // namespace quarvel::automation
