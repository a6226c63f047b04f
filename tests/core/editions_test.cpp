#include "core/editions.h"

#include <string>

#include <gtest/gtest.h>

#include "core/syllables.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

TEST(Editions, EveryVowelHasItsFormInEveryEdition) {
  // 13th, 15th, K.K., and from the 15th back to the 13th
  for (const auto& [stored, fifteenth, kk, back] : tableOf<4>(R"(
      i: i: i i:   i I I i      e e Z e     A A A A      B: B: B B:   R 2 B R       C 2 B R
      R: R: C R:   C: C: C C:   u J J u     u: u: u u:   Q Q Q Q      E: 3: 3 E:    E E E E
      ei eI e ei   ai aI aI ai  Ci CI CI Ci Ri CI CI Ci  Eu EJ o Eu   au aJ aJ au   iE IE Ir iE
      ZE eE ZE ZE  uE JE Jr uE
      fR: fR: fC fR:      5ziErEu 5zIErEJ 5zIrro 5ziErEu  ZE: Z3: Z3 ZE:   ei: ei: Zi ei:
      uE: J3: J3 uE:      Eu: Eu: Eu Eu:                  Ci: 2i: Bi Ri:
      hU:d hu:d hU:d hu:d fEUld fEJld fEUld fEuld         (e)It (e)It (Z)It (e)it
      5p7b_t-dkgf 5p7b_t-dkgf 5p7b_t-dkgf 5p7b_t-dkgf
      vszFVWThmnNwjrl vszFVWThmnNwjrl vszFVWThmnNwjrl vszFVWThmnNwjrl  ~ ~ ~ ~)")) {
    SCOPED_TRACE(stored);
    EXPECT_EQ(convert13to15(stored), fifteenth);
    EXPECT_EQ(convert13toKK(stored), kk);
    EXPECT_EQ(convert15to13(fifteenth), back);
    EXPECT_EQ(convert15to13(back), back) << "already in the 13th edition";
  }
}

TEST(Editions, TheFifteenthEditionStaysAsItIs) {
  for (const auto& [yinbiao] :
       tableOf<1>("i: I 2 R: C: J u: 3: eI aI CI EJ aJ IE eE JE e A Q E B:")) {
    EXPECT_EQ(convert13to15(yinbiao), yinbiao);
  }
  EXPECT_EQ(convert15to13("hU:d fEUld"), "hU:d fEUld");
}

TEST(Editions, ParameterValuesNameThem) {
  for (const auto& [name, stored, shown] : tableOf<3>(R"(
      new kitEu kItEJ  old kItEJ kitEu  mei kitEu kIto
      New kitEJ kitEJ  xyz kitEJ kitEJ  ~ kitEJ kitEJ)")) {
    EXPECT_EQ(inEdition(stored, editionNamed(name)), shown) << name;
  }
}

TEST(Syllables, AreCountedOnLetters) {
  // A consonant with m, n or l at either end is one more, in more than three characters. Behind a
  // diphthong one letter is passed over. E with a small j is a diphthong; o and U are no vowels.
  for (const auto& [yinbiao, count] : tableOf<2>(R"(
      ~ 0  pst 0  _kAt__ 1  5ziErEu 2  fE: 1  h2t 1  hIt 1
      5teibl 2  5teIbl 2  bQtn 2  film 2  btn 0  Qtn 1  nsiz 2  lAmp 1  mli 1  hAmpt 1  milnt 1
      faiE 2  eiEu 3  eitEu 2  aJE 2  puE 1  ZE 1  5sEjE 1  EjE 1  hU:d 0  gout 1  GtG 2)")) {
    EXPECT_EQ(getYinjieCount(yinbiao), std::stoi(count)) << yinbiao;
  }
}

}  // namespace
}  // namespace voxilane
