#include "cli/commands.h"

#include "core/text.h"

namespace voxilane {

const CLI::Validator utf8Text(
    [](const std::string& text) { return isUtf8(text) ? std::string() : "not UTF-8 text"; }, "");

const CLI::Validator fileName(
    [](const std::string& name) { return name.empty() ? "has no name" : std::string(); }, "");

const CLI::IsMember editionNames({"new", "old", "mei"});
const CLI::IsMember bracketNames({"slash", "square", "none"});
const CLI::IsMember separatorNames({"kongge", "huiche"});

void setBracketsNamed(CanshuSet& canshu, std::string_view name) {
  if (name == "slash") {
    canshu.setBracketStyle("/");
  } else if (name == "square") {
    canshu.setBracketStyle("[");
  } else if (name == "none") {
    canshu.setBracketStyle("|");
  }
}

}  // namespace voxilane
