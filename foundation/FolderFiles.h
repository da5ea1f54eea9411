// Marlux 3. Folders: the files of one, and the one of a file.
#pragma once

#include <vector>

#include "foundation/TmyString.h"

// Names without the path, folders left out, in the order in which the file system lists them. An unreadable folder
// holds nothing.
[[nodiscard]] std::vector<TmyString> FolderFiles(const TmyString& folder);

// The absolute path of the folder that a file is in, without a backslash at its end; of a drive's root the drive. Empty
// for what is no path. The system finds the place: in some code pages a backslash may be half of a letter.
[[nodiscard]] TmyString FolderOf(const TmyString& file);
