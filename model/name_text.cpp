#include "model/name_text.h"

#include <limits>
#include <new>
#include <ostream>

namespace quarvel::model {

static_assert(sizeof(NameText) == NameText::kMostInPlace + 1 && alignof(NameText) == 1);

void NameText::TakeBlock(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
  const Block block{new char[text.size()], static_cast<std::uint32_t>(text.size())};
  text.copy(block.text, text.size());
  std::memcpy(bytes_.data(), &block.text, sizeof block.text);
  std::memcpy(bytes_.data() + sizeof block.text, &block.size, sizeof block.size);
  size_ = kInBlock;
}

std::ostream& operator<<(std::ostream& out, const NameText& name) { return out << name.view(); }

}  // namespace quarvel::model
