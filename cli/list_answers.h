#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/context.h"
#include "core/word_library.h"

namespace voxilane {

// The line that answers an item of a list; without its line end.
using Answer = std::function<std::string(std::string_view item)>;

// Answers each item in order, a line for each: the items of the command line or, with none, the
// lines of standard input, each as soon as it has been read. A library that the answers come from
// is read in one go for all that is at hand, and let go while the input is waited for.
void answerItems(Context& context, const std::vector<std::string>& items, const Answer& answer,
                 WordLibrary* library = nullptr);

// Writes a command's whole output to standard output.
void printText(Context& context, std::string_view text);

}  // namespace voxilane
