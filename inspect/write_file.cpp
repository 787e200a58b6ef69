#include "inspect/write_file.h"

#include <utility>

#include "mps/file_save.h"

namespace quarvel::inspect {
namespace {

class ReceiptListener : public mps::SaveListener {
 public:
  ReceiptListener(const model::ModelStore& store, const mps::FileFacts& facts, FileWrite& write)
      : store_(store), facts_(facts), write_(write) {}

  bool Accepts(platform::FileReplacement& file) override {
    if (auto contents = file.Review()) {
      CompareWithFile(store_, facts_, std::move(*contents), write_.receipt);
    }
    if (write_.receipt.unexpected.empty()) return true;
    write_.outcome = WriteOutcome::kNotSame;
    return false;
  }
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
  const model::ModelStore& store_;
  const mps::FileFacts& facts_;
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
  ReceiptListener listener(store, facts, write);
  mps::SaveFile(store, path, options.layout, facts, listener);
  return write;
}

}  // namespace quarvel::inspect
