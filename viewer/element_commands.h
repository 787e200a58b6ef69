// The viewer's commands on single coefficients.
#pragma once

#include <string>
#include <string_view>

namespace quarvel::model {
struct RecordKind;
}  // namespace quarvel::model

namespace quarvel {}

namespace quarvel::viewer {

class CommandDesk;
struct NamedElement;

class ElementCommands {
 public:
  // The desk outlives the object.
  explicit ElementCommands(CommandDesk& desk) : desk_(desk) {}

  void AddToRow();
  void DeleteFromRow();
  void DeleteFromColumn();
  // Both take the element from the page of columns, also the command in the menu of rows; the
  // question names it. A row's takes 0 for a deletion, a column's holds the value to its bounds.
  void ChangeInRow();
  void ChangeInColumn();

 private:
  // What the user enters for an element; empty also when the window is not ready afterwards.
  std::string AskValue(const NamedElement& element, std::string_view remark) const;
  void Delete(const model::RecordKind& kind, std::string_view none_selected);
  void Store(const NamedElement& element, double value);

  CommandDesk& desk_;
};

}  // namespace quarvel::viewer
