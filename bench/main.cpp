// Measured runs, started by hand: marlux-bench --data DIR, where DIR holds a real eibi.txt.

#include <cstring>

#include "bench/Bench.h"

int main(int argc, char** argv) {
  const char* dataFolder = nullptr;
  for (int i = 1; i + 1 < argc; ++i) {
    if (strcmp(argv[i], "--data") == 0) dataFolder = argv[i + 1];
  }
  if (!dataFolder) {
    fprintf(stderr, "usage: marlux-bench --data DIR\n");
    return 2;
  }
  BenchSchedule(dataFolder);
  BenchHfcc(dataFolder);
  return 0;
}
