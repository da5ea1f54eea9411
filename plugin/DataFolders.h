// Marlux 3. Where the plug-in's files are: the user's own below the documents folder, the program's beside the host.
// Paths come without a backslash at the end. Nothing is remembered: each call asks the system again.
#pragma once

#include "foundation/TmyString.h"

[[nodiscard]] TmyString DocumentsFolder();   // the user's own; empty when the system has none
[[nodiscard]] TmyString DataFolder();        // schedules, tasks; made when it is not there
[[nodiscard]] TmyString RecordingsFolder();  // below the data folder; made when it is not there

// The environment's "ZQN_PLUGIN_PATH"; when that is empty, the search path that the host's set-up registered.
[[nodiscard]] TmyString PluginFolder();
[[nodiscard]] TmyString HelpFile();  // in the plug-in folder; it need not exist

// Makes a folder and each one above it that is missing. What cannot be made shows when a file is opened in it.
void CreateFolders(const TmyString& path);
