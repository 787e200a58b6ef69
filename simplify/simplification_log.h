// The file that records what a simplification did: UTF-8 lines that end in CR LF, the first of them
// naming the model, then one line for each row or column that was converted, removed or decided on.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/model_store.h"
#include "platform/files.h"

namespace quarvel::simplify {

// `path` with its last four characters replaced by ".log": the extension is taken to be a point and
// three letters, so that "model.data" gives "model..log". A shorter path gives ".log", and a short
// name without an extension one outside of its folder: "d/q" gives ".log", "/d/abc" gives "/d.log".
std::string BesideModel(std::string_view path);

// Where the log of a model stored at `file_location` goes. A model without a file has its log in a
// folder of the component's: that of the DLL on Windows, the user's state folder elsewhere. Raises
// when that cannot be had.
std::string LogFileName(std::string_view file_location);

// Its first line, without the line end.
std::string LogHeading(std::string_view file_location);

// One model's log. It is open while settings().LogFileNumber of the store is not 0. What a host
// does to the model during a simplification is logged too, and may close the log.
class SimplificationLog {
 public:
  // The store outlives the log.
  explicit SimplificationLog(model::ModelStore& store) : store_(store) {}

  // From here on logs go to `text` in the place of a file: each begins an empty text, and a
  // simplification without anything to tell leaves it empty. The text outlives the log.
  // Sentences about rows that became other bounds than they were are appended to `altered`, unless it is null; no
  // file has them.
  void KeepIn(std::string* text, std::vector<std::string>* altered = nullptr) {
    kept_ = text;
    altered_ = altered;
  }
  bool has_file() const { return kept_ == nullptr; }
  // Empties the text.
  void DropKept() { kept_->clear(); }

  bool is_open() const { return store_.settings().LogFileNumber != 0; }
  // Empties or makes the file, readable for nobody who may not read the model's file. Raises what
  // the system says, and kPathFileAccessError where a link, a pipe or a device stands, or, outside
  // of the model's folder, a file that is no log.
  void Open(const std::string& path, const std::string& file_location);
  // Adds a line; nothing while no log is open. Raises what the system says.
  void Append(std::string_view line);
  bool keeps_altered() const { return altered_ != nullptr; }
  // Where sentences about such rows are kept.
  void AppendAltered(std::string sentence) { altered_->push_back(std::move(sentence)); }
  void AppendEmptyRow(model::RowType type, std::string_view name);
  // Raises what the system says of the file, which is closed all the same.
  void Close();
  // Closes ignoring failures; nothing while no log is open.
  void Abandon();

 private:
  model::ModelStore& store_;
  std::unique_ptr<platform::OutputFile> file_;
  std::string* kept_ = nullptr;  // null where logs are files
  std::vector<std::string>* altered_ = nullptr;
};

}  // namespace quarvel::simplify
