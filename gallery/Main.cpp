// Marlux 3. Start of the gallery: toolkit-gallery [--scale PERCENT] [/l], the size of the text and the toolkit's log.
#include <cstdlib>
#include <string_view>

#include "gallery/GalleryWindow.h"
#include "toolkit/TmyApplication.h"

namespace {

// 0: not understood.
int PercentFrom(int count, char** arguments) {
  int percent = 100;
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--scale" && i + 1 < count) {
      percent = std::atoi(arguments[++i]);
    } else if (argument != "/l") {  // which the toolkit reads itself
      return 0;
    }
  }
  return percent >= 50 && percent <= 400 ? percent : 0;
}

}  // namespace

int main(int count, char** arguments) {
  const int percent = PercentFrom(count, arguments);
  if (percent == 0) {
    MessageBoxA(nullptr, "toolkit-gallery [--scale PERCENT] [/l]      50 to 400", GalleryWindow::kCaption, MB_OK);
    return 2;
  }
  TmyApplication::Get().Theme().SetTextPercent(percent);
  TmyApplication::Get().SetMainWindow(new GalleryWindow);  // belongs to its window
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  TmyApplication::Shutdown();
  return 0;
}
