// What the dialogs for the type and the bounds of a record have in common; what differs between
// rows and columns stands in their table of types and in two steps of OK.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "viewer/bound_boxes.h"
#include "viewer/named_record.h"

namespace quarvel::viewer {

class SetBoundsForm : public platform::Form {
 public:
  // One type that the dialog offers.
  struct TypeOption {
    std::string_view type;
    const char* name;  // of its option button
    const char* caption;
    char access_key;
    // What the type makes of the boxes when it is stored; null for nothing.
    void (*fit)(BoundBoxes& bounds) = nullptr;
  };
  struct Design {
    const model::RecordKind& kind;
    const char* form_name;
    const char* label_name;
    const char* type_caption;
    std::string_view unknown_type;  // what is said of a record of a type without an option
    std::span<const TypeOption> options;
  };

  // Fills the dialog with the record of that public number and shows it modally. A record of a type
  // that is not offered is one box, and no dialog.
  void ShowBounds(model::ModelInterface& model, std::int32_t number);
  // The button of a type; null for a type that is not offered.
  platform::OptionButton* Option(std::string_view type) const;

  platform::Label lblRecord;  // lblRow, lblColumn
  platform::Frame fraType;
  // In the order of the design.
  std::vector<std::unique_ptr<platform::OptionButton>> options;
  BoundBoxes bounds;
  platform::Button cmdOK;
  platform::Button cmdCancel;

 protected:
  SetBoundsForm(platform::Desktop& desktop, const Design& design);
  void OnUnload() override { model_ = nullptr; }

  // OK, with a number in either box: brings the bounds in order where the type wants it.
  virtual void OrderBounds() = 0;
  // Then stores the type and holds the boxes within the limit of a model, whichever comes first.
  // False when there is nothing more to store to.
  virtual bool StoreType() = 0;
  // Stores the chosen type and fits the boxes to it.
  void StoreChosenType();
  // False when a host has deleted the record under a box, or closed the dialog; it is closed then.
  bool HasRecord();

 private:
  void Accept();
  const TypeOption& Chosen() const;

  const Design& design_;
  model::ModelInterface* model_ = nullptr;
  NamedRecord record_;
};

}  // namespace quarvel::viewer
