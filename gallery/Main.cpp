// Marlux 3. Start of the gallery: toolkit-gallery [--scale PERCENT] [--page NUMBER] [/l], the size of the text, the
// page it begins with and the toolkit's log. Ends with 1 when a cell did not look as it has to, and says which.
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "gallery/GalleryWindow.h"
#include "toolkit/TmyApplication.h"

namespace {

struct Wishes {
  int percent = 100;
  int page = 1;
};

std::optional<Wishes> WishesFrom(int count, char** arguments) {
  Wishes wishes;
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--scale" && i + 1 < count) {
      wishes.percent = std::atoi(arguments[++i]);
    } else if (argument == "--page" && i + 1 < count) {
      wishes.page = std::atoi(arguments[++i]);
    } else if (argument != "/l") {  // which the toolkit reads itself
      return std::nullopt;
    }
  }
  const bool known = wishes.percent >= 50 && wishes.percent <= 400 && wishes.page >= 1 && wishes.page <= 3;
  return known ? std::optional(wishes) : std::nullopt;
}

}  // namespace

int main(int count, char** arguments) {
  const std::optional<Wishes> wishes = WishesFrom(count, arguments);
  if (!wishes) {
    MessageBoxA(nullptr, "toolkit-gallery [--scale PERCENT] [--page NUMBER] [/l]      50 to 400, 1 to 3",
                GalleryWindow::kCaption, MB_OK);
    return 2;
  }
  std::vector<std::string> faults;
  TmyApplication::Get().Theme().SetTextPercent(wishes->percent);
  // Belongs to its window.
  TmyApplication::Get().SetMainWindow(new GalleryWindow(static_cast<GalleryWindow::Page>(wishes->page - 1), faults));
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  TmyApplication::Shutdown();
  for (const std::string& fault : faults) std::fprintf(stderr, "%s\n", fault.c_str());
  return faults.empty() ? 0 : 1;
}
