#pragma once

#include <memory>
#include <string>

#include "platform/library_editor.h"

namespace voxilane {

// Opens data.dat for changes, or begins a new one, which takes its place with commit(). Fails when
// the file is no library, cannot be written to, or is locked for longer than two seconds. Indexes
// that the file lacks are added by commit().
Result<std::unique_ptr<LibraryEditor>> openSqliteEditor(const std::string& path);

}  // namespace voxilane
