// Measured runs, started through bench.sh: marlux-bench --data DIR [--only PART] [--server PORT --curl MS] [--minutes
// N], where DIR holds an eibi.txt and PART is start, window, schedule, tasks, hfcc, recording, download or soak;
// without a server nothing is downloaded. The soak takes N minutes (20) and some more, so it only runs when it is asked
// for.

#include <cstdlib>
#include <cstring>

#include "bench/Bench.h"

namespace {

struct Subject {
  const char* name;
  void (*run)(const ScheduleText& schedule);
};

// The start comes first: it measures the memory of the process, which the others would have filled.
constexpr Subject kSubjects[] = {{"start", BenchStart},
                                 {"window", BenchWindow},
                                 {"schedule", BenchSchedule},
                                 {"tasks", BenchTasks},
                                 {"recording", BenchRecording}};

const char* Option(int argc, char** argv, const char* name) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (strcmp(argv[i], name) == 0) return argv[i + 1];
  }
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  const char* folder = Option(argc, argv, "--data");
  const char* only = Option(argc, argv, "--only");
  const char* server = Option(argc, argv, "--server");
  const char* curl = Option(argc, argv, "--curl");
  if (!folder) {
    fprintf(stderr,
            "usage: marlux-bench --data DIR [--only start|window|schedule|tasks|hfcc|recording|download|soak]"
            " [--server PORT --curl MS] [--minutes N]\n");
    return 2;
  }
  const ScheduleText schedule(ReadWholeFile(std::string(folder) + "/eibi.txt"));
  if (schedule.Rows() == 0) {
    fprintf(stderr, "no schedule in %s\n", folder);
    return 1;
  }
  setvbuf(stdout, nullptr, _IONBF, 0);
  printf("%u rows as they are, and the same repeated: 1,000,000 rows are cut to %u, for the reader takes %u lines\n",
         schedule.Rows(), ScheduleText::kMaximumRows, ScheduleText::kMaximumLines);
  for (const Subject& subject : kSubjects) {
    if (!only || strcmp(only, subject.name) == 0) subject.run(schedule);
  }
  if (!only || strcmp(only, "hfcc") == 0) BenchHfcc(folder);
  if (server && curl && (!only || strcmp(only, "download") == 0)) {
    BenchDownload(static_cast<uint16_t>(atoi(server)), atof(curl));
  }
  const char* minutes = Option(argc, argv, "--minutes");
  if (only && strcmp(only, "soak") == 0) BenchSoak(schedule, minutes ? static_cast<uint32_t>(atoi(minutes)) : 20);
  return 0;
}
