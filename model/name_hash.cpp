#include "model/name_hash.h"

#include <bit>
#include <chrono>
#include <cstring>
#include <exception>
#include <random>

namespace quarvel::model {
namespace {

struct SipState {
  std::uint64_t v0;
  std::uint64_t v1;
  std::uint64_t v2;
  std::uint64_t v3;

  void Round() {
    v0 += v1;
    v2 += v3;
    v1 = std::rotl(v1, 13) ^ v0;
    v3 = std::rotl(v3, 16) ^ v2;
    v0 = std::rotl(v0, 32);
    v2 += v1;
    v0 += v3;
    v1 = std::rotl(v1, 17) ^ v2;
    v3 = std::rotl(v3, 21) ^ v0;
    v2 = std::rotl(v2, 32);
  }
  void Take(std::uint64_t word) {
    v3 ^= word;
    Round();
    v0 ^= word;
  }
};

}  // namespace

const NameHash NameHash::kOfProcess{Draw()};

// A system without random numbers at hand still gives what nobody who wrote a file before can know.
NameHash::Secrets NameHash::Draw() {
  Secrets secrets;
  try {
    std::random_device system;
    for (std::uint64_t& secret : secrets) secret = std::uint64_t{system()} << 32 | system();
  } catch (const std::exception&) {
    const auto now = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    std::mt19937_64 numbers(static_cast<std::uint64_t>(now) ^
                            reinterpret_cast<std::uintptr_t>(&secrets));
    for (std::uint64_t& secret : secrets) secret = numbers();
  }
  return secrets;
}

std::uint64_t NameHash::LastWord(std::string_view name) {
  std::uint64_t word = 0;
  std::memcpy(&word, name.data() + (name.size() & ~std::size_t{7}), name.size() & 7);
  return word | std::uint64_t{name.size()} << 56;
}

std::uint64_t NameHash::SipHash(std::string_view name) const {
  const std::uint64_t key0 = secrets_[kSecrets - 2];
  const std::uint64_t key1 = secrets_[kSecrets - 1];
  SipState state{key0 ^ 0x736F6D6570736575ull, key1 ^ 0x646F72616E646F6Dull,
                 key0 ^ 0x6C7967656E657261ull, key1 ^ 0x7465646279746573ull};
  for (std::size_t at = 0; at + 8 <= name.size(); at += 8) state.Take(Word(name.data() + at));
  state.Take(LastWord(name));
  state.v2 ^= 0xFF;
  for (int i = 0; i < 3; ++i) state.Round();
  return state.v0 ^ state.v1 ^ state.v2 ^ state.v3;
}

}  // namespace quarvel::model
