// The same ten functions as a PNG file, from the start of a process to its end.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "bench/measures.h"
#include "bench/picture_functions.h"

extern char** environ;

namespace plotvane::bench {
namespace {

// Runs a program to its end. The processor time of the process, of its system calls too, in seconds; below 0
// when it failed.
double SecondsOf(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawnp(&process, arguments.front(), nullptr, nullptr, arguments.data(), environ) != 0) return -1;
  int status = 0;
  rusage usage{};
  if (wait4(process, &status, 0, &usage) != process || status != 0) return -1;
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

class PictureFiles {
 public:
  PictureFiles() : mFolder(std::filesystem::temp_directory_path() / "plotvane_bench") {
    std::filesystem::create_directories(mFolder);
  }
  ~PictureFiles() {
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
  }
  PictureFiles(const PictureFiles&) = delete;
  PictureFiles& operator=(const PictureFiles&) = delete;

  [[nodiscard]] std::string Path(const char* name) const { return (mFolder / name).string(); }

  // A PNG of that size: the header says so.
  [[nodiscard]] bool IsPicture(const char* name) const {
    std::ifstream in(Path(name), std::ios::binary);
    std::string header(24, '\0');
    if (!in.read(header.data(), 24) || header.substr(1, 3) != "PNG") return false;
    const auto side = [&](std::size_t at) {
      return static_cast<unsigned char>(header[at]) * 256 + static_cast<unsigned char>(header[at + 1]);
    };
    return side(18) == kPictureWidth && side(22) == kPictureHeight;
  }

 private:
  std::filesystem::path mFolder;
};

std::string SizeText(char between) {
  return std::to_string(kPictureWidth) + between + std::to_string(kPictureHeight);
}

std::vector<std::string> OwnWords(const std::string& plotvane, const PictureFiles& files) {
  std::vector<std::string> words{plotvane, "plot"};
  for (const PictureFunction& function : PictureFunctions()) words.emplace_back(function.plotvane);
  words.insert(words.end(), {"--size", SizeText('x'), "-o", files.Path("plotvane.png")});
  return words;
}

std::vector<std::string> GnuplotWords(const PictureFiles& files) {
  std::ostringstream script;
  script << "set terminal png size " << SizeText(',') << "; set output '" << files.Path("gnuplot.png")
         << "'; set samples " << kPictureWidth << "; unset key; plot [-10:10] [-10:10] ";
  const char* separator = "";
  for (const PictureFunction& function : PictureFunctions()) {
    script << separator << function.gnuplot;
    separator = ", ";
  }
  return {"gnuplot", "-e", script.str()};
}

void TimeProcess(benchmark::State& state, const std::vector<std::string>& words, const PictureFiles& files,
                 const char* name) {
  if (SecondsOf(words) < 0 || !files.IsPicture(name)) return state.SkipWithError("no picture");
  for ([[maybe_unused]] const auto pass : state) state.SetIterationTime(SecondsOf(words));
  state.counters["process"] = 1;
}

}  // namespace

void RegisterPicture(const std::string& plotvane) {
  benchmark::RegisterBenchmark("plotvane_png/picture", [plotvane](benchmark::State& state) {
    const PictureFiles files;
    TimeProcess(state, OwnWords(plotvane, files), files, "plotvane.png");
  })->UseManualTime();
  benchmark::RegisterBenchmark("gnuplot_png/picture", [](benchmark::State& state) {
    const PictureFiles files;
    TimeProcess(state, GnuplotWords(files), files, "gnuplot.png");
  })->UseManualTime();
}

}  // namespace plotvane::bench
