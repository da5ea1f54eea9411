// Makes one fault, by name, in a build that must stop at it. Who gets to the end was not stopped.
#include <windows.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace {

// What the compiler cannot know, so that it leaves the fault as it is.
template <class Value>
Value Unknown(Value value) {
  asm volatile("" : "+m"(value));
  return value;
}

char* Block(size_t size) {
  return Unknown(static_cast<char*>(std::malloc(size)));
}

int Fault(std::string_view name) {
  if (name == "overflow") return Unknown(INT_MAX) + Unknown(1);
  if (name == "float-cast") return static_cast<int>(Unknown(3e9));
  if (name == "range") return std::vector<int>(4)[Unknown(4U)];
  if (name == "read-behind") return Unknown(Block(13)[13]);
  if (name == "pages") {
    const auto* pages = Unknown(static_cast<char*>(VirtualAlloc(nullptr, 512, MEM_COMMIT, PAGE_READWRITE)));
    return Unknown(pages[512]);
  }
  char* const block = Block(16);
  if (name == "write-before") static_cast<volatile char*>(block)[-1] = 1;
  char* const freed = Unknown(block);
  std::free(block);
  if (name == "read-freed") return Unknown(*freed);
  if (name == "freed-twice") std::free(freed);
  return 0;
}

}  // namespace

int main(int, char** arguments) {
  std::printf("not stopped: %d\n", Fault(arguments[1]));
}
