#include "cli/opened_stores.h"

namespace voxilane {

std::optional<WordList> loadedWordList(Context& context) {
  auto list = loadWordList(context.home);
  const std::string path = pathIn(context.home, dictionaryName);
  if (!list) {
    context.fail(path, list.error().why);
    return std::nullopt;
  }
  if (list.value().ListCount() == 0) {
    context.note(path, "no line of it is an entry");
  } else if (list.value().truncated()) {
    context.note(path, "only its first " + std::to_string(WordList::maxEntries) + " entries count");
  }
  return std::move(list.value());
}

std::optional<WordLibrary> openedLibrary(Context& context, LibraryTables needed) {
  auto library = openWordLibrary(context.home, needed);
  if (!library) {
    context.fail(pathIn(context.home, libraryName), library.error().why);
    return std::nullopt;
  }
  return std::move(library.value());
}

void reportFault(Context& context, WordLibrary& library) {
  if (const auto fault = library.takeFault()) {
    context.fail(pathIn(context.home, libraryName), fault->why);
  }
}

std::optional<OpenedStores> openedStores(Context& context, LibraryTables needed) {
  auto list = loadedWordList(context);
  auto library = openedLibrary(context, needed);
  if (!list || !library) {
    return std::nullopt;
  }
  return OpenedStores{std::move(*list), std::move(*library)};
}

}  // namespace voxilane
