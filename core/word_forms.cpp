#include "core/word_forms.h"

#include <array>
#include <functional>
#include <optional>

#include "core/suffix_sounds.h"
#include "core/text.h"

namespace voxilane {
namespace {

// Endings as they are searched: a word's last letters fit when they stand anywhere in the list.
// Repeated endings have no effect.
constexpr std::string_view twoLetterEndings =
    "er,ar,an,th,ty,or,ee,en,st,fy,ic,ed,ee,es,ic,ie,ly,or,ry,th,ty";
constexpr std::string_view threeLetterEndings =
    "ing,ism,ate,age,ant,ent,ary,dom,ean,eer,ent,ery,ese,ess,est,ful,ial,ian,ics,ify,ise,ish,ite,"
    "ity,ive,ize,let,ory,ous,ure,ule";
constexpr std::string_view fourLetterEndings =
    "able,ible,ance,ence,ator,cide,ette,fold,hood,less,like,ment,most,ness,logy,ship,some,ster,"
    "ward,ware,ways,wise";
constexpr std::string_view fiveLetterEndings = "arian,ation,ative,cracy,esque,ology,phile,wards";

struct StemRule {
  std::string_view endings;
  std::size_t endingLength;
  std::size_t longerThan;     // the word must have more characters than this
  std::size_t dropped;        // characters taken from the end, a doubled consonant included
  std::string_view restored;  // what the stem had and the form lost
  SuffixSound sound;
};

constexpr std::array<StemRule, 9> stemRules{{
    {"sd", 1, 2, 1, "", soundOfSingleLetter},
    {twoLetterEndings, 2, 2, 2, "", soundOfTwoLetters},
    {"ed", 2, 3, 3, "", soundOfEd},
    {"ies", 3, 3, 3, "y", soundOfEs},
    {threeLetterEndings, 3, 3, 3, "", soundOfThreeLetters},
    {"ing", 3, 4, 4, "", soundOfIng},
    {"ing", 3, 4, 3, "e", soundOfIng},
    {fourLetterEndings, 4, 4, 4, "", soundOfFourLetters},
    {fiveLetterEndings, 5, 5, 5, "", soundOfFiveLetters},
}};

// What a store knows of a stem; empty when it does not know it.
using StemQuestion = std::function<std::string(std::string_view stem)>;

struct StemHit {
  std::string stem;
  std::string found;  // the store's answer
  std::string_view ending;
  SuffixSound sound;
};

std::string_view endingOf(const StemRule& rule, std::string_view word) {
  return word.substr(word.size() - rule.endingLength);
}

// The stem that a rule makes of a word, when the rule fits it.
std::optional<std::string> stemBy(const StemRule& rule, std::string_view word, std::size_t length) {
  if (length <= rule.longerThan ||
      rule.endings.find(endingOf(rule, word)) == std::string_view::npos) {
    return std::nullopt;
  }
  const auto kept = withoutLast(word, rule.dropped);
  if (!kept) {
    return std::nullopt;
  }
  return std::string(*kept).append(rule.restored);
}

// `word` must be lower-cased and trimmed, and must outlive the result.
std::optional<StemHit> findStem(std::string_view word, const StemQuestion& ask) {
  const std::size_t length = utf16Length(word);
  for (const StemRule& rule : stemRules) {
    auto stem = stemBy(rule, word, length);
    if (!stem) {
      continue;
    }
    std::string found = ask(*stem);
    if (!found.empty()) {
      return StemHit{std::move(*stem), std::move(found), endingOf(rule, word), rule.sound};
    }
  }
  return std::nullopt;
}

std::string inferYinbiao(std::string_view word, const StemQuestion& ask) {
  const std::string form = lowerCased(trimBlanks(word));
  auto hit = findStem(form, ask);
  if (!hit) {
    return {};
  }
  return std::move(hit->found.append(hit->sound(hit->ending, hit->found.back())));
}

}  // namespace

std::string inferYinbiaolist(const WordList& list, std::string_view word) {
  return inferYinbiao(
      word, [&](std::string_view stem) { return std::string(list.Wordlistsearch(stem)); });
}

std::string inferYinbiaodata(WordLibrary& library, std::string_view word) {
  return inferYinbiao(word, [&](std::string_view stem) { return library.Yinbiaofromdata(stem); });
}

std::string inferJieshi(const WordList& list, std::string_view word) {
  const std::string form = lowerCased(trimBlanks(word));
  auto hit = findStem(form, [&](std::string_view stem) { return list.Jieshifromlist(stem); });
  return hit ? std::move(hit->found) : std::string();
}

std::string inferWordbase(WordLibrary& library, std::string_view word) {
  const std::string form = lowerCased(trimBlanks(word));
  auto hit = findStem(form, [&](std::string_view stem) { return library.Wordfromdata(stem); });
  return hit ? std::move(hit->stem) : std::string();
}

}  // namespace voxilane
