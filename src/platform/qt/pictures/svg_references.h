#pragma once

#include <QByteArray>

namespace Morvane {

// True when every reference of the SVG text stays inside it: data: and #name only, no document type, no
// instruction, no style sheet, no script. False also for a text that is no XML. Read by the renderer's own
// parser, so that both see the same.
bool RefersOnlyToItself(const QByteArray& svg);

}  // namespace Morvane
