#include "core/word_forms.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/made_stores.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

// Asks all four variants about a word in stores that know nothing but one stem. An empty
// expectation means that no rule may reach it.
void expectForm(const std::string& word, const std::string& stem, const std::string& yinbiao,
                const std::string& expected) {
  SCOPED_TRACE(word + " from " + stem + " " + yinbiao);
  MadeStores stores({{stem, yinbiao, "词"}}, {{stem, yinbiao}});
  const bool hit = !expected.empty();
  EXPECT_EQ(inferYinbiaolist(stores.list, word), expected);
  EXPECT_EQ(inferYinbiaodata(stores.library, word), expected);
  EXPECT_EQ(inferJieshi(stores.list, word), hit ? "词" : "");
  EXPECT_EQ(inferWordbase(stores.library, word), hit ? stem : "");
}

TEST(WordForms, EndSoundDecidesTheSoundOfThePluralAndThePast) {
  // a form, its stem, end sounds of the stem and what they take
  for (const auto& [word, stem, codes, appended] : tableOf<4>(R"(
      zorbs   zorb  ptkfhlW  s   zorbs   zorb  szFV    iz  zorbs   zorb  bdgvmnNTjrwieEIAQuR: z
      zorbes  zorb  ptkfhlW  s   zorbes  zorb  szFV    iz  zorbes  zorb  bdgvmnNTjrwieEIAQuR: z
      zorbies zorby ptkfhlW  s   zorbies zorby szFV    iz  zorbies zorby bdgvmnNTjrwieEIAQuR: z
      zorbd   zorb  ptkfshlW t   zorbd   zorb  d       id  zorbd   zorb  bgvzFVmnNTjrwieEIAQuR: d
      zorbed  zorb  td      Id   zorbed  zorb  pkfshlW t   zorbed  zorb  bgvzFVmnNTjrwieEIAQuR: d
      zorbbed zorb  td      Id   zorbbed zorb  pkfshlW t   zorbbed zorb  bgvzFVmnNTjrwieEIAQuR: d
      )")) {
    for (const char code : codes) {
      const std::string yinbiao = std::string("zR") + code;
      expectForm(word, stem, yinbiao, yinbiao + appended);
    }
  }
}

TEST(WordForms, EverySuffixHasItsSoundOrNone) {
  // "logy", "ship", "some" and "ward" never get the sound of their lines. The last letters are
  // searched in the whole list, its commas included.
  for (const auto& [suffix, sound] : tableOf<2>(R"(
      er E  ar E  or E  ly lI  ic Ik  th W  st st  ee 5i:  ty tI  ry rI  an ~  en ~  fy ~  ie ~
      ing IN  ism IzEm  ate (e)It  age IdV  ant eInt  ent eInt  ary eErI  dom dEm  ean i:n
      eer IE  ery eErI  ese i:z  ess ~  est Ist  ful fEl  ial El  ian IEn  ics Iks  ify IfaI
      ise aIz  ish IF  ite aIt  ity ItI  ive aIv  ize aIz  let lIt  ory CrI  ous Es  ure Er
      ule ju:l
      able Ebl  ible Ebl  ance Ens  ence Ens  ator eItE  cide sId  ette it  fold fEUld  hood hU:d
      less lIs  like laIk  ment mEnt  most mEUst  ness nIs  logy ~  ship ~  some ~  ward ~
      ster ~  ware ~  ways ~  wise ~
      arian Ern  ation 5eIFEn  ative eItIv  cracy kreIsI  esque esk  ology ClEdVI  phile faIl
      wards wEdz  r, ~)")) {
    expectForm("zorb" + suffix, "zorb", "5zRb", "5zRb" + sound);
  }
}

TEST(WordForms, StemsAreRebuiltAndLengthLimitsHold) {
  // Characters count, not bytes.
  for (const auto& [word, stem, yinbiao, expected] : tableOf<4>(R"(
      tables table 5teibl 5teibls  hated hate heit heitt         teaches teach ti:tF ti:tFiz
      stopped stop stRp stRpt      running run rQn rQniN         making make meik meikiN
      cities city 5siti 5sitiz     _Running_ run rQn rQniN       information inform fR:m fR:m5eIFEn
      cats cats kAts ~             as a ei ~                     ass as Az Aziz
      er e i: ~                    ber b bi: bi:E                abed a ei eid
      ies y wai ~                  bies by bai baiz              bing b bi: bi:IN
      bing be bi: ~                abing abe eib eibiN           abing a ei eiiN
      bable b bi: bi:Ebl           bation b bi: bi:5eIFEn
      cafés café 5kAfei 5kAfeiz    éd é ei ~                     éing ée i: ~
      zorbéed zorb zRb zRbd        zorb猫ed zorb zRb zRbd        zorb🐈ed zorb zRb ~)")) {
    expectForm(word, stem, yinbiao, expected);
  }
}

TEST(WordForms, RulesAskInOrderAndStopAtTheFirstStem) {
  for (const auto& [word, asked] : tableOf<2>(R"(
      stopped _stoppe_stopp_stop  making _mak_ma_make  cities _citie_citi_city  forwards _forward_for
      dog ~)")) {
    MadeStores stores({}, {});
    EXPECT_EQ(inferWordbase(stores.library, word), "");
    std::string inOrder;
    for (const std::string& stem : stores.made.asked) inOrder += " " + stem;
    EXPECT_EQ(inOrder, asked) << word;
  }
  MadeStores stores({{"hat", "hAt", "帽子"}, {"hate", "heit", "恨"}}, {{"MAKE", "meik"}});
  EXPECT_EQ(inferYinbiaolist(stores.list, "hated"), "heitt");
  EXPECT_EQ(inferJieshi(stores.list, "hated"), "恨");
  EXPECT_EQ(inferWordbase(stores.library, "Making"), "make") << "not the stored word";
}

TEST(WordForms, AFailingLibraryGivesNothingAndLeavesItsFault) {
  MadeStores stores({}, {{"cat", "kAt"}});
  stores.made.failure = "disk";
  EXPECT_EQ(inferYinbiaodata(stores.library, "cats"), "");
  EXPECT_EQ(inferWordbase(stores.library, "cats"), "");
  EXPECT_EQ(stores.library.takeFault()->why, "disk");
}

}  // namespace
}  // namespace voxilane
