#include "platform/qt/pictures/svg_references.h"

#include <gtest/gtest.h>

#include "tests/support/held_text.h"

namespace Morvane {

namespace {

TEST(SvgReferences, AreAcceptedOnlyWhereTheyStayInside) {
  ExpectCases("tests/platform/old_formats/svg_references.txt", [](const std::string& given) {
    const bool accepted = RefersOnlyToItself(QByteArray::fromStdString(given).chopped(1));
    return accepted ? "accepted" : "refused";
  });
}

}  // namespace

}  // namespace Morvane
