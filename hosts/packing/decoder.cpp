#include "hosts/packing/decoder.h"

#include <utility>

#include "platform/automation_error.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16;

}  // namespace

Decoder::Decoder(std::unique_ptr<platform::ByteSource> packed, std::string_view name)
    : packed_(std::move(packed)), name_(name), buffer_(new char[kPiece]) {}

bool Decoder::HasInput() {
  if (begin_ < end_) return true;
  begin_ = 0;
  end_ = packed_->Read(buffer_.get(), kPiece);
  return end_ > 0;
}

void Decoder::RaiseDamaged() const {
  RaiseInputFailure("the " + std::string(name_) + " data are damaged");
}

void Decoder::RaiseCutOff() const {
  RaiseInputFailure("the " + std::string(name_) + " data end too early: the file may be cut off");
}

void RaiseInputFailure(std::string description) {
  throw AutomationError(static_cast<std::int32_t>(RunTimeError::kDeviceIoError), "",
                        std::move(description));
}

}  // namespace quarvel::hosts
