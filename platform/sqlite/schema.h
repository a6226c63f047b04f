#pragma once

// The tables of data.dat.

namespace voxilane {

inline constexpr const char* createLibraryTables =
    "create table word(word text collate nocase, ipa13 blob);"
    "create table wordqj(word text collate nocase, sjieshi text)";

// With the Yinbiao in the first, so that a lookup need not go on to the row.
inline constexpr const char* createLibraryIndexes =
    "create index if not exists word_word on word(word, ipa13);"
    "create index if not exists wordqj_word on wordqj(word)";

}  // namespace voxilane
