#include "transcript.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iostream>

#include "tests/support/held_text.h"

namespace Morvane {
namespace {

class Scenes : public testing::TestWithParam<std::string> {};

TEST_P(Scenes, ReadTheSame) {
  static std::string playing;
  playing = GetParam();
  for (const int death : {SIGSEGV, SIGABRT, SIGALRM})
    std::signal(death, [](int signal) {
      std::cout << playing << (signal == SIGALRM ? " hangs\n" : " crashes\n") << std::flush;
      std::signal(signal, SIG_DFL);
      std::raise(signal);
    });
  alarm(240);  // seconds, where the longest scene takes six
  ExpectText(PathOf(playing), Transcript(playing).Play().join('\n').toStdString() + '\n');
  alarm(0);
}

std::vector<std::string> All() {
  std::vector<std::string> scenes;
  const std::filesystem::path folder = MORVANE_SOURCE_DIR "/tests/transcripts/scenes";
  for (const auto& file : std::filesystem::recursive_directory_iterator(folder))
    if (file.is_regular_file())
      scenes.push_back(file.path().lexically_relative(folder).replace_extension().string());
  return scenes;
}

INSTANTIATE_TEST_SUITE_P(All, Scenes, testing::ValuesIn(All()), [](const auto& scene) {
  std::string name = scene.param;
  std::replace(name.begin(), name.end(), '/', '_');
  return name;
});

}  // namespace
}  // namespace Morvane
