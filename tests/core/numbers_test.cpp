#include "core/numbers.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "core/number_parser.h"
#include "tests/support/table.h"

namespace voxilane {
namespace {

const Brackets narrow = bracketsOfStyle("[");
constexpr std::string_view notANumber = "存在非数字字符！";
constexpr std::string_view notDigits = "存在非数字符号！";

// A reading as one line: each run behind the name of its colour, or the refusal.
std::string shown(const NumberReading& reading) {
  if (reading.refusal) return reading.runs.empty() ? *reading.refusal : "refused with runs";
  std::string line;
  for (const auto& [color, text] : reading.runs) {
    line += color == RunColor::blue ? "blue" : color == RunColor::red ? "red" : "black";
    line += text;
  }
  return line;
}

TEST(Numbers, AreReadInGroupsOfAllLengths) {
  for (const auto& [text, expected] : tableOf<2>(R"(
      ~ ~   7 blue[[5seven]]   0 blue[]   007 blue[[5seven]]   _42_ blue[5fR:tI-][tu:]
      30 blue[5W3:tI]   31 blue[5W3:tI-[wQn]   19 blue[5nain5ti:n_]   25 blue[5twenti_][faIv]
      97 blue[5naIntI-][5seven]   ８０ blue[5eItI]   100 blue[wQn][5hQndrId]
      318 blue[Wri:][5hQndrId][End][5ei5ti:n]
      2000 blue[tu:][5WaJzEnd]
      1005 blue[wQn][5WaJzEnd]red[End][faIv]
      12345 blue[twelv][_5WaJzEnd_]red[Wri:][5hQndrId][End][5fR:tI-][faIv]
      600071 blue[sIks][5hQndrId][5WaJzEnd]red[End][sevntI-][wQn]
      1000000 blue[wQn][5mIljEn]
      9002001 blue[naIn][5mIljEn]red[End][tu:][5WaJzEnd]blue[End][wQn]
      13000666 blue[5WE:5ti:n][5mIljEn][sIks][5hQndrId][End][sIkstI-][sIks]
      100014000 blue[wQn][5hQndrId][5mIljEn]red[End][5fR:5ti:n][5WaJzEnd]
      1000002015 red[wQn][5bIljEn][End][tu:][5WaJzEnd]blue[End][5fif5ti:n]
      17016080090 red[5sevEn5ti:n][5bIljEn]blue[End][5sIks5ti:n][5mIljEn]red[End][5eItI][5WaJzEnd]blue[End][5naIntI]
      200020050011 red[tu:][5hQndrId][5bIljEn]blue[End][5twenti][5mIljEn]red[End][5fIftI][5WaJzEnd]blue[End][i5levn]
      2000200500119 red[tu:][5hQndrId][5bIljEn]blue[End][5twenti][5mIljEn]red[End][5fIftI][5WaJzEnd]blue[End][i5levn]
      20002005001.9 red[5twenti][5bIljEn]blue[End][tu:][5mIljEn]red[End][faIv][5WaJzEnd]blue[End][wQn]black_pCint_blue5ziErEu
      0.5 blue[]black_pCint_blue[faIv]         .050 blue[]black_pCint_blue5ziErEu[faIv]
      60.101 blue[sIkstI]black_pCint_blue[wQn]5ziErEu[wQn]
      １２。５０ blue[twelv]black_pCint_blue[faIv])")) {
    EXPECT_EQ(shown(readNumber(text, narrow)), expected) << text;
  }
  EXPECT_EQ(shown(readNumber("31", bracketsOfStyle("/"))), "blue/5W3:tI-/wQn/");
  EXPECT_EQ(shown(readNumber("14", bracketsOfStyle("|"))), "blue 5fR:5ti:n ");
}

TEST(Numbers, RefuseWhatIsNoPlainNumber) {
  for (const auto& [text] : tableOf<1>("abc -5 +5 1e3 1,000 1.2.3 12a . 1_2 1e999 十 0x10")) {
    EXPECT_EQ(shown(readNumber(text, narrow)), notANumber) << text;
  }
  EXPECT_EQ(shown(readNumber("100000000000abc", narrow)), "red[wQn][5hQndrId][5bIljEn]");
}

TEST(Phones, AreReadDigitByDigitWithoutTheirLeadingZeros) {
  for (const auto& [text, expected] : tableOf<2>(R"(
      010 blue[_wQn_][_Eu_]   0 ~   ~ ~   ００８６ blue[_eIt_][_sIks_]
      12345678900001 blue[_wQn_][_tu:_][_Wri:_][_fR:_][_faIv_][_sIks_][_5seven_][_eIt_][_naIn_][_Eu_][_Eu_][_Eu_][_Eu_][_wQn_])")) {
    EXPECT_EQ(shown(readPhone(text, narrow)), expected) << text;
  }
  for (const auto& [text] : tableOf<1>("555-1234 1.5 0.5 +86 1e3 abc")) {
    EXPECT_EQ(shown(readPhone(text, narrow)), notDigits) << text;
  }
}

TEST(Years, AreReadByTheirLengthAndTheirZeros) {
  for (const auto& [text, expected] : tableOf<2>(R"(
      7 blue[5seven]                                    45 blue[5fR:tI-][faIv]
      476 blue[fR:][5hQndrId][_End_][sevntI-][sIks]     100 blue[wQn][5hQndrId][_End_]
      0476 blue[fR:][5hQndrId][_End_][sevntI-][sIks]    1900 blue[5nain5ti:n_][5hQndrId]
      2000 blue[tu:][_5WaJzEnd_]                        3100 blue[5W3:tI-[wQn][5hQndrId]
      2005 blue[tu:][5WaJzEnd_][End][faIv]              1905 blue[5nain5ti:n_][_End_][faIv]
      2010 blue[5twenti][ten]                           1066 blue[ten][sIkstI-][sIks]
      １９８４ blue[5nain5ti:n_][5eItI-][fR:]           12345 ~   0 ~   ~ ~   abc ~)")) {
    EXPECT_EQ(shown(readYear(text, narrow)), expected) << text;
  }
  for (const auto& [text] : tableOf<1>("-44 19.5 1e3")) {
    EXPECT_EQ(shown(readYear(text, narrow)), notDigits) << text;
  }
}

TEST(Numbers, AreCleanedBeforeTheyAreRead) {
  for (const auto& [text, clean] : tableOf<2>(R"(
      ~ ~  ___ ~  000 0  0.00 0  -0 0  0070 70  00.50 0.5  .5 0.5  5. 5.0  5.00 5.0  100 100
      100.100 100.1  1,000 1,000  1e5 1e5  １。５ 1.5  １．５ fault  x fault  5_5 fault)")) {
    EXPECT_EQ(cleanNumber(text).value_or("fault"), clean) << text;
  }
}

TEST(Numbers, TheParserTakesWhatPeopleWrite) {
  for (const auto& [text, value] :
       tableOf<2>("_-1,234.5_ -1234.5  +2.5e-1 0.25  5. 5  .5E1 5  1,,2 12")) {
    EXPECT_EQ(parseNumber(text), std::stod(value)) << text;
  }
  for (const auto& [text] : tableOf<1>("~ . e5 1e ,5 1e999 --1 nan inf 5x")) {
    EXPECT_EQ(parseNumber(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace voxilane
