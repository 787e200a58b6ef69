#include <exception>
#include <utility>

#include "api/parts.h"
#include "api/streams.h"
#include "inspect/write_file.h"
#include "quarvel/files.h"

namespace quarvel {
namespace {

class TextSink : public platform::ByteSink {
 public:
  void Write(std::string_view bytes) override { text_ += bytes; }
  std::string& text() { return text_; }

 private:
  std::string text_;
};

// The caller's progress function. A save takes what is thrown within it for a failure of the system, so
// that it is kept until the save has ended.
class Progress {
 public:
  explicit Progress(const WriteOptions& options) : options_(options) {}

  inspect::WriteOptions InnerOptions() {
    inspect::WriteOptions inner;
    const bool exact = options_.layout == Layout::kExact;
    inner.layout = exact ? mps::FileLayout::kFree : mps::FileLayout::kFixed;
    inner.allow_changes = options_.allow_changes;
    inner.strict = options_.strict;
    if (options_.on_progress) {
      inner.on_progress = [this](const inspect::WriteProgress& progress) { return Tell(progress); };
    }
    return inner;
  }
  void Rethrow() const {
    if (thrown_) std::rethrow_exception(thrown_);
  }

 private:
  bool Tell(const inspect::WriteProgress& progress) {
    if (thrown_) return false;
    try {
      return options_.on_progress(static_cast<WriteStage>(progress.stage), progress.part);
    } catch (...) {
      thrown_ = std::current_exception();
      return false;
    }
  }

  const WriteOptions& options_;
  std::exception_ptr thrown_;
};

static_assert(api::IsSameNumber(WriteStage::kWriting, inspect::WriteStage::kWriting));
static_assert(api::IsSameNumber(WriteStage::kVerifying, inspect::WriteStage::kVerifying));
static_assert(api::IsSameNumber(LossWeight::kBreaks, mps::LossWeight::kBreaks));
static_assert(api::IsSameNumber(LossWeight::kChanges, mps::LossWeight::kChanges));
static_assert(api::IsSameNumber(LossWeight::kNoted, mps::LossWeight::kNoted));
static_assert(api::IsSameNumber(WriteOutcome::kWritten, inspect::WriteOutcome::kWritten));
static_assert(api::IsSameNumber(WriteOutcome::kNothing, inspect::WriteOutcome::kNothing));
static_assert(api::IsSameNumber(WriteOutcome::kLosses, inspect::WriteOutcome::kLosses));
static_assert(api::IsSameNumber(WriteOutcome::kNotSame, inspect::WriteOutcome::kNotSame));
static_assert(api::IsSameNumber(WriteOutcome::kFailed, inspect::WriteOutcome::kFailed));

Loss PublicLoss(const mps::LossGroup& group) {
  Loss loss = {.weight = static_cast<LossWeight>(mps::WeightOf(group.kind)),
               .name = mps::NameOf(group.kind),
               .count = group.count};
  for (const mps::Loss& named : group.named) loss.sentences.push_back(named.Sentence());
  return loss;
}

Receipt PublicReceipt(const inspect::FileWrite& write) {
  const inspect::Receipt& inner = write.receipt;
  Receipt receipt = {.outcome = static_cast<WriteOutcome>(write.outcome),
                     .rows = inner.rows,
                     .columns = inner.columns,
                     .elements = inner.coefficients,
                     .is_read_again = inner.is_read_again,
                     .equal_rows = inner.equal_rows,
                     .equal_columns = inner.equal_columns,
                     .equal_elements = inner.equal_coefficients,
                     .losses = {},
                     .unexpected = inner.unexpected,
                     .fits_fixed_columns = write.long_field.empty(),
                     .failure = write.failure ? write.failure->description() : std::string(),
                     .notes = write.notes};
  for (const mps::LossGroup& group : inner.losses.groups()) {
    receipt.losses.push_back(PublicLoss(group));
  }
  return receipt;
}

Receipt Write(Model& model, const std::string& path, const WriteOptions& options,
              const api::Packer& packer) {
  ModelParts& parts = ModelAccess::Of(model);
  const api::Work work(parts);
  Progress progress(options);
  Receipt receipt = api::Translated([&] {
    inspect::WriteOptions inner = progress.InnerOptions();
    inner.pack = packer.pack;
    inner.unpack = packer.unpack;
    return PublicReceipt(inspect::WriteFile(parts.store, parts.facts, path, inner));
  });
  progress.Rethrow();
  return receipt;
}

}  // namespace

bool Receipt::is_whole() const {
  return is_written() && is_read_again && losses.empty() && unexpected.empty();
}

Receipt WriteFile(Model& model, const std::string& path, const WriteOptions& options) {
  return Write(model, path, options, {});
}

Receipt api::WritePacked(Model& model, const std::string& path, const Packer& packer,
                         const WriteOptions& options) {
  return Write(model, path, options, packer);
}

Receipt WriteText(const Model& model, std::string& text, const WriteOptions& options) {
  ModelParts& parts = ModelAccess::Of(model);
  const api::Work work(parts);
  Progress progress(options);
  TextSink sink;
  Receipt receipt = api::Translated([&] {
    return PublicReceipt(
        inspect::WriteStream(parts.store, parts.facts, sink, progress.InnerOptions()));
  });
  progress.Rethrow();
  if (receipt.is_written()) text = std::move(sink.text());
  return receipt;
}

}  // namespace quarvel
