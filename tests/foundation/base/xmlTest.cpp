// XML documents, elements and the writer: round trips, typed reads and error reports.
#include "xmlDocument.h"
#include "xmlWriter.h"

#include "support/exceptionReason.h"
#include "support/testSupport.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <tuple>

using namespace Zr;

namespace {

// The attribute `name` (or the data of the first child `name`) read as a T, or nothing.
template <class T>
std::optional<T> attrib(XmlElement const& e, char const* name) {
    T value{};
    return e.getAttribute(name, value) ? std::optional<T>(value) : std::nullopt;
}
template <class T>
std::optional<T> data(XmlElement const& e, char const* name) {
    T value{};
    return e.getElementByTagName(name).getData(value) ? std::optional<T>(value) : std::nullopt;
}

} // namespace

TEST(XmlDocumentTest, SyntaxErrorNamesDocumentLineAndColumn) {
    // text, name, how the reason starts, a word it holds
    std::tuple<char const*, char const*, char const*, char const*> const rows[] = {
        {"<a>\n  <b>\n</a>", "table.xml", "table.xml:3:", "mismatch"},
        {"<a x=\"1>\n</a>", "q.xml", "q.xml:", ""},
        {"", "empty.xml", "empty.xml:1:1: ", ""},
        {"<a>\nabc<<\n</a>", "c.xml", "c.xml:2:", ""}, // columns count from the line start
    };
    for (auto const& [text, name, start, word] : rows) {
        std::string reason = TestSupport::reasonOf<XmlEx::ExSyntaxError>(
            [text = text, name = name] { XmlDocument doc(text, name); });
        EXPECT_EQ(0u, reason.rfind(start, 0)) << reason;
        EXPECT_NE(std::string::npos, reason.find(word)) << reason;
    }
    EXPECT_EQ("/nonexistent/dir/table.xml: cannot read the file",
              TestSupport::reasonOf<XmlEx::ExSyntaxError>(
                  [] { XmlDocument doc(OsFilePath("/nonexistent/dir/table.xml")); }));
}

TEST(XmlDocumentTest, ReadsFileAndKeepsLineNumbers) {
    TestSupport::TempFile file("zr_xmlTest_lines.xml",
                               "<?xml version=\"1.0\"?>\n<Root>\n  <A/>\n\n  "
                               "<B>\n    <A/>\n  </B>\n</Root>\n");
    XmlDocument doc(file.path);
    XmlElement root = doc.getRoot();
    EXPECT_EQ(2, root.getLine());
    auto all = root.getAllElementsByTagName("A");
    ASSERT_EQ(2u, all.size());
    EXPECT_EQ(3, all[0].getLine());
    EXPECT_EQ(6, all[1].getLine());
    EXPECT_EQ(file.path.toString(), all[1].getDocumentName());
    EXPECT_EQ(0, root.appendChild("New").getLine());
}

TEST(XmlElementTest, TypedAttributesAndAbsence) {
    XmlDocument doc("<E f=\"1.5\" d=\" -2.25e3 \" i=\"42\" bad=\"4x\" w=\"h\xC3\xA9\"/>");
    XmlElement e = doc.getRoot();
    EXPECT_EQ(1.5f, attrib<float>(e, "f"));
    EXPECT_EQ(-2250.0, attrib<double>(e, "d"));
    EXPECT_EQ(42, attrib<int>(e, "i"));
    EXPECT_EQ(L"h\u00e9", attrib<std::wstring>(e, "w"));
    EXPECT_EQ("h\xC3\xA9", e.getAttributeMB("w"));
    for (char const* notAnInt : {"missing", "bad", "f"}) // 1.5 is not an int
        EXPECT_FALSE(attrib<int>(e, notAnInt)) << notAnInt;
    int i = 7;
    EXPECT_FALSE(e.getAttribute("bad", i));
    EXPECT_EQ(7, i);
    EXPECT_FALSE(attrib<std::wstring>(e, "missing"));
    EXPECT_EQ("", e.getAttribute("missing"));
    EXPECT_EQ("4x", e.getAttribute(std::string("bad")));
    EXPECT_FALSE(e.hasAttribute("missing"));
}

TEST(XmlElementTest, IsTrueWordsAndDefaults) {
    XmlDocument doc("<E a=\"YES\" b=\"off\" c=\" On \" d=\"0\" e=\"maybe\"/>");
    XmlElement e = doc.getRoot();
    // attribute, default, answer
    std::tuple<char const*, bool, bool> const rows[] = {
        {"a", false, true}, {"b", true, false},  {"c", false, true},     {"d", true, false},
        {"e", true, true},  {"e", false, false}, {"absent", true, true},
    };
    for (auto const& [name, fallback, answer] : rows)
        EXPECT_EQ(answer, e.isTrue(name, fallback)) << name << " " << fallback;
}

TEST(XmlElementTest, DataOfEachType) {
    XmlDocument doc(
        "<R><B> true </B><I>\n  12\n</I><F>0.1</F><S>a &amp; b</S><C><![CDATA[<x>]]></C>"
        "<N/><X>12abc</X></R>");
    XmlElement r = doc.getRoot();
    EXPECT_EQ(true, data<bool>(r, "B"));
    EXPECT_EQ(12, data<int>(r, "I"));
    EXPECT_EQ(0.1f, data<float>(r, "F"));
    EXPECT_EQ(0.1, data<double>(r, "F"));
    EXPECT_EQ("a & b", data<std::string>(r, "S"));
    EXPECT_EQ("<x>", r.getElementByTagName("C").getDataMB());
    EXPECT_FALSE(data<std::string>(r, "N"));
    EXPECT_FALSE(data<int>(r, "X"));
    EXPECT_FALSE(data<bool>(r, "X"));
    EXPECT_FALSE(data<int>(r, "Nope"));
    EXPECT_EQ("", r.getElementByTagName("Nope").getDataMB());
}

TEST(XmlElementTest, ChildrenDirectAndAllDescendants) {
    XmlDocument doc("<R><A id=\"1\"><A id=\"2\"/><B><A id=\"3\"/></B></A><!-- c -->text<B/><A "
                    "id=\"4\"/></R>");
    XmlElement r = doc.getRoot();
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
    EXPECT_TRUE(null.getAllElementsByTagName("a").empty());
    EXPECT_TRUE(null.getElementByTagName("a").isNull());
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
    EXPECT_EQ(f, attrib<float>(r, "f"));
    EXPECT_EQ(d, attrib<double>(r, "d"));
    EXPECT_EQ(text, r.getAttribute("text"));
    EXPECT_EQ(d, data<double>(r, "D"));
    EXPECT_EQ(-17, data<int>(r, "I"));
    EXPECT_EQ(text, r.getElementByTagName("S").getDataMB());
    EXPECT_EQ("ab", r.getElementByTagName("C").getDataMB());
}
