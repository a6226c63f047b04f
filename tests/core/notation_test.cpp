#include "core/notation.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "core/ipa.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(Notation, EveryMappedCodeHasItsCharacterAndItsEntity) {
  EXPECT_EQ(codeToUnicode("5723ATNBCEZIFJQVW"), "ˈˌɐɜæðŋɑɔəɛɪʃʊʌʒθ");
  EXPECT_EQ(codeToEntities("5723ATNBCEZIFJQVW"),
            "'.&#592;&#604;&#230;&#240;&#331;&#593;&#596;&#601;&#603;&#618;&#643;&#650;&#652;"
            "&#658;&#952;");
  EXPECT_EQ(codeToEntities("W5Q27"), "&#952;'&#652;&#592;.") << "digits of entities are no codes";
  for (const auto& [unmapped] : tableOf<1>("RUGoaeiu: pbtdkgfvszhmnwjrl _-() fR: ~")) {
    EXPECT_EQ(codeToUnicode(unmapped), unmapped);
    EXPECT_EQ(codeToEntities(unmapped), unmapped);
  }
}

TEST(Notation, FaultsOfStoredTranscriptionsAreTold) {
  for (const auto& [good] : tableOf<1>(R"(
      i: bB:m fa:T fR: 5fC:mEl hu: hE: it eg Ad Qp Rn put E5gRu dei mai bCi nEu nau niE ZE puE
      tFVWTNtrdzwjlhmn 7in5fR:m)")) {
    EXPECT_EQ(notationFault(good), std::nullopt) << good;
  }
  for (const auto& [bad] : tableOf<1>(R"(
      ~ kIt puJt h2t h3: go hU:d G q kA_t wel-nEun (e)it /it/ kæt B a C Z Bt aE CE Cu Ze
      kAt5 5 57kAt 5: : k:A A: i:: 5kAt5kAt)")) {
    EXPECT_TRUE(notationFault(bad)) << bad;
  }
}

TEST(Ipa, CodesBecomeCompleteIpa) {
  EXPECT_EQ(codeToIpa("57:iIeZAaBCR2QE3uJUoFVWTN"), "ˈˌːiɪeɛæaɑɔɔɒʌəɜuʊʊoʃʒθðŋ");
  EXPECT_EQ(codeToIpa("pbtdkgfvszhmnwjrl -()"), "pbtdkgfvszhmnwjrl -()");
  EXPECT_EQ(codeToIpa("fU:l hUd hU"), "fuːl hʊd hʊ");
  std::string out = "/";
  appendIpa(out, "5WiN");
  EXPECT_EQ(out, "/ˈθiŋ");
}

TEST(Ipa, SpellingsOfPeopleAreRead) {
  for (const auto& [ipa, codes] : tableOf<2>(R"(
      ˈkæt 5kAt  'kæt 5kAt  ˌɪn 7In  siː si:  si: si:  ɡʌn gQn  gʌn gQn  ʤʌʤ dVQdV  dʒʌdʒ dVQdV
      ʧɪn tFIn  tʃɪn tFIn  t͡ʃɪn tFIn  d͜ʒɪn dVIn  hɛə hZE  heə heE  ɡəʊ gEJ  ɡoʊ gEJ  bɔɪ bCI
      fɔː fC:  fɔ: fC:  hɔt hRt  hɒt h2t  kɑː kB:  hɜː h3:  pʊt pJt  bʌtn̩ bQtn  ʃʊə FJE
      ˈθɪŋ_ðɪs 5WIN_TIs  ʒ(ə) V(E)  ~ ~)")) {
    const IpaReading reading = ipaToCode(ipa);
    EXPECT_EQ(reading.codes, codes) << ipa;
    EXPECT_FALSE(reading.fault) << ipa;
  }
}

TEST(Ipa, ATieBarWithinADiphthongChangesNothing) {
  EXPECT_EQ(ipaToCode("bɔ͡ɪ").codes, ipaToCode("bɔɪ").codes);
  EXPECT_EQ(ipaToCode("ɡo͡ʊ").codes, ipaToCode("ɡoʊ").codes);
}

TEST(Ipa, WhatCannotBeReadIsNamedWithItsPlace) {
  for (const auto& [ipa, position, symbol, codes] :
       tableOf<4>("ˈkæ?t 4 ? 5kA  ɔːɸ 3 ɸ C:  t͡ʃ猫 4 猫 tF  Kæt 1 K ~  æ5 2 5 A")) {
    const IpaReading reading = ipaToCode(ipa);
    ASSERT_TRUE(reading.fault) << ipa;
    EXPECT_EQ(std::to_string(reading.fault->position), position) << ipa;
    EXPECT_EQ(reading.fault->symbol, symbol);
    EXPECT_EQ(reading.codes, codes);
  }
}

TEST(Ipa, EitherSpellingIsRecognised) {
  for (const auto& [text, codes] : tableOf<2>("5kAt 5kAt  'kat 5kat  kæt kAt")) {
    EXPECT_EQ(codesFromEither(text).codes, codes);
  }
  EXPECT_TRUE(codesFromEither("kæ5").fault);
}

}  // namespace
}  // namespace voxilane
