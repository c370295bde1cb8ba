// XML documents, elements and the writer: round trips, typed reads and error reports.
#include "xmlDocument.h"
#include "xmlWriter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

using namespace Zr;

namespace {

std::string syntaxErrorOf(std::string const& text, std::string const& name) {
    try {
        XmlDocument doc(text, name);
    } catch (XmlEx::ExSyntaxError const& e) {
        return e.getReason();
    }
    return "no error";
}

} // namespace

TEST(XmlDocumentTest, SyntaxErrorNamesDocumentLineAndColumn) {
    std::string reason = syntaxErrorOf("<a>\n  <b>\n</a>", "table.xml");
    EXPECT_EQ(0u, reason.rfind("table.xml:3:", 0)) << reason;
    EXPECT_NE(std::string::npos, reason.find("mismatch")) << reason;

    reason = syntaxErrorOf("<a x=\"1>\n</a>", "q.xml");
    EXPECT_EQ(0u, reason.rfind("q.xml:", 0)) << reason;

    EXPECT_EQ(0u, syntaxErrorOf("", "empty.xml").rfind("empty.xml:1:1: ", 0));
    EXPECT_THROW(XmlDocument("<a><b></a>"), XmlEx::ExSyntaxError);
}

TEST(XmlDocumentTest, ColumnCountsFromLineStart) {
    // The stray '<' is the 5th byte of line 2.
    std::string reason = syntaxErrorOf("<a>\nabc<<\n</a>", "c.xml");
    EXPECT_EQ(0u, reason.rfind("c.xml:2:", 0)) << reason;
}

TEST(XmlDocumentTest, UnreadableFileIsASyntaxErrorNamingThePath) {
    try {
        XmlDocument doc(OsFilePath("/nonexistent/dir/table.xml"));
        FAIL() << "no exception";
    } catch (XmlEx::ExSyntaxError const& e) {
        EXPECT_EQ("/nonexistent/dir/table.xml: cannot read the file", e.getReason());
    }
}

TEST(XmlDocumentTest, ReadsFileAndKeepsLineNumbers) {
    OsFilePath path = OsFilePath::getTempDir() + OsFilePath("zr_xmlTest_lines.xml");
    {
        std::ofstream out(path.getChars());
        out << "<?xml version=\"1.0\"?>\n<Root>\n  <A/>\n\n  <B>\n    <A/>\n  </B>\n</Root>\n";
    }
    XmlDocument doc(path);
    std::remove(path.getChars());
    XmlElement root = doc.getRoot();
    EXPECT_EQ(2, root.getLine());
    auto all = root.getAllElementsByTagName("A");
    ASSERT_EQ(2u, all.size());
    EXPECT_EQ(3, all[0].getLine());
    EXPECT_EQ(6, all[1].getLine());
    EXPECT_EQ(path.toString(), all[1].getDocumentName());
    EXPECT_EQ(0, root.appendChild("New").getLine());
}

TEST(XmlElementTest, TypedAttributesAndAbsence) {
    XmlDocument doc("<E f=\"1.5\" d=\" -2.25e3 \" i=\"42\" bad=\"4x\" w=\"h\xC3\xA9\"/>");
    XmlElement e = doc.getRoot();
    float f = 0;
    double d = 0;
    int i = 0;
    std::wstring w;
    EXPECT_TRUE(e.getAttribute("f", f));
    EXPECT_EQ(1.5f, f);
    EXPECT_TRUE(e.getAttribute("d", d));
    EXPECT_EQ(-2250.0, d);
    EXPECT_TRUE(e.getAttribute("i", i));
    EXPECT_EQ(42, i);
    EXPECT_TRUE(e.getAttribute("w", w));
    EXPECT_EQ(L"h\u00e9", w);
    EXPECT_EQ("h\xC3\xA9", e.getAttributeMB("w"));

    i = 7;
    EXPECT_FALSE(e.getAttribute("missing", i));
    EXPECT_FALSE(e.getAttribute("bad", i));
    EXPECT_FALSE(e.getAttribute("f", i)); // 1.5 is not an int
    EXPECT_EQ(7, i);
    EXPECT_FALSE(e.getAttribute("missing", w));
    EXPECT_EQ("", e.getAttribute("missing"));
    EXPECT_EQ("4x", e.getAttribute(std::string("bad")));
    EXPECT_TRUE(e.hasAttribute("bad"));
    EXPECT_FALSE(e.hasAttribute("missing"));
}

TEST(XmlElementTest, IsTrueWordsAndDefaults) {
    XmlDocument doc("<E a=\"YES\" b=\"off\" c=\" On \" d=\"0\" e=\"maybe\"/>");
    XmlElement e = doc.getRoot();
    EXPECT_TRUE(e.isTrue("a", false));
    EXPECT_FALSE(e.isTrue("b", true));
    EXPECT_TRUE(e.isTrue("c", false));
    EXPECT_FALSE(e.isTrue("d", true));
    EXPECT_TRUE(e.isTrue("e", true));
    EXPECT_FALSE(e.isTrue("e", false));
    EXPECT_TRUE(e.isTrue("absent", true));
}

TEST(XmlElementTest, DataOfEachType) {
    XmlDocument doc(
        "<R><B> true </B><I>\n  12\n</I><F>0.1</F><S>a &amp; b</S><C><![CDATA[<x>]]></C>"
        "<N/><X>12abc</X></R>");
    XmlElement r = doc.getRoot();
    bool b = false;
    int i = 0;
    float f = 0;
    double d = 0;
    std::string s;
    EXPECT_TRUE(r.getElementByTagName("B").getData(b));
    EXPECT_TRUE(b);
    EXPECT_TRUE(r.getElementByTagName("I").getData(i));
    EXPECT_EQ(12, i);
    EXPECT_TRUE(r.getElementByTagName("F").getData(f));
    EXPECT_EQ(0.1f, f);
    EXPECT_TRUE(r.getElementByTagName("F").getData(d));
    EXPECT_EQ(0.1, d);
    EXPECT_TRUE(r.getElementByTagName("S").getData(s));
    EXPECT_EQ("a & b", s);
    EXPECT_EQ("<x>", r.getElementByTagName("C").getDataMB());

    EXPECT_FALSE(r.getElementByTagName("N").getData(s));
    EXPECT_FALSE(r.getElementByTagName("X").getData(i));
    EXPECT_FALSE(r.getElementByTagName("X").getData(b));
    EXPECT_EQ(12, i);
    EXPECT_FALSE(r.getElementByTagName("Nope").getData(i));
    EXPECT_EQ("", r.getElementByTagName("Nope").getDataMB());
}

TEST(XmlElementTest, ChildrenDirectAndAllDescendants) {
    XmlDocument doc("<R><A id=\"1\"><A id=\"2\"/><B><A id=\"3\"/></B></A><!-- c -->text<B/><A "
                    "id=\"4\"/></R>");
    XmlElement r = doc.getRoot();
    EXPECT_EQ("R", r.getNodeName());
    EXPECT_EQ(3, r.getNbChildren());
    auto children = r.getChildren();
    ASSERT_EQ(3u, children.size());
    EXPECT_EQ("B", children[1].getNodeName());

    auto direct = r.getElementsByTagName("A");
    ASSERT_EQ(2u, direct.size());
    EXPECT_EQ("1", direct[0].getAttribute("id"));
    EXPECT_EQ("4", direct[1].getAttribute("id"));
    EXPECT_EQ("1", r.getElementByTagName("A").getAttribute("id"));

    std::string ids;
    for (XmlElement const& a : r.getAllElementsByTagName("A"))
        ids += a.getAttribute("id");
    EXPECT_EQ("1234", ids);
    EXPECT_EQ(1u, direct[0].getAllElementsByTagName("B").size());
    EXPECT_EQ(r, direct[0].getParent());
    EXPECT_TRUE(r.getParent().isNull());
}

TEST(XmlElementTest, NullElementAnswersAbsent) {
    XmlElement null;
    int i = 3;
    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(null.getAttribute("a", i));
    EXPECT_EQ("", null.getNodeName());
    EXPECT_EQ(0, null.getNbChildren());
    EXPECT_TRUE(null.getAllElementsByTagName("a").empty());
    EXPECT_TRUE(null.getElementByTagName("a").isNull());
    EXPECT_EQ(0, null.getLine());
}

TEST(XmlElementTest, DetachedElementBuildsATree) {
    XmlElement root("Table");
    XmlElement row = root.appendChild("Row");
    row.setAttribute("name", "r1");
    row.setAttribute("name", "r2"); // replaces, no duplicate attribute
    row.setData("hello");
    row.setData("world");
    XmlElement copy = root; // shares the owned document
    EXPECT_EQ(1, copy.getNbChildren());
    EXPECT_EQ("r2", copy.getElementByTagName("Row").getAttribute("name"));
    EXPECT_EQ("world", copy.getElementByTagName("Row").getDataMB());
}

TEST(XmlWriterTest, WritesIndentedEscapedEmptyAndGuardedElements) {
    std::ostringstream os;
    {
        XmlWriter w(os, 2);
        XmlWriter::ElementGuard root(w, "Root");
        w.writeAttrib("q", "a\"<&>'");
        {
            XmlWriter::ElementGuard child(w, "Child");
            w.writeAttrib("n", 3);
            w.writeTag("Text", "x < y & z");
            w.openTag("Empty");
            w.closeTag();
        }
        w.writeTag("Blank", "");
    }
    EXPECT_EQ("<Root q=\"a&quot;&lt;&amp;&gt;'\">\n"
              "  <Child n=\"3\">\n"
              "    <Text>x &lt; y &amp; z</Text>\n"
              "    <Empty/>\n"
              "  </Child>\n"
              "  <Blank/>\n"
              "</Root>\n",
              os.str());
}

TEST(XmlWriterTest, AttributeAfterContentIsAnAssertion) {
    std::ostringstream os;
    XmlWriter w(os, 2);
    EXPECT_THROW(w.writeData("no element"), ExAssertionFailed);
    w.openTag("A");
    w.writeData(1);
    EXPECT_THROW(w.writeAttrib("late", 1), ExAssertionFailed);
    w.closeTag();
    EXPECT_THROW(w.closeTag(), ExAssertionFailed);
}

TEST(XmlWriterTest, RoundTripKeepsTextsAndNumbersExactly) {
    std::ostringstream os;
    float const f = 0.1f + 0.2f;
    double const d = 1.0 / 3.0;
    std::string const text = "line1\nline2\t<&>\"'\r";
    {
        XmlWriter w(os, 4);
        w.writeDeclaration();
        XmlWriter::ElementGuard g(w, "R");
        w.writeAttrib("f", f);
        w.writeAttrib("d", d);
        w.writeAttrib("text", text);
        w.openTag("D");
        w.writeData(d);
        w.closeTag();
        w.openTag("I");
        w.writeData(-17);
        w.closeTag();
        w.writeTag("S", text);
        w.openTag("C");
        w.writeData("a");
        w.writeData(std::string("b"));
        w.closeTag();
    }
    XmlDocument doc(os.str(), "roundtrip");
    XmlElement r = doc.getRoot();
    float rf = 0;
    double rd = 0;
    int ri = 0;
    EXPECT_TRUE(r.getAttribute("f", rf));
    EXPECT_EQ(f, rf);
    EXPECT_TRUE(r.getAttribute("d", rd));
    EXPECT_EQ(d, rd);
    EXPECT_EQ(text, r.getAttribute("text"));
    EXPECT_TRUE(r.getElementByTagName("D").getData(rd));
    EXPECT_EQ(d, rd);
    EXPECT_TRUE(r.getElementByTagName("I").getData(ri));
    EXPECT_EQ(-17, ri);
    EXPECT_EQ(text, r.getElementByTagName("S").getDataMB());
    EXPECT_EQ("ab", r.getElementByTagName("C").getDataMB());
}
