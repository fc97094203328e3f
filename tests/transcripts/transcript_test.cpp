#include "transcript.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <filesystem>

namespace Morvane {
namespace {

// A program that ends leaves no loop of the toolkit running but a new one.
TEST_P(Transcript, ReadsTheSame) {
  QTimer::singleShot(0, qApp, [this] {
    Play();
    QApplication::exit();
  });
  QApplication::exec();
}

std::vector<std::string> Scenes() {
  std::vector<std::string> scenes;
  const std::filesystem::path folder = MORVANE_SOURCE_DIR "/tests/transcripts/scenes";
  for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) {
    if (!file.is_regular_file()) continue;
    scenes.push_back(file.path().lexically_relative(folder).replace_extension().string());
  }
  return scenes;
}

INSTANTIATE_TEST_SUITE_P(Scenes, Transcript, testing::ValuesIn(Scenes()), [](const auto& scene) {
  std::string name = scene.param;
  std::replace(name.begin(), name.end(), '/', '_');
  return name;
});

}  // namespace
}  // namespace Morvane
