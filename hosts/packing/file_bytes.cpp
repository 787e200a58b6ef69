#include "hosts/packing/file_bytes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "hosts/packing/decoder.h"
#include "hosts/packing/packing.h"
#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/system_file.h"

namespace quarvel::hosts {
namespace {

using platform::ByteSource;

// Bytes of which the first few were looked at already.
class LookedAt : public ByteSource {
 public:
  explicit LookedAt(std::unique_ptr<ByteSource> bytes) : bytes_(std::move(bytes)) {
    for (std::size_t count = 1; count > 0 && end_ < kPackingBytes; end_ += count) {
      count = bytes_->Read(first_.data() + end_, kPackingBytes - end_);
    }
  }
  std::string_view first() const { return {first_.data(), end_}; }

  std::uint64_t size() const override { return bytes_->size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = std::min(capacity, end_ - begin_);
    if (count == 0) return bytes_->Read(buffer, capacity);
    std::memcpy(buffer, first_.data() + begin_, count);
    begin_ += count;
    return count;
  }

 private:
  std::unique_ptr<ByteSource> bytes_;
  std::array<char, kPackingBytes> first_{};
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
};

bool IsLinkToItself(const std::string& path) {
  std::error_code error;
  static_cast<void>(std::filesystem::status(std::u8string(path.begin(), path.end()), error));
  return error == std::errc::too_many_symbolic_link_levels;
}

}  // namespace

bool IsFolder(const std::string& path) {
  const auto info = platform::AskSystemAbout(path);
  return info && info->is_folder;
}

std::unique_ptr<ByteSource> OpenFile(const std::string& path) {
  try {
    return std::make_unique<platform::FileBytes>(platform::InputFile(path));
  } catch (const AutomationError& error) {
    if (IsFolder(path)) throw AutomationError(error.number(), "", "it is a folder, not a file");
    if (!IsLinkToItself(path)) throw;
    throw AutomationError(error.number(), "", "it is a link that leads back to itself");
  }
}

std::unique_ptr<ByteSource> Unpacked(std::unique_ptr<ByteSource> bytes) {
  auto looked_at = std::make_unique<LookedAt>(std::move(bytes));
  const Packing* const packing = PackingOfBytes(looked_at->first());
  if (packing == nullptr) return looked_at;
  auto unpacked = std::make_unique<LookedAt>(packing->unpack(std::move(looked_at)));
  const Packing* const inner = PackingOfBytes(unpacked->first());
  if (inner == nullptr) return unpacked;
  if (inner->suffix.empty()) return inner->unpack(std::move(unpacked));
  RaiseInputFailure("this is packed twice, by " + std::string(packing->name) + " and within by " +
                    std::string(inner->name) + ": unpack it once first");
}

}  // namespace quarvel::hosts
