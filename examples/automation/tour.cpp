// A tour of the component from C++, early bound: read, query, edit, simplify, save, view.
//
// The program's manifest names the component, so that it works with Quarvel.dll and
// Quarvel.Component.manifest beside it, registered or not.

#include <cstdio>
#include <string>
#include <vector>

#include <windows.h>
#include <ole2.h>
#include <quarvel_idl.h>

namespace {

// A text of COM that frees itself, printed in the console's way.
class Text {
 public:
  Text() = default;
  explicit Text(const std::wstring& text) : text_(SysAllocString(text.c_str())) {}
  ~Text() { SysFreeString(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  BSTR* address() { return &text_; }
  std::wstring wide() const { return {text_, SysStringLen(text_)}; }
  BSTR get() const { return text_; }

 private:
  BSTR text_ = nullptr;
};

void Print(const std::wstring& line) {
  std::string bytes(line.size() * 4, '\0');
  const int length =
      WideCharToMultiByte(CP_ACP, 0, line.data(), static_cast<int>(line.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr);
  std::printf("%.*s\n", length, bytes.data());
}

// Read: the user chooses the file.
bool Read(_LPModel& model) {
  SHORT result = 0;
  return SUCCEEDED(model.ReadMPSFile(&result)) && result == -1;
}

// Query: all numbers start at 0.
void PrintRows(_LPModel& model) {
  Text name;
  LONG rows = 0;
  LONG columns = 0;
  LONG elements = 0;
  model.get_ModelName(name.address());
  model.get_NumberOfRows(&rows);
  model.get_NumberOfColumns(&columns);
  model.get_NumberOfElements(&elements);
  Print(name.wide() + L": " + std::to_wstring(rows) + L" rows, " + std::to_wstring(columns) +
        L" columns, " + std::to_wstring(elements) + L" elements");
  for (LONG i = 0; i < rows; ++i) {
    Text row;
    Text equation;
    model.get_RowName(i, row.address());
    model.get_RowEquation(i, equation.address());
    Print(row.wide() + L":" + equation.wide());
  }
}

// A row's value at a point, which is an array of doubles that starts at 0.
void PrintValueAtOnes(_LPModel& model) {
  LONG columns = 0;
  model.get_NumberOfColumns(&columns);
  SAFEARRAY* point = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(columns));
  double one = 1;
  for (LONG j = 0; j < columns; ++j) SafeArrayPutElement(point, &j, &one);
  double answer = 0;
  SHORT result = 0;
  model.RowBodyValue(0, &point, &answer, &result);
  SafeArrayDestroy(point);
  Text name;
  model.get_RowName(0, name.address());
  wchar_t line[64];
  std::swprintf(line, 64, L" at ones: %g", answer);
  Print(name.wide() + line);
}

// Edit: a limit of 200 on the first column, as a row of its own. The number of that row.
LONG AddLimit(_LPModel& model) {
  SHORT added = 0;
  LONG rows = 0;
  model.AddRow(Text(L"CAP").get(), &added);
  model.get_NumberOfRows(&rows);
  const Text letter(L"L");
  VARIANT type;
  V_VT(&type) = VT_BSTR;
  V_BSTR(&type) = letter.get();
  model.put_SetRowType(rows - 1, &type);
  VARIANT limit;
  V_VT(&limit) = VT_R8;
  V_R8(&limit) = 200;
  model.put_SetRowUpperBound(rows - 1, &limit);
  model.AddElement(rows - 1, 0, 1);
  return rows - 1;
}

// A bad number is an error that tells what was wrong; nothing changes.
void PrintErrorOf(_LPModel& model, LONG row) {
  Text name;
  const HRESULT code = model.get_RowName(row, name.address());
  IErrorInfo* info = nullptr;
  if (SUCCEEDED(code) || GetErrorInfo(0, &info) != S_OK) return;
  Text source;
  info->GetSource(source.address());
  info->Release();
  Print(L"error " + std::to_wstring(code) + L" from " + source.wide());
}

// Simplify: the row becomes a bound of its column.
void Simplify(_LPModel& model) {
  Text name;
  double bound = 0;
  model.SimplifyMPSModel();
  model.get_ColName(0, name.address());
  model.get_ColUpperBound(0, &bound);
  wchar_t line[64];
  std::swprintf(line, 64, L" is at most %g", bound);
  Print(name.wide() + line);
}

// Save beside the file that was read.
void Save(_LPModel& model) {
  Text location;
  SHORT result = 0;
  model.get_FileLocation(location.address());
  std::wstring path = location.wide();
  path.resize(path.size() - 4);
  BSTR target = SysAllocString((path + L"_tour.mps").c_str());
  model.SaveMPSFile(&target, &result);
  SysFreeString(target);
  Print(L"saved: " + std::to_wstring(result));
}

int Tour(_LPModel& model) {
  if (!Read(model)) {
    Print(L"No model was read.");
    return 1;
  }
  PrintRows(model);
  PrintValueAtOnes(model);
  PrintErrorOf(model, AddLimit(model) + 1);
  Simplify(model);
  Save(model);
  // View, without editing; the call returns when the window is closed.
  VARIANT_BOOL editing = VARIANT_FALSE;
  model.ViewEquations(&editing);
  return 0;
}

}  // namespace

int main() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  _LPModel* model = nullptr;
  int status = 2;
  if (SUCCEEDED(CoCreateInstance(__uuidof(LPModel), nullptr, CLSCTX_INPROC_SERVER,
                                 __uuidof(_LPModel), reinterpret_cast<void**>(&model)))) {
    status = Tour(*model);
    model->Release();
  } else {
    Print(L"Quarvel.dll is neither registered nor beside this program with its manifest.");
  }
  CoUninitialize();
  return status;
}
