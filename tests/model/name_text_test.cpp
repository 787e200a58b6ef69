#include "model/name_text.h"

#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

// Around the most that stands in place, and much more. Each has bytes of its own.
std::vector<std::string> Texts() {
  std::vector<std::string> texts;
  for (const std::size_t size : {0u, 1u, 8u, 12u, 13u, 14u, 15u, 16u, 20u, 255u, 256u, 70'000u}) {
    std::string text;
    for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('!' + (i + size) % 90);
    texts.push_back(text);
  }
  texts.emplace_back("\0with\0NULs\0", 11);
  texts.emplace_back("a long name \0with\0NULs\0", 23);
  texts.emplace_back("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  return texts;
}

void ExpectIs(const NameText& name, const std::string& text) {
  EXPECT_EQ(name.view(), text);
  EXPECT_EQ(name.size(), text.size());
  EXPECT_EQ(name.empty(), text.empty());
  EXPECT_EQ(std::string(name.data(), name.size()), text);
  EXPECT_EQ(std::string(name), text);
  EXPECT_TRUE(name == std::string_view(text));
  EXPECT_FALSE(name == std::string_view(text + "."));
}

TEST(NameText, IsEmptyInTheBeginning) { ExpectIs(NameText(), ""); }

TEST(NameText, TakesFifteenBytesWithinARecord) { EXPECT_EQ(sizeof(NameText), 15u); }

TEST(NameText, HoldsATextOfAnyLength) {
  for (const std::string& text : Texts()) ExpectIs(NameText(text), text);
}

TEST(NameText, OnlyALongTextStandsElsewhere) {
  const auto stands_in_place = [](const NameText& name) {
    const auto* const begin = reinterpret_cast<const char*>(&name);
    return name.data() >= begin && name.data() < begin + sizeof name;
  };
  EXPECT_TRUE(stands_in_place(NameText(std::string(14, 'x'))));
  EXPECT_FALSE(stands_in_place(NameText(std::string(15, 'x'))));
}

TEST(NameText, ACopyIsAnother) {
  for (const std::string& text : Texts()) {
    NameText name(text);
    NameText copy(name);  // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_TRUE(copy == name);
    name = std::string_view("X");
    ExpectIs(copy, text);
    ExpectIs(name, "X");
  }
}

TEST(NameText, WhatWasMovedIsEmpty) {
  for (const std::string& text : Texts()) {
    NameText name(text);
    const NameText moved(std::move(name));
    ExpectIs(moved, text);
    ExpectIs(name, "");  // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
  }
}

TEST(NameText, AnyTextMayTakeThePlaceOfAnyOther) {
  for (const std::string& before : Texts()) {
    for (const std::string& after : Texts()) {
      NameText name(before);
      name = std::string_view(after);
      ExpectIs(name, after);
      NameText copied(before);
      copied = name;
      ExpectIs(copied, after);
      ExpectIs(name, after);
      NameText moved(before);
      moved = std::move(name);
      ExpectIs(moved, after);
    }
  }
}

TEST(NameText, MayBeAssignedToItselfAndToAPartOfItself) {
  for (const std::string& text : Texts()) {
    NameText name(text);
    const NameText& same = name;
    name = same;
    ExpectIs(name, text);
    NameText& moved = name;
    name = std::move(moved);
    ExpectIs(name, text);
    name = name.view().substr(text.size() / 2);
    ExpectIs(name, text.substr(text.size() / 2));
  }
}

TEST(NameText, IsPutIntoTexts) {
  const NameText name(std::string_view("COST"));
  EXPECT_EQ("row " + name, "row COST");
  std::ostringstream out;
  out << name << NameText(std::string_view("A NAME OF TWENTY   X"));
  EXPECT_EQ(out.str(), "COSTA NAME OF TWENTY   X");
}

}  // namespace
}  // namespace quarvel::model
