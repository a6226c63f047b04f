// Makes the two stores of a program directory, data.dat and dictionary.txt, from words.tsv.

#include <cstdio>

#include "lexicon/store_writers.h"
#include "platform/code_page.h"
#include "platform/files.h"

namespace voxilane {
namespace {

int fail(const std::string& what, const std::string& why) {
  std::fprintf(stderr, "build-library: %s: %s\n", what.c_str(), why.c_str());
  return 1;
}

Done writeFile(const std::string& path, std::string_view bytes) {
  auto sink = replaceFile(path);
  if (!sink) {
    return sink.error();
  }
  Done written = sink.value()->write(bytes);
  return written ? sink.value()->commit() : written;
}

int buildStores(const std::string& words, const std::string& directory) {
  const auto text = readFile(words);
  if (!text) {
    return fail(words, text.error().why);
  }
  const auto rows = parseWordRows(text.value());
  if (!rows) {
    return fail(words, rows.error().why);
  }
  const std::string library = directory + "/data.dat";
  if (const Done written = writeLibrary(rows.value(), library); !written) {
    return fail(library, written.error().why);
  }
  const std::string dictionary = directory + "/dictionary.txt";
  const Done written = writeFile(dictionary, toCodePage(dictionaryText(rows.value())));
  return written ? 0 : fail(dictionary, written.error().why);
}

}  // namespace
}  // namespace voxilane

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "Usage: build-library WORDS.TSV DIRECTORY\n");
    return 2;
  }
  return voxilane::buildStores(argv[1], argv[2]);
}
