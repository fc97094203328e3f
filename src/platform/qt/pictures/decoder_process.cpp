#include "platform/qt/pictures/decoder_process.h"

#include <QDeadlineTimer>
#include <QProcess>

namespace Morvane {

std::optional<QByteArray> RunDecoder(const std::string& program, const char* argument,
                                     const QByteArray& input, qsizetype mostBytes,
                                     std::chrono::milliseconds wallTime) {
  const QDeadlineTimer deadline(wallTime);
  QProcess process;
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(QString::fromStdString(program), {argument});
  process.write(input);
  process.closeWriteChannel();
  QByteArray output;
  do {
    process.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
    output += process.readAllStandardOutput();
    if (deadline.hasExpired() || output.size() > mostBytes) {
      process.kill();
      process.waitForFinished();
      return std::nullopt;
    }
  } while (process.state() != QProcess::NotRunning);
  const bool endedWell = process.error() != QProcess::FailedToStart &&
                         process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
  return endedWell ? std::optional(output) : std::nullopt;
}

}  // namespace Morvane
