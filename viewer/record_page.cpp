#include "viewer/record_page.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "text/numbers.h"

namespace quarvel::viewer {
namespace {

using platform::Follow;
using platform::Grid;
using platform::Place;

constexpr Place kFilterLabel{24, 138, 70, 20, {}};
constexpr Place kFilterBox{98, 134, 176, 24, {0, 0, 50, 0}};
constexpr Place kInvert{284, 134, 80, 24, {50, 0, 50, 0}};
constexpr Place kListFrame{24, 164, 340, 352, {0, 0, 50, 100}};

std::vector<int> Widths(const GridDesign& design) {
  std::vector<int> widths;
  for (const GridColumn& column : design.columns) widths.push_back(column.width);
  return widths;
}

void RestoreWidths(Grid& grid, const GridDesign& design) {
  for (int i = 0; i < grid.columns(); ++i) {
    grid.set_column_width(i, design.columns[static_cast<std::size_t>(i)].width);
  }
}

// Gives a grid of details its lines. Which of them is meant is the user's choice: none is current
// at first, and the current one stays while the grid goes on with the same record.
void ShowLines(Grid& grid, std::int32_t count, bool same_record) {
  const bool chosen = same_record && grid.current_row() >= 0;
  grid.set_rows(count);
  if (!chosen) grid.set_current_row(-1);
}

std::string Name(const char* prefix, const PageDesign& design, const char* suffix) {
  return std::string(prefix) + design.controls + suffix;
}

}  // namespace

RecordPage::RecordPage(platform::Form& form, const PageDesign& design, const ViewedModel& viewed)
    : lblShowOnly(form, Name("lbl", design, "ShowOnly"), kFilterLabel),
      cboShowOnly(form, Name("cbo", design, "ShowOnly"), kFilterBox),
      chkInvert(form, Name("chk", design, "Invert"), kInvert),
      fraList(form, Name("fra", design, ""), kListFrame),
      fgrdList(form, design.list.name, design.list.place, Widths(design.list)),
      fraElements(form, design.frame, design.frame_place),
      fgrdElements(form, design.elements.name, design.elements.place, Widths(design.elements)),
      lblBounds(form, design.bounds_label, design.bounds_label_place),
      fgrdBounds(form, design.bounds.name, design.bounds.place, Widths(design.bounds)),
      design_(design),
      viewed_(viewed) {
  lblShowOnly.set_caption("Show only:");
  lblShowOnly.access_key = 'S';
  chkInvert.set_caption("Invert");
  chkInvert.access_key = 'I';
  lblBounds.set_caption(design.bounds_caption);
  lblBounds.access_key = design.bounds_key;
  Connect();
}

void RecordPage::Connect() {
  cboShowOnly.on_click = viewed_.WhenReady([this] { Fill(); });
  chkInvert.on_click = viewed_.WhenReady([this] { Fill(); });
  fgrdList.cell = [this](int line, int column) { return ListCell(line, column); };
  fgrdList.on_row_change = viewed_.WhenReady([this] { ShowDetails(); });
  fgrdElements.cell = [this](int line, int column) {
    return DetailCell(design_.elements, line, column);
  };
  fgrdElements.on_row_change = viewed_.WhenReady([this] { on_element(); });
  fgrdElements.on_double_click = viewed_.WhenReady([this] { GoToOther(); });
  fgrdBounds.cell = [this](int line, int column) {
    return DetailCell(design_.bounds, line, column);
  };
}

void RecordPage::HoldBy(platform::TabStrip& strip) {
  for (platform::Control* control : std::initializer_list<platform::Control*>{
           &lblShowOnly, &cboShowOnly, &chkInvert, &fraList, &fgrdList, &fraElements, &fgrdElements,
           &lblBounds, &fgrdBounds}) {
    strip.Hold(design_.number, *control);
  }
}

void RecordPage::Prepare() {
  std::vector<std::string> captions;
  for (const FilterEntry& entry : design_.filters) {
    if (entry.caption != nullptr) captions.emplace_back(entry.caption);
  }
  cboShowOnly.set_items(std::move(captions));
  RestoreWidths(fgrdList, design_.list);
  RestoreWidths(fgrdElements, design_.elements);
  RestoreWidths(fgrdBounds, design_.bounds);
}

void RecordPage::Fill() {
  const model::ModelQueries& model = *viewed_.model;
  const std::int32_t count = (model.*design_.kind.count)();
  const int position = cboShowOnly.list_index();
  filter.Run(count, chkInvert.checked(),
             [&](std::int32_t number) { return Keeps(design_.filters, position, model, number); });
  ShowList(count);
  if (filter.count() > 0) {
    ShowDetails();
  } else {
    ClearDetails();
  }
  on_change();
}

void RecordPage::Refill() {
  if (cboShowOnly.list_index() < 0) {
    cboShowOnly.set_list_index(kShowAll);
  } else {
    Fill();
  }
}

void RecordPage::Empty() {
  filter.Clear();
  ShowList(0);
  ClearDetails();
}

void RecordPage::ShowList(std::int32_t count) {
  fgrdList.set_redraw(false);
  fgrdList.set_rows(filter.count());
  fgrdList.set_redraw(true);
  fraList.set_caption(std::string(design_.kind.plural) + " (" + text::IntegerText(count) + ")");
}

void RecordPage::ShowDetails() {
  if (const auto record = Selected()) {
    const model::ModelQueries& model = *viewed_.model;
    const std::int32_t count = (model.*design_.kind.elements)(*record);
    const bool same = std::exchange(detail_, *record) == *record;
    fraElements.set_caption(design_.frame_caption((model.*design_.kind.name)(*record), count));
    ShowLines(fgrdElements, count, same);
    ShowLines(fgrdBounds, 1, same);
    on_element();
  }
  on_change();
}

void RecordPage::ClearDetails() {
  detail_ = -1;
  fraElements.set_caption("");
  ShowLines(fgrdElements, 1, false);
  ShowLines(fgrdBounds, 1, false);
  on_element();
}

void RecordPage::SetRedraw(bool redraw) {
  for (Grid* grid : {&fgrdList, &fgrdElements, &fgrdBounds}) grid->set_redraw(redraw);
}

void RecordPage::SelectWanted() {
  if (wanted_ > 0) fgrdList.set_current_row(wanted_ - 1);
}

void RecordPage::GoToOther() {
  const auto element = SelectedElement();
  if (!element) return;
  on_go(element->Of(design_.kind.other).number);
}

std::string RecordPage::ListCell(int line, int column) const {
  const auto number = filter.At(line);
  if (viewed_.model == nullptr || !number) return "";
  return design_.list.columns[static_cast<std::size_t>(column)].text(*viewed_.model, *number, line);
}

std::string RecordPage::DetailCell(const GridDesign& grid, int line, int column) const {
  if (viewed_.model == nullptr || detail_ < 0) return "";
  return grid.columns[static_cast<std::size_t>(column)].text(*viewed_.model, detail_, line);
}

std::optional<std::int32_t> RecordPage::Selected() const {
  const auto number = filter.At(fgrdList.current_row());
  return number && HasRecord(*viewed_.model, design_.kind, *number) ? number : std::nullopt;
}

std::optional<NamedRecord> RecordPage::SelectedRecord() const {
  const auto number = Selected();
  if (!number) return std::nullopt;
  return NamedRecord::Of(*viewed_.model, design_.kind, *number);
}

std::optional<NamedElement> RecordPage::SelectedElement() const {
  const auto number = Selected();
  if (!number || *number != detail_) return std::nullopt;
  return NamedElement::At(*viewed_.model, design_.kind, *number, fgrdElements.current_row());
}

}  // namespace quarvel::viewer
