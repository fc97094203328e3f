#include "telling.h"

#include <QCryptographicHash>
#include <algorithm>

namespace Morvane {
namespace {

constexpr qsizetype kLine = 120;  // characters
constexpr qsizetype kShort = 50;
constexpr qsizetype kWhole = 3 * kLine;  // of rows and texts that are told again as a whole
constexpr qsizetype kMostLines = 4;      // of what is new
constexpr qsizetype kMostWords = 20;     // of a column that is told in full
constexpr qsizetype kMostSettings = 40;

const QString kDetail = "    ";

QString Digest(const QStringList& lines) {
  return QCryptographicHash::hash(lines.join('\n').toUtf8(), QCryptographicHash::Md5).toHex().left(6);
}

// Those of `lines` that `other` has not, each as often.
QStringList Less(QStringList lines, const QStringList& other) {
  for (const QString& line : other) lines.removeOne(line);
  return lines;
}

bool AnyStartsWith(const QStringList& lines, const QString& start) {
  return std::ranges::any_of(lines, [&](const QString& line) { return line.startsWith(start); });
}

// Of what is too long to read the first items and the last, and a digest of the others.
QStringList Readable(const QStringList& items, qsizetype most) {
  if (items.size() <= most) return items;
  const QStringList others = items.mid(3, items.size() - 4);
  return items.first(3) << QString("%1 more, %2").arg(others.size()).arg(Digest(others)) << items.back();
}

// What a line is about, where it is a setting, a measure or a menu's entry.
QString KeyOf(const QString& line) {
  return line.contains('=') ? line.section('=', 0, 0) + '=' : QString(line).remove(" (disabled)");
}

QString NewSettings(const QString& head, const QStringList& before, const QStringList& after) {
  QStringList lines = Less(after, before);
  for (const QString& line : Less(before, after))
    if (!AnyStartsWith(after, KeyOf(line))) lines << "without " + line;
  for (QString& line : lines) line = line.trimmed();
  if (lines.isEmpty()) lines << "in another order";
  return Wrapped(head, Readable(lines, kMostSettings));
}

QString NewLines(const QString& head, const QStringList& before, const QStringList& after) {
  const QStringList added = Less(after, before);
  QStringList told = {head + QString("%1 in all, %2").arg(after.size()).arg(Digest(after))};
  const qsizetype shown = added.size() > kMostLines ? kMostLines - 1 : added.size();
  told << InFull(added.first(shown));
  if (added.size() > shown) told << kDetail + QString("%1 more").arg(added.size() - shown);
  if (added.isEmpty()) told << kDetail + QString("%1 gone").arg(Less(before, after).size());
  return told.join('\n');
}

QString Change(const QString& name, const QStringList& before, const QStringList& after) {
  const QString head = "  " + name + ": ";
  const bool isKeyed = name == "window menu" || name.endsWith(".mvne") || name.endsWith(".ini");
  if (isKeyed && after.size() > 1) return NewSettings(head, before, after);
  const qsizetype size = after.join(" | ").size();
  const qsizetype most = name.startsWith("Picture") ? 2 * kLine : kWhole;
  if (head.size() + size > most) return NewLines(head, before, after);
  QStringList values = after.join(" | ").split(" | ");
  for (QString& value : values)
    if (value.isEmpty() || values.size() == 1) value = Quoted(value);
  return Wrapped(head, values);
}

}  // namespace

QString Wrapped(const QString& head, const QStringList& items, const QString& indent) {
  QString text = head + items.value(0);
  qsizetype start = 0;  // of the last line
  for (const QString& item : items.mid(1)) {
    const bool fits = text.size() - start + 3 + item.size() <= kLine;
    if (!fits) start = text.size() + 1;
    text += (fits ? " | " : '\n' + indent + "| ") + item;
  }
  return text;
}

QString Quoted(const QString& value) {
  return value.isEmpty() ? "-" : value.trimmed() == value ? value : '"' + value + '"';
}

QStringList InFull(const QStringList& lines) {
  QStringList told;
  for (const QString& line : lines)
    told << Wrapped(kDetail, Readable((line.isEmpty() ? "-" : line).split(" | "), kMostWords),
                    kDetail + kDetail);
  return told;
}

QStringList Changes(const Sight& before, const Sight& after) {
  QStringList told;
  for (const auto& [name, lines] : before) {
    if (!after.contains(name)) told << "  " + name + " is gone";
  }
  for (const auto& [name, lines] : after) {
    const auto old = before.find(name);
    const QStringList known = old == before.end() ? QStringList() : old->second;
    if (old == before.end() || known != lines) told << Change(name, known, lines);
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
  QStringList unusual = Less(told, usual);
  for (const QString& thing : usual) {
    const QString start = thing.section(": ", 0, 0) + ": ";
    if (!AnyStartsWith(told, start)) unusual << start + '-';
  }
  return unusual;
}

QStringList Beside(const QStringList& told) {
  QStringList lines;
  bool goesOn = false;
  for (const QString& thing : told) {
    const bool isShort = thing.size() <= kShort && !thing.contains('\n');
    if (isShort && goesOn && lines.back().size() + thing.size() < kLine) {
      lines.back() += "; " + thing.trimmed();
    } else {
      lines << thing;
    }
    goesOn = isShort;
  }
  return lines;
}

}  // namespace Morvane
