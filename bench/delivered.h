#pragma once

#include <random>
#include <string>
#include <vector>

#include "core/lookup_chain.h"
#include "shell/program_directory.h"

namespace voxilane::bench {

// The delivered stores, opened once.
struct Delivered {
  WordList list = loadWordList(VOXILANE_PROGRAM_DIRECTORY).value();
  WordLibrary library =
      std::move(openWordLibrary(VOXILANE_PROGRAM_DIRECTORY, LibraryTables::both).value());

  Stores stores() { return {list, library}; }
};

inline Delivered& delivered() {
  static Delivered stores;
  return stores;
}

// Every headword of the library that is in the list, or that is only in the library.
inline std::vector<std::string> headwords(bool inList) {
  std::vector<std::string> words;
  (void)delivered().library.database()->eachWord(
      [&](std::string_view word, std::string_view /*ipa13*/) {
        if (delivered().list.Wordlistsearch(word).empty() != inList) {
          words.emplace_back(word);
        }
      });
  std::shuffle(words.begin(), words.end(), std::mt19937(1));
  return words;
}

// English-like text: listed words, capitals, commas, lines of a hundred words.
inline std::u16string text(std::size_t wordCount) {
  const std::vector<std::string> words = headwords(true);
  std::mt19937 random(2);
  std::u16string out;
  for (std::size_t i = 1; i <= wordCount; ++i) {
    // Squaring the uniform choice makes some words far more frequent than others.
    const double uniform = std::uniform_real_distribution<>(0, 1)(random);
    const auto at = static_cast<std::size_t>(uniform * uniform * static_cast<double>(words.size()));
    out.append(words[at].begin(), words[at].end());
    out += i % 12 == 0 ? u", " : i % 100 == 0 ? u".\r\n" : u" ";
  }
  return out;
}

}  // namespace voxilane::bench
