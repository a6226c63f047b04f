#pragma once

#include <memory>
#include <string>

#include "platform/library_database.h"

namespace voxilane {

// Which tables the caller is going to ask; they are looked at on opening, so that a damaged or
// incomplete library is told of before any work.
enum class LibraryTables { words, glosses, both };

// Opens data.dat for reading. Fails when the file is no database, lacks a table that is needed, or
// is locked for longer than two seconds.
Result<std::unique_ptr<LibraryDatabase>> openSqliteLibrary(const std::string& path,
                                                           LibraryTables needed);

}  // namespace voxilane
