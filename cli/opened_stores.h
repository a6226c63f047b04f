#pragma once

#include <optional>

#include "cli/context.h"
#include "core/lookup_chain.h"
#include "shell/program_directory.h"

namespace voxilane {

// Loads the word list of the program directory; reports and gives nothing when it cannot.
std::optional<WordList> loadedWordList(Context& context);

// Opens the library of the program directory, for one thread.
std::optional<WordLibrary> openedLibrary(Context& context, LibraryTables needed);

// Reports a failure of the library since the last call, if there was one.
void reportFault(Context& context, WordLibrary& library);

// Both stores together, for commands that work on one thread.
struct OpenedStores {
  WordList list;
  WordLibrary library;

  Stores stores() { return {list, library}; }
};
std::optional<OpenedStores> openedStores(Context& context, LibraryTables needed);

}  // namespace voxilane
