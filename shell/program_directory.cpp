#include "shell/program_directory.h"

#include <algorithm>

#include "platform/code_page.h"
#include "platform/files.h"

namespace voxilane {

std::string pathIn(const std::string& directory, std::string_view name) {
  std::string path = directory;
  if (!path.empty() && path.back() != '/') {
    path += '/';
  }
  return path.append(name);
}

Result<WordList> loadWordList(const std::string& directory) {
  const auto bytes = readFile(pathIn(directory, dictionaryName));
  if (!bytes) {
    return bytes.error();
  }
  return WordList(fromCodePage(bytes.value()));
}

Result<WordLibrary> openWordLibrary(const std::string& directory, LibraryTables needed) {
  const std::string path = pathIn(directory, libraryName);
  if (!fileExists(path)) {
    return WordLibrary();
  }
  auto database = openSqliteLibrary(path, needed);
  if (!database) {
    return database.error();
  }
  return WordLibrary(std::move(database.value()));
}

CanshuSet loadParameters(const std::string& directory) {
  const auto bytes = readFile(pathIn(directory, parametersName));
  return parseParameters(bytes ? fromCodePage(bytes.value()) : std::string());
}

Result<std::size_t> countOwnEntries(const std::string& directory) {
  const std::string path = pathIn(directory, ownEntriesName);
  if (!fileExists(path)) {
    return std::size_t{0};
  }
  const auto bytes = readFile(path);
  if (!bytes) {
    return bytes.error();
  }
  const std::string text = fromCodePage(bytes.value());
  std::size_t count = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    if (rest.substr(0, end).find(',') != std::string_view::npos) {
      ++count;
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return count;
}

}  // namespace voxilane
