// Marlux 3. The files of a folder.
#pragma once

#include <vector>

#include "foundation/TmyString.h"

// Names without the path, folders left out, in the order in which the file system lists them. An unreadable folder
// holds nothing.
[[nodiscard]] std::vector<TmyString> FolderFiles(const TmyString& folder);
