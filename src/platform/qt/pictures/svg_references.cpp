#include "platform/qt/pictures/svg_references.h"

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>

namespace Morvane {

namespace {

QString LocalName(QStringView name) {
  return name.mid(name.lastIndexOf(':') + 1).toString().toLower();
}

bool IsAllowedElement(QStringView name) {
  static const QStringList kRefused = {"style", "script", "foreignobject", "handler", "include"};
  return !kRefused.contains(LocalName(name));
}

// Readers go by an image's first bytes, whatever its type says, and an SVG image could refer outside in its
// turn.
bool IsInside(QStringView reference) {
  return reference.startsWith(u'#') || reference.startsWith(u"data:image/png;base64,iVBORw0KGgo") ||
         reference.startsWith(u"data:image/jpg;base64,/9j/");
}

// url(...) may stand in a style or in an attribute of its own (fill, clip-path, filter). An escape could hide
// it, and only the name of a font needs one.
bool IsAllowedAttribute(const QXmlStreamAttribute& attribute) {
  static const QRegularExpression leadsOutside(R"(@import|url\s*\((?![\s'"]*#))",
                                               QRegularExpression::CaseInsensitiveOption);
  const QString name = LocalName(attribute.qualifiedName());
  if (name == "href" || name == "src" || name == "base") return IsInside(attribute.value());
  if (attribute.value().contains(u'\\') && name != "font-family") return false;
  return !leadsOutside.match(attribute.value().toString()).hasMatch();
}

}  // namespace

bool RefersOnlyToItself(const QByteArray& svg) {
  QXmlStreamReader reader(svg);
  reader.setNamespaceProcessing(false);  // as the renderer does
  while (!reader.atEnd()) {
    const QXmlStreamReader::TokenType token = reader.readNext();
    if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::ProcessingInstruction) return false;
    if (token != QXmlStreamReader::StartElement) continue;
    const QXmlStreamAttributes attributes = reader.attributes();
    if (!IsAllowedElement(reader.qualifiedName()) ||
        !std::all_of(attributes.begin(), attributes.end(), IsAllowedAttribute)) {
      return false;
    }
  }
  return !reader.hasError();
}

}  // namespace Morvane
