#include "hosts/standard_output.h"

#include <new>

namespace quarvel::hosts {

OutputBuffer::OutputBuffer(Writer writer) : writer_(writer) {
  setp(bytes_.data(), bytes_.data() + bytes_.size());
}

WriteResult OutputBuffer::Finish() {
  HandOver();
  return result_;
}

OutputBuffer::int_type OutputBuffer::overflow(int_type c) {
  if (!HandOver()) return traits_type::eof();
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  return sputc(traits_type::to_char_type(c));
}

int OutputBuffer::sync() { return HandOver() ? 0 : -1; }

bool OutputBuffer::HandOver() {
  const std::string_view bytes(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  try {
    if (result_ == WriteResult::kWritten && !bytes.empty()) result_ = writer_(bytes);
  } catch (const std::bad_alloc&) {
    result_ = WriteResult::kFailed;
  }
  setp(bytes_.data(), bytes_.data() + bytes_.size());
  return result_ == WriteResult::kWritten;
}

}  // namespace quarvel::hosts
