#pragma once

#include <string>
#include <string_view>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include "platform/result.h"

// What all connections to data.dat share.

namespace voxilane {

// For readers too: after a writer was killed, the next one to open the library puts back what the
// other had begun. SQLite reads a write-protected file with these flags all the same.
inline constexpr int openFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;

inline constexpr int lockWaitMilliseconds = 2000;

// Room for a whole library of the delivered size, so that a page is read once. Filled as needed.
inline constexpr const char* cachePragma = "pragma cache_size = -65536";

inline Error errorOf(const SQLite::Exception& exception) { return {exception.what()}; }

// A column's bytes, whatever its type. Valid until the statement moves on.
inline std::string_view bytesOf(const SQLite::Column& column) {
  // The pointer must be asked for before the size: a number becomes text on the way.
  const void* const bytes = column.getBlob();
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(column.getBytes())};
}

}  // namespace voxilane
