// The viewer's commands on the model as a whole: files, simplifying, help.
#pragma once

#include <string>

namespace quarvel::viewer {

// What Help shows, of a component in that folder: the file beside it. On other systems than Windows an
// installation has the file in ../share/quarvel.
std::string ReadmeOf(const std::string& folder);

class CommandDesk;

class FileCommands {
 public:
  // The desk outlives the object.
  explicit FileCommands(CommandDesk& desk) : desk_(desk) {}

  void New();
  void Open();
  void Save();
  // Unlike Save it leaves the model's name and description as they are in the model.
  void SaveAs();
  void Exit();
  void Simplify();
  void Help();
  void About();
  // Asks whether to save what there is; false when the model is to stay as it is.
  bool OfferToSave();

 private:
  bool HasElementsToSave();
  // True when the model has been written.
  bool WriteModel();

  CommandDesk& desk_;
};

}  // namespace quarvel::viewer
