// Marlux 3. Start of the gallery: toolkit-gallery [--scale PERCENT], the size of the text.
#include <cstdlib>
#include <cstring>

#include "gallery/GalleryWindow.h"
#include "toolkit/TmyApplication.h"

int main(int count, char** arguments) {
  const bool scaled = count == 3 && std::strcmp(arguments[1], "--scale") == 0;
  const int percent = scaled ? std::atoi(arguments[2]) : 100;
  if ((count != 1 && !scaled) || percent < 50 || percent > 400) {
    MessageBoxA(nullptr, "toolkit-gallery [--scale PERCENT]      50 to 400", GalleryWindow::kCaption, MB_OK);
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
