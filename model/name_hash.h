// The hash of names, with secret numbers that each process draws for itself. Names come from files that
// anybody may have written: with a hash that everybody can compute, a file could hold names that all
// belong to one place of a table, and every look-up would walk through all of them.
//
// What is drawn at random makes this safe, not that the mixing is hard to see through. Both hashes
// add up products of the 32-bit words of a name, each taken together with secret numbers of its own
// (pair-multiply-shift), modulo 2^64. For any two names, chosen without knowing those numbers, the
// upper halves of the two sums are independent and uniformly distributed: two names meet as often
// as by pure chance, whatever they are. Names of so many bytes that there would be no secret
// numbers left for their words are hashed by SipHash-1-3 instead, whose key is secret too.
//
// Nothing that anybody can see may depend on the numbers drawn.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quarvel::model {

class NameHash {
 public:
  // Names of more bytes are hashed in another way.
  static constexpr std::size_t kMostInSums = 64;
  // For Place, for the length of a name, for its words, and for SipHash.
  static constexpr std::size_t kSecrets = 4 + 2 + kMostInSums / 4 + 2;
  using Secrets = std::array<std::uint64_t, kSecrets>;

  explicit NameHash(const Secrets& secrets) : secrets_(secrets) {}

  // That of this process. Its numbers are drawn from the system when the program or the component
  // is loaded, so that no look-up has to ask whether there are any; nothing that is made as early
  // may hash names.
  static const NameHash& OfProcess() { return kOfProcess; }

  // Where in a table those 96 bits belong. The last step moves none to where another one is: it
  // only scatters names that differ in a counter, whose sums lie at even distances.
  std::uint32_t Place(std::uint64_t low, std::uint32_t high) const {
    const std::uint64_t sum = secrets_[0] +
                              (secrets_[1] + (low >> 32)) * (secrets_[2] + (low & 0xFFFFFFFFu)) +
                              secrets_[3] * high;
    const std::uint32_t place = static_cast<std::uint32_t>(sum >> 32) * 0x9E3779B1u;
    return place ^ (place >> 15);
  }

  // 64 bits that stand for a name of any length.
  std::uint64_t Digest(std::string_view name) const {
    return name.size() <= kMostInSums ? Sum(name) : SipHash(name);
  }

 private:
  static constexpr std::size_t kSumSecrets = 4;
  static constexpr std::size_t kWordSecrets = kSumSecrets + 2;

  static Secrets Draw();
  std::uint64_t Sum(std::string_view name) const {
    const std::uint64_t* secret = secrets_.data() + kWordSecrets;
    std::uint64_t sum = secrets_[kSumSecrets] + secrets_[kSumSecrets + 1] * name.size();
    const auto add = [&sum, &secret](std::uint64_t word) {
      sum += (secret[0] + (word >> 32)) * (secret[1] + (word & 0xFFFFFFFFu));
      secret += 2;
    };
    if (name.size() < sizeof(std::uint64_t)) {
      add(LastWord(name));
      return sum;
    }
    const char* const last = name.data() + name.size() - sizeof(std::uint64_t);
    for (const char* p = name.data(); p < last; p += sizeof(std::uint64_t)) add(Word(p));
    add(Word(last));  // may take some bytes twice
    return sum;
  }
  static std::uint64_t Word(const char* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
  }
  // The bytes that are left over behind whole words, and the length above them.
  static std::uint64_t LastWord(std::string_view name);
  std::uint64_t SipHash(std::string_view name) const;

  static const NameHash kOfProcess;

  Secrets secrets_;
};

}  // namespace quarvel::model
