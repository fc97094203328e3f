#include "platform/qt/pictures/svg_references.h"

#include <gtest/gtest.h>

namespace Morvane {

namespace {

TEST(SvgReferences, AcceptsWhatStaysInside) {
  for (const char* svg :
       {R"s(<?xml version="1.0"?><svg xmlns="http://www.w3.org/2000/svg"><g/></svg>)s",
        R"s(<svg><image xlink:href="data:image/png;base64,iVBORw0KGgo=" /><use xlink:href='#img-1'/></svg>)s",
        R"s(<svg><path style="fill:url(#p); stroke:none" clip-path="url( '#c' )"/></svg>)s",
        R"s(<svg><text font-family="A &amp; B">href="http://x" &lt;image&gt;</text></svg>)s",
        R"s(<svg><text><![CDATA[<image href="x.png"/>]]></text><!-- <image href="x"/> --></svg>)s"}) {
    EXPECT_TRUE(RefersOnlyToItself(svg)) << svg;
  }
}

TEST(SvgReferences, RefusesWhatLeadsOutside) {
  for (const char* svg :
       {R"s(<svg><image xlink:href="/etc/passwd"/></svg>)s",
        R"s(<svg><image HREF = 'file:///etc/passwd'/></svg>)s", "<svg><image\n\thref\n=\n\"x.png\"/></svg>",
        R"s(<svg><image other:href=" data:image/png,x"/></svg>)s",
        R"s(<svg><image href="&#x2f;etc/passwd"/></svg>)s",
        R"s(<svg><image href="data:text/html,x"/></svg>)s",
        R"s(<svg><image href="data:image/png;base64,PHN2Zz4="/></svg>)s",
        R"s(<svg><rect fill="url(http://x/y)"/></svg>)s", R"s(<svg><rect style="fill:u\72l(x)"/></svg>)s",
        R"s(<svg><style>@import "x";</style></svg>)s", R"s(<svg><s:script>x</s:script></svg>)s",
        R"s(<!DOCTYPE svg [<!ENTITY e SYSTEM "file:///etc/passwd">]><svg>&e;</svg>)s",
        R"s(<?xml-stylesheet href="x.css"?><svg/>)s",
        R"s(<svg><text><![CDATA[a]]><image href="x.png"/>]]></text></svg>)s"}) {
    EXPECT_FALSE(RefersOnlyToItself(svg)) << svg;
  }
}

TEST(SvgReferences, RefusesTagsThatCannotBeToldApart) {
  for (const char* svg : {"<svg", "<svg a='1", "<svg a=1>", "<svg a>", "<svg a='<b>'/>", "<![CDATA[", "<!-- ",
                          "</svg <!DOCTYPE x>", "<?xml <script>?>"}) {
    EXPECT_FALSE(RefersOnlyToItself(svg)) << svg;
  }
}

}  // namespace

}  // namespace Morvane
