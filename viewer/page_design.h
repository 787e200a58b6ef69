// What differs between the two pages of the viewer, as data: their grids with the text of each
// column, their filters, their words and places.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "model/record_kind.h"
#include "platform/control.h"
#include "viewer/record_filter.h"

namespace quarvel::viewer {

// A column of a grid that tells of a record: in the list of records a line is a record, in the list
// of a record's elements line k is its element k, and its bounds are one line.
struct GridColumn {
  int width;
  std::string (*text)(const model::ModelQueries& model, std::int32_t number, std::int32_t line);
};

struct GridDesign {
  const char* name;
  platform::Place place;
  std::span<const GridColumn> columns;
};

struct PageDesign {
  const model::RecordKind& kind;
  int number;            // of the page
  const char* controls;  // "Rows": the filter's controls are cboRowsShowOnly, chkRowsInvert ...
  const char* menu;      // the item of the menu with the commands on such records
  const char* deletion;  // the item that the Delete key means in the list
  FilterEntries filters;
  GridDesign list;
  // The details of the current record: its elements in a frame, and its bounds under a label.
  const char* frame;
  platform::Place frame_place;
  std::string (*frame_caption)(const std::string& name, std::int32_t elements);
  GridDesign elements;
  const char* bounds_label;
  platform::Place bounds_label_place;
  const char* bounds_caption;
  char bounds_key;
  GridDesign bounds;
};

extern const PageDesign kRowsPage;
extern const PageDesign kColumnsPage;

}  // namespace quarvel::viewer
