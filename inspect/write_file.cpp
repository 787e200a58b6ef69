#include "inspect/write_file.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <string_view>
#include <utility>

#include "mps/file_save.h"
#include "mps/model_writer.h"

namespace quarvel::inspect {
namespace {

using platform::ByteSink;
using platform::ByteSource;

std::string LongFieldOf(const mps::ModelWriter& writer) {
  return writer.long_field() ? mps::TextOf(*writer.long_field()) : "";
}

class FileSink : public ByteSink {
 public:
  explicit FileSink(platform::OutputFile& file) : file_(file) {}
  void Write(std::string_view bytes) override { file_.Write(bytes); }

 private:
  platform::OutputFile& file_;
};

// Tells how far a write is.
class Course {
 public:
  Course(const model::ModelStore& store, const WriteOptions& options)
      : options_(options), all_lines_(options.on_progress ? mps::LinesToWrite(store) : 0) {}

  // Raises a failure when that gives up.
  void Written(std::string_view piece) {
    if (!options_.on_progress) return;
    bytes_ += piece.size();
    lines_ += std::count(piece.begin(), piece.end(), '\n');
    const double part = static_cast<double>(lines_) / static_cast<double>(all_lines_ + 1);
    if (!options_.on_progress({WriteStage::kWriting, bytes_, std::min(part, 1.0)})) {
      throw AutomationError(static_cast<std::int32_t>(RunTimeError::kDeviceIoError), "", "stopped");
    }
  }

  // What is packed is of unknown size when it is read; how much was written is known.
  std::function<bool(std::uint64_t, std::uint64_t)> Verifying() const {
    if (!options_.on_progress) return {};
    return [this](std::uint64_t done, std::uint64_t) {
      const double part = static_cast<double>(done) / static_cast<double>(bytes_ + 1);
      return options_.on_progress({WriteStage::kVerifying, done, std::min(part, 1.0)});
    };
  }

 private:
  const WriteOptions& options_;
  std::int64_t all_lines_;
  std::int64_t lines_ = 0;
  std::uint64_t bytes_ = 0;
};

class ReceiptListener : public mps::SaveListener {
 public:
  ReceiptListener(const model::ModelStore& store, const mps::FileFacts& facts,
                  const WriteOptions& options, FileWrite& write)
      : store_(store), facts_(facts), options_(options), write_(write), course_(store, options) {}

  void Take(std::string_view piece, platform::OutputFile& file) override {
    if (!options_.pack) {
      file.Write(piece);
    } else {
      if (!packer_) packer_ = options_.pack(stored_.emplace(file));
      packer_->Write(piece);
    }
    course_.Written(piece);
  }

  bool Accepts(platform::FileReplacement& file) override {
    if (packer_) packer_->Finish();
    auto contents = file.Review();
    // What went to the file itself is there already.
    if (!contents) return true;
    std::unique_ptr<ByteSource> bytes = std::make_unique<platform::FileBytes>(std::move(*contents));
    if (options_.unpack) bytes = options_.unpack(std::move(bytes));
    CompareWithFile(store_, facts_, std::move(bytes), write_.receipt, course_.Verifying());
    if (write_.receipt.unexpected.empty()) return true;
    write_.outcome = WriteOutcome::kNotSame;
    return false;
  }
  void Kept(const std::string& name) override { write_.kept = name; }
  void BackupStays(const std::string& name) override { write_.backup = name; }
  void NothingWritten() override { write_.outcome = WriteOutcome::kNothing; }
  void Written(const mps::ModelWriter& writer) override {
    write_.long_field = LongFieldOf(writer);
    write_.outcome = WriteOutcome::kWritten;
  }
  void Failed(const AutomationError& failure, const std::string& notes) override {
    write_.outcome = WriteOutcome::kFailed;
    write_.failure = failure;
    write_.notes = notes;
  }

 private:
  const model::ModelStore& store_;
  const mps::FileFacts& facts_;
  const WriteOptions& options_;
  FileWrite& write_;
  Course course_;
  std::optional<FileSink> stored_;
  std::unique_ptr<ByteSink> packer_;
};

// What was written, in memory.
class Pieces {
 public:
  void Add(std::string_view piece) { pieces_.emplace_back(piece); }
  void WriteTo(ByteSink& to) const {
    for (const std::string& piece : pieces_) to.Write(piece);
    to.Finish();
  }

  class Source : public ByteSource {
   public:
    explicit Source(const Pieces& pieces) : pieces_(pieces.pieces_) {}
    std::uint64_t size() const override { return 0; }
    std::size_t Read(char* buffer, std::size_t capacity) override {
      while (piece_ < pieces_.size() && at_ == pieces_[piece_].size()) {
        ++piece_;
        at_ = 0;
      }
      if (piece_ == pieces_.size()) return 0;
      const std::size_t count = std::min(capacity, pieces_[piece_].size() - at_);
      std::memcpy(buffer, pieces_[piece_].data() + at_, count);
      at_ += count;
      return count;
    }

   private:
    const std::deque<std::string>& pieces_;
    std::size_t piece_ = 0;
    std::size_t at_ = 0;
  };

 private:
  std::deque<std::string> pieces_;
};

bool IsAllowed(const mps::Losses& losses, const WriteOptions& options) {
  if (options.strict) return losses.groups().empty();
  return !losses.Has(mps::LossWeight::kBreaks) &&
         (options.allow_changes || !losses.Has(mps::LossWeight::kChanges));
}

// True when there is something to write that may be written; else the outcome says why not.
bool Prepare(const model::ModelStore& store, const mps::FileFacts& facts,
             const WriteOptions& options, FileWrite& write) {
  if (store.NumberOfElements() == 0) {
    write.outcome = WriteOutcome::kNothing;
    return false;
  }
  write.receipt = ReceiptOf(store, facts, options.layout);
  if (IsAllowed(write.receipt.losses, options)) return true;
  write.outcome = WriteOutcome::kLosses;
  return false;
}

}  // namespace

FileWrite WriteFile(model::ModelStore& store, const mps::FileFacts& facts, const std::string& path,
                    const WriteOptions& options) {
  FileWrite write;
  if (!Prepare(store, facts, options, write)) return write;
  ReceiptListener listener(store, facts, options, write);
  mps::SaveFile(store, path, options.layout, facts, listener,
                {.backup = mps::BackupManner::kBeside, .read_as = options.read_as});
  return write;
}

FileWrite WriteStream(const model::ModelStore& store, const mps::FileFacts& facts, ByteSink& to,
                      const WriteOptions& options) {
  FileWrite write;
  if (!Prepare(store, facts, options, write)) return write;
  Course course(store, options);
  Pieces pieces;
  try {
    mps::ModelWriter writer(store, options.layout, facts);
    writer.Write([&](std::string_view piece) {
      pieces.Add(piece);
      course.Written(piece);
    });
    write.long_field = LongFieldOf(writer);
    CompareWithFile(store, facts, std::make_unique<Pieces::Source>(pieces), write.receipt,
                    course.Verifying());
    write.outcome = WriteOutcome::kNotSame;
    if (!write.receipt.unexpected.empty()) return write;
    pieces.WriteTo(to);
    write.outcome = WriteOutcome::kWritten;
  } catch (const AutomationError& failure) {
    write.outcome = WriteOutcome::kFailed;
    write.failure = failure;
  }
  return write;
}

}  // namespace quarvel::inspect
