#include <QBuffer>
#include <QImage>
#include <QKeySequence>

#include "transcript.h"

namespace Morvane {
namespace {

using Scene = Transcript;

// In the machine's root, which is the home of the one who runs it; $DATA is what ships.
ProgramRun Run(const Scene& scene, const std::string& command) {
  const TemporaryFolder elsewhere;
  return RunProgram("{ { cd '" + scene.machine.Root.Path() +
                        "'; export DATA='" MORVANE_SOURCE_DIR "/data' HOME=$PWD XDG_CACHE_HOME='" +
                        elsewhere.Path() + "'; " + command + "; } >&2; }",
                    elsewhere);
}

void RunSilently(Scene& scene, const std::string& command) {
  const ProgramRun run = Run(scene, command);
  if (run.exitCode != 0 || !run.errors.empty()) throw std::runtime_error(run.errors);
}

void WriteLines(Scene& scene, const std::string& path, QString lines) {  // parted by |
  lines.replace('|', "\r\n");
  scene.machine.WriteFile(path, lines.isEmpty() ? "" : lines.toLatin1().toStdString() + "\r\n");
}

// Covers as wide as told, in millimetres, each further right and down and higher than the one before it.
void WriteLayout(Scene& scene, Words words) {
  const std::string path = "C:\\Morvane\\" + words.Path() + ".mvne";
  QString text = "Pagina=0";
  int i = 0;
  for (const QString& width : words.rest.split(' ')) {
    text += QString("|Copertina%1=0|Distx%1=%2|Disty%1=%3|Larg%1=%4|Alte%1=%5").arg(i + 1);
    text = text.arg(20 + i).arg(20 + 2 * i).arg(width).arg(60 + i);
    ++i;
  }
  WriteLines(scene, path, text);
}

void WritePicture(Scene& scene, Words words) {
  scene.machine.WriteFile(words.rest.section(' ', 0, -2).toStdString(),
                          PictureFile(words.rest.section(' ', -1)).toStdString());
}

void Mount(Scene& scene, Words words) {
  const std::string device = words.Path(), kind = words.Path(), folder = words.All();
  RunSilently(scene, "mkdir -p ." + folder + "; touch mountinfo; echo 1 1 0:$(wc -l <mountinfo) / " + folder +
                         " rw - " + kind + " " + device + " rw >>mountinfo");
}

void TellReads(Scene& scene, Words) {
  scene.machine.Files->BeforeCall = [&scene](const std::string& call, const std::string& path) {
    if (call == "ReadBytes" || call == "ReadFolder") scene.Show("  reads " + QString::fromStdString(path));
  };
}

void Deny(Scene& scene, Words words) {
  scene.machine.Files->BeforeCall = [denied = words.All()](const std::string&, const std::string& path) {
    if (path == denied) throw RuntimeError(ErrorNumber::PermissionDenied, "Accesso negato: " + path);
  };
}

void Before(Scene& scene, Words words) {
  auto& hook = scene.machine.Files->BeforeCall;
  hook = [&scene, other = hook, wanted = words.Path(), of = words.Path(), deed = words.rest](
             const char* call, const std::string& path) {
    if (other) other(call, path);
    if (call == wanted && path == of) scene.Perform(deed);
  };
}

}  // namespace

void RunPrintProgram(Scene& scene, Words words) {
  const ProgramRun run = Run(scene, "env -u DISPLAY -u QT_QPA_PLATFORM '" MORVANE_PRINT "' " + words.All());
  QStringList told = QString::fromStdString(run.errors).split('\n', Qt::SkipEmptyParts);
  told.prepend(QString("  ends with %1").arg(run.exitCode));
  scene.Show(told.join(told.size() == 2 ? ", tells: " : "\n  tells: "));
}

QByteArray PictureFile(const QString& size) {
  QImage image(size.section('x', 0, 0).toInt(), size.section('x', 1).toInt(), QImage::Format_RGB32);
  image.fill(Qt::red);
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  image.save(&bytes, "BMP");
  return bytes.data();
}

// clang-format off
const std::map<QString, Deed> kDeedsOfTheWorld = {
    // path, lines parted by |
    {"file", [](Scene& s, Words w) { const std::string path = w.Path(); WriteLines(s, path, w.rest); }},
    // name, widths
    {"layout", WriteLayout},
    // path, size in pixels
    {"picture", WritePicture},
    // a command in the machine's root
    {"shell", [](Scene& s, Words w) { RunSilently(s, w.All()); }},
    // device, file system, folder
    {"mount", Mount},
    // of whole files and folders, from now on
    {"tell-reads", TellReads},
    {"deny", Deny},
    // call, path, deed: each time before the file system does this there
    {"before", Before},
};
// clang-format on

}  // namespace Morvane
