#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/word_library.h"
#include "core/word_list.h"

namespace voxilane {

// The two stores that know transcriptions.
struct Stores {
  const WordList& list;
  WordLibrary& library;
};

enum class LookupStep { none, list, data, ruleList, ruleData };

// The order in which a caller asks the stores, and whether it trims blanks from the word first. No
// step tells upper from lower case.
struct LookupChain {
  std::array<LookupStep, 4> steps;
  bool trimsWord;
};

// The selected word, and the layouts `self`, `word1`, `word2`.
inline constexpr LookupChain libraryFirstChain{
    {LookupStep::list, LookupStep::data, LookupStep::ruleData, LookupStep::ruleList}, true};
// The layout `dangqian`.
inline constexpr LookupChain dangqianChain{
    {LookupStep::list, LookupStep::data, LookupStep::ruleList, LookupStep::ruleData}, true};
// The layouts `up` and `down`.
inline constexpr LookupChain alignedChain{
    {LookupStep::list, LookupStep::ruleList, LookupStep::data, LookupStep::ruleData}, false};
// The two chains of the syllable statistics.
inline constexpr LookupChain listChain{
    {LookupStep::list, LookupStep::ruleList, LookupStep::none, LookupStep::none}, true};
inline constexpr LookupChain dataChain{
    {LookupStep::data, LookupStep::ruleData, LookupStep::none, LookupStep::none}, true};

struct LookupResult {
  std::string yinbiao;  // as stored; empty on a miss
  LookupStep source = LookupStep::none;
};

// The first answer that is not empty, and where it came from.
LookupResult lookUp(const Stores& stores, const LookupChain& chain, std::string_view word);

}  // namespace voxilane
