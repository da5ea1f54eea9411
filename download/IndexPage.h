// Marlux 3. The index page of the HFCC site: which archives it links to.
#pragma once

#include <string_view>

#include "foundation/TmyStringList.h"

namespace IndexPage {

// Appends to `archives` the file name of each linked archive whose base name is not in `known` (base names without
// ".zip"), in page order. False: the page has no list, so it is another page.
//   page := anything "<UL>" { anything "<LI>" anything "HREF" anything '"' link '"' }
// All of it is case-sensitive, also the link's ending "zip". Folders are cut off; see IsBareFileName for the rest.
[[nodiscard]] bool FindArchives(std::string_view page, const TmyStringList& known, TmyStringList& archives);

// A name that stays in the folder that it is put in and is a file there: at most 100 characters, no "..", colon, slash,
// backslash or control character, no device ("con.zip").
[[nodiscard]] bool IsBareFileName(std::string_view name) noexcept;

}  // namespace IndexPage
