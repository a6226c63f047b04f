#pragma once

#include <string>
#include <string_view>

#include "annotation/parameters.h"
#include "core/word_library.h"
#include "core/word_list.h"
#include "platform/result.h"
#include "platform/sqlite/sqlite_library.h"

// The files that the program works with, in the directory of its executable or another one.

namespace voxilane {

inline constexpr std::string_view dictionaryName = "dictionary.txt";
inline constexpr std::string_view libraryName = "data.dat";
inline constexpr std::string_view ownEntriesName = "selfmake.dat";
inline constexpr std::string_view parametersName = "canshushezhi.txt";

std::string pathIn(const std::string& directory, std::string_view name);

// The list of dictionary.txt. A missing file is an error: the program cannot go on without it.
Result<WordList> loadWordList(const std::string& directory);

// The library of data.dat; a missing file gives one in which every word is a miss.
Result<WordLibrary> openWordLibrary(const std::string& directory, LibraryTables needed);

// The parameters of canshushezhi.txt, defaults where it is missing or cannot be read.
CanshuSet loadParameters(const std::string& directory);

// How many entries selfmake.dat holds: the lines with a comma. 0 when there is no such file.
Result<std::size_t> countOwnEntries(const std::string& directory);

}  // namespace voxilane
