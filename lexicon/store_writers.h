#pragma once

#include <string>
#include <vector>

#include "lexicon/word_rows.h"
#include "platform/result.h"

namespace voxilane {

// The text of dictionary.txt (UTF-8, CRLF): the most frequent forms among the rows, as many as the
// list holds, between two lines that no word can match.
std::string dictionaryText(const std::vector<WordRow>& rows);

// Makes data.dat anew at the path, with both tables and their indexes. The same rows give the same
// bytes.
Done writeLibrary(const std::vector<WordRow>& rows, const std::string& path);

}  // namespace voxilane
