#include "telling.h"

#include <QCryptographicHash>
#include <QHash>
#include <QSet>

#include "shapes.h"

namespace Morvane {
namespace {

constexpr qsizetype kLine = 120;  // characters
constexpr qsizetype kShort = 44;
constexpr qsizetype kWhole = 3 * kLine;  // of rows and texts that are told again as a whole
constexpr qsizetype kMostLines = 3;      // of what is new
constexpr qsizetype kMostWords = 12;     // of a column that is told in full
constexpr qsizetype kMostPrinted = 20;   // the same on paper
constexpr qsizetype kMostSettings = 40;

const QString kDetail = "    ";

QString Digest(const QStringList& lines) {
  return QCryptographicHash::hash(lines.join('\n').toUtf8(), QCryptographicHash::Md5).toHex().left(6);
}

// Those of `lines` that `other` has not, each as often.
QStringList Less(const QStringList& lines, const QStringList& other) {
  QHash<QString, int> counts;
  for (const QString& line : other) ++counts[line];
  QStringList left;
  for (const QString& line : lines) {
    if (--counts[line] < 0) left << line;
  }
  return left;
}

// Of what is too long to read the first items and the last.
QString Readable(const QString& line, qsizetype most = kMostWords) {
  const QStringList words = line.split(" | ");
  if (words.size() <= most) return line;
  return words.first(3).join(" | ") + QString(" | %1 more | ").arg(words.size() - 4) + words.back();
}

// What a line is about, where it is a setting, a measure or a menu's entry.
QString KeyOf(const QString& line) {
  return line.contains('=') ? line.section('=', 0, 0) : QString(line).remove(" (disabled)");
}

void TellKeyed(const QString& name, const QStringList& before, const QStringList& after, QStringList& told) {
  QStringList lines = Less(after, before);
  QSet<QString> keys;
  for (const QString& line : after) keys << KeyOf(line);
  for (const QString& line : before)
    if (!keys.contains(KeyOf(line))) lines << "without " + line;
  for (QString& line : lines) line = line.trimmed();
  if (lines.isEmpty()) lines << "in another order";
  told << Wrapped("  " + name + ": ", Readable(lines.join(" | "), kMostSettings).split(" | "));
}

void TellLong(const QString& name, const QStringList& before, const QStringList& after, QStringList& told) {
  const char* const what = IsDrawing(after) ? "shapes" : "lines";
  told << QString("  %1: %2 %3, %4").arg(name).arg(after.size()).arg(what).arg(Digest(after));
  const QStringList added = Folded(Less(after, before));
  for (const QString& line : added.first(std::min(added.size(), kMostLines)))
    told << Wrapped(kDetail, Readable(line).split(" | "), kDetail + "    ");
  if (added.size() > kMostLines) told << kDetail + QString("%1 more").arg(added.size() - kMostLines);
  if (added.isEmpty()) told << kDetail + QString("%1 gone").arg(Less(before, after).size());
}

void Tell(const QString& name, const QStringList& before, const QStringList& after, QStringList& told) {
  const QString whole = after.join(" | ");
  const QString line = "  " + name + ": " + (after.isEmpty() ? "-" : whole);
  const bool isKeyed = name == "window menu" || name.endsWith(".mvne") || name.endsWith(".ini");
  if (isKeyed && after != QStringList{"closed to all"} && after != QStringList{"folder"} && !after.isEmpty())
    return TellKeyed(name, before, after, told);
  if (line.size() <= kLine)
    told << line;
  else if (!IsDrawing(after) && whole.size() <= kWhole)
    told << Wrapped("  " + name + ": ", after);
  else
    TellLong(name, before, after, told);
}

// Each told thing with its details.
QList<QStringList> Things(const QStringList& told) {
  QList<QStringList> things;
  for (const QString& line : told) {
    if (!line.startsWith(kDetail) || things.isEmpty()) things << QStringList();
    things.back() << line;
  }
  return things;
}

QString NameOf(const QStringList& thing) {
  return thing.front().section(": ", 0, 0);
}

}  // namespace

QStringList Wrapped(const QString& head, const QStringList& items, const QString& indent) {
  QStringList lines = {head};
  bool isFirst = true;
  for (const QString& item : items) {
    const QString next = std::exchange(isFirst, false) ? item : " | " + item;
    if (lines.back().size() + next.size() > kLine && lines.back() != head)
      lines << indent + next.mid(next == item ? 0 : 1);
    else
      lines.back() += next;
  }
  return lines;
}

QStringList InFull(const QStringList& shapes) {
  QStringList lines;
  for (const QString& shape : Folded(shapes))
    lines << Wrapped(kDetail, Readable(shape, kMostPrinted).split(" | "), kDetail + kDetail);
  return lines;
}

QStringList Changes(const Sight& before, const Sight& after) {
  QStringList told;
  for (const auto& [name, lines] : before) {
    if (!after.contains(name)) told << "  " + name + " is gone";
  }
  for (const auto& [name, lines] : after) {
    const auto old = before.find(name);
    if (old == before.end() || old->second != lines)
      Tell(name, old == before.end() ? QStringList() : old->second, lines, told);
  }
  return told;
}

QStringList FirstSight(const Sight& window) {
  Sight seldom;
  for (const auto& [name, lines] : window) {
    const bool isBesides = name.contains(' ') && !name.endsWith(" row");
    if (isBesides || name == "keyboard" || lines.isEmpty()) seldom[name] = lines;
  }
  return Changes(seldom, window);
}

QStringList BesideUsual(const QStringList& told, const QStringList& usual) {
  const QList<QStringList> known = Things(usual);
  QStringList unusual;
  QSet<QString> names;
  for (const QStringList& thing : Things(told)) {
    names << NameOf(thing);
    if (!known.contains(thing)) unusual << thing;
  }
  for (const QStringList& thing : known)
    if (!names.contains(NameOf(thing))) unusual << NameOf(thing) + ": -";
  return unusual;
}

QStringList Beside(const QStringList& told) {
  QStringList lines;
  bool goesOn = false;
  for (const QStringList& thing : Things(told)) {
    const bool isShort = thing.size() == 1 && thing.front().size() <= kShort;
    if (isShort && goesOn && lines.back().size() + thing.front().size() < kLine) {
      lines.back() += "; " + thing.front().trimmed();
    } else {
      lines << thing;
    }
    goesOn = isShort;
  }
  return lines;
}

}  // namespace Morvane
