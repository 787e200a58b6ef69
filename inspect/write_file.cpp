#include "inspect/write_file.h"

#include <utility>

#include "mps/file_save.h"

namespace quarvel::inspect {
namespace {

class ReceiptListener : public mps::SaveListener {
 public:
  ReceiptListener(const model::ModelStore& store, const mps::FileFacts& facts,
                  const WriteOptions& options, FileWrite& write)
      : store_(store), facts_(facts), options_(options), write_(write) {}

  bool Accepts(platform::FileReplacement& file) override {
    auto contents = file.Review();
    // What went to the file itself is there already.
    if (!contents) return true;
    CompareWithFile(store_, facts_, std::move(*contents), write_.receipt);
    if (!write_.receipt.unexpected.empty()) {
      write_.outcome = WriteOutcome::kNotSame;
      return false;
    }
    if (!IsOthers(file.target())) return true;
    write_.failure.emplace(static_cast<std::int32_t>(RunTimeError::kPermissionDenied), "",
                           "another program has changed the file since it was read");
    return false;
  }
  void Kept(const std::string& name) override { write_.kept = name; }
  void NothingWritten() override { write_.outcome = WriteOutcome::kNothing; }
  void Written(bool is_standard) override {
    write_.outcome = WriteOutcome::kWritten;
    write_.fits_fixed_columns = is_standard;
  }
  void Failed(const AutomationError& failure, const std::string& notes) override {
    write_.outcome = WriteOutcome::kFailed;
    write_.failure = failure;
    write_.notes = notes;
  }

 private:
  bool IsOthers(const std::string& path) const {
    if (!options_.read_as) return false;
    const auto there = platform::StampUnder(path);
    return there && there != options_.read_as;
  }

  const model::ModelStore& store_;
  const mps::FileFacts& facts_;
  const WriteOptions& options_;
  FileWrite& write_;
};

bool IsAllowed(const mps::Losses& losses, const WriteOptions& options) {
  if (options.strict) return losses.groups().empty();
  return !losses.Has(mps::LossWeight::kBreaks) &&
         (options.allow_changes || !losses.Has(mps::LossWeight::kChanges));
}

}  // namespace

FileWrite WriteFile(model::ModelStore& store, const mps::FileFacts& facts, const std::string& path,
                    const WriteOptions& options) {
  FileWrite write;
  if (store.NumberOfElements() == 0) {
    write.outcome = WriteOutcome::kNothing;
    return write;
  }
  write.receipt = ReceiptOf(store, facts, options.layout);
  if (!IsAllowed(write.receipt.losses, options)) {
    write.outcome = WriteOutcome::kLosses;
    return write;
  }
  ReceiptListener listener(store, facts, options, write);
  mps::SaveFile(store, path, options.layout, facts, listener, mps::BackupManner::kBeside);
  return write;
}

}  // namespace quarvel::inspect
