#pragma once

#include <optional>
#include <string>
#include <string_view>

// Renames a font in the source text of a rich text file: every run that uses the font's number
// then has the other font, and no run is touched.

namespace voxilane {

inline constexpr std::string_view noSourceFontText = "请选择好要转换的字体!";
inline constexpr std::string_view noTargetFontText = "请选择转换后的字体!";
inline constexpr std::string_view sameFontText = "您选择的是同一种字体，无需转换！";
inline constexpr std::string_view fontNotUsedText =
    "文档没有使用您想替换的字体，没有转换操作发生！";

// A font as it is chosen: the vertical kind of a font, with `@` in front, counts as the font.
std::string_view chosenFont(std::string_view name);

// Whether a name can stand in a font table: it holds no control character and nothing that
// separates entries.
bool isFontName(std::string_view name);

// Why a font cannot be renamed to another, as a message for the user; nothing when it can. A name
// of blanks is none: it would stand for every font.
std::optional<std::string_view> fontChoiceRefusal(std::string_view from, std::string_view to);

// A text as `\'xx` escapes of its bytes in the code page.
std::string gethexcode(std::string_view text);

// The name of a font (UTF-8) as font tables write it: ASCII as it is, a character of GBK as
// gethexcode has it, any other as a Unicode escape. Without blanks at both ends.
std::string getcode1(std::string_view fontname);

// Renames every entry that ends in the name: the name and `;}`. That must occur in front of the
// colour table, and is then replaced wherever it occurs. False, with the source as it was, when it
// does not.
bool renameFont(std::string& source, std::string_view from, std::string_view to);

}  // namespace voxilane
