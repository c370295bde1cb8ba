// Tests of UiConstraint: evaluation against parent and siblings, the grid, comparisons, and the
// text and XML forms with their errors.
#include "support/exceptionReason.h"
#include "uiConstraint.h"

#include "xmlDocument.h"
#include "xmlWriter.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

namespace Zr {
namespace {

UiConstraint parse(std::string const& text) {
    UiConstraint c;
    std::istringstream is(text);
    is >> c;
    return c;
}

std::string toText(UiConstraint const& c) {
    std::ostringstream os;
    os << c;
    return os.str();
}

// The reason of the resource exception that reading `text` raises; "" when none is raised.
template <class Ex>
std::string readError(std::string const& text) {
    try {
        parse(text);
    } catch (Ex const& ex) {
        return ex.getReason();
    }
    return "";
}

GeRectangle<int> rect(std::string const& text, int w, int h) {
    return parse(text).calcRect(w, h);
}

// Constraints in their text form evaluated in a parent of 200 by 100: x1, x2, y1, y2. A unit is
// 7 pixels; the gap of the grid (4 across, 3 up) is lost on the far edge only, and "uu" never
// takes it. A dimension on the high edge is the size; on the low edge the high edge is computed
// first. Crossing edges give an empty rectangle at the low edge; a value that is not a number
// places its edge at 0.
TEST(ConstraintCalc, EdgesFollowTheirTypeAndTarget) {
    struct {
        char const* constraint;
        GeRectangle<int> rect;
    } const rows[] = {
        {"0 p l 0 p b 0 p r 0 p t", {0, 200, 0, 100}},
        {"0 u l 0 p b 3 u l 0 p t", {0, 17, 0, 100}},
        {"2 u l 0 p b 5 u l 0 p t", {14, 31, 0, 100}}, // 14 up to 35 less the gap of 4
        {"0 p l 1 u b 0 p r 3 u b", {0, 200, 7, 18}},
        {"2 uu l 0 p b 5 uu l 0 p t", {14, 35, 0, 100}},
        {"10 p l 0 p b 20 p w 0 p t", {10, 30, 0, 100}},
        {"0 p l 0 p b 20 u w 0 p t", {0, 136, 0, 100}},
        {"0 p l 10 p b 0 p r 2 u h", {0, 200, 10, 21}},
        {"20 p w 0 p b 0 p r 0 p t", {180, 200, 0, 100}},
        {"10 u w 0 p b 0 p r 0 p t", {134, 200, 0, 100}}, // 70 less the gap, as on the high edge
        {"0 p l 30 p h 0 p r -10 p t", {0, 200, 60, 90}},
        {"-10 p c -5 p c 10 p c 5 p c", {90, 110, 45, 55}},
        {"25 % l 10 % b 75 % l 90 % b", {50, 150, 10, 90}},
        {"50 p l 0 p b 20 p l 0 p t", {50, 50, 0, 100}},
        {"nan p l 0 p b 10 p l 0 p t", {0, 10, 0, 100}},
    };
    for (auto const& row : rows)
        EXPECT_EQ(rect(row.constraint, 200, 100), row.rect) << row.constraint;
    EXPECT_EQ(UiFillConstraint().calcRect(200, 100), GeRectangle<int>(0, 200, 0, 100));
    // Centre: origin (200 - 1) * 0.5, value 100: floor(99.5 + 100 + 0.5).
    EXPECT_EQ(rect("50 % c 0 p b 0 p r 0 p t", 200, 100).x1, 200);
}

TEST(ConstraintCalc, SiblingsAnchorOnFacingOrOppositeEdges) {
    UiConstraint c = parse("2 p s left 0 p so below 0 p s right 0 p so above");
    GeRectangle<int> const left(0, 40, 0, 10);
    GeRectangle<int> const below(0, 10, 5, 15);
    GeRectangle<int> const right(150, 200, 0, 10);
    GeRectangle<int> const above(0, 10, 60, 80);
    // X1 facing: left.x2; Y1 opposite: below.y1; X2 facing: right.x1; Y2 opposite: above.y2.
    EXPECT_EQ(c.calcRect(200, 100, left, below, right, above), GeRectangle<int>(42, 150, 5, 80));
    UiConstraint d = parse("0 p so left 0 p s below 0 p so right 0 p s above");
    EXPECT_EQ(d.calcRect(200, 100, left, below, right, above), GeRectangle<int>(0, 200, 15, 60));
    EXPECT_EQ(c.getSibling(0), LiString("left"));
    EXPECT_EQ(c.getSibling(3), LiString("above"));
}

TEST(ConstraintCalc, EdgesBeyondTheRangeOfIntStopAtItsEnds) {
    GeRectangle<int> const r = rect("-1e30 p l 0 p b 1e30 % r 3e38 u t", 200, 100);
    EXPECT_EQ(r.x1, std::numeric_limits<int>::min());
    EXPECT_EQ(r.x2, 2147483520);
    EXPECT_EQ(r.y2, 2147483520);
}

TEST(ConstraintCalc, EditFormStoresThePixelEdges) {
    UiConstraint c = parse("0 u l 0 p b 3 u l 0 p t");
    GeRectangle<int> const zero;
    c.calcRect(GeRectangle<int>(5, 50, 5, 50), 200, 100, zero, zero, zero, zero);
    EXPECT_EQ(c.X1, 0.f);
    EXPECT_EQ(c.X2, 17.f);
    EXPECT_EQ(c.Y2, 100.f);
    EXPECT_EQ(c.type[0], UiConstraint::TypeUnit);
    EXPECT_EQ(c.target[3], UiConstraint::TargetHigh);
}

TEST(ConstraintCalc, UninitialisedConstraintRaises) {
    UiConstraint c;
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::UiConstraintEx::ExUninitialized>(
                  [&] { c.calcRect(10, 10); }),
              "Error, Use of a unitialized constraint");
    EXPECT_THROW((void)(c == UiFillConstraint()), UiResourceEx::UiConstraintEx::ExUninitialized);
    std::ostringstream os;
    EXPECT_THROW(os << c, UiResourceEx::UiConstraintEx::ExUninitialized);
    EXPECT_THROW(c.dump(os), UiResourceEx::UiConstraintEx::ExUninitialized);
}

TEST(ConstraintCalc, BadSiblingIndexAborts) {
    UiConstraint c = UiFillConstraint();
    EXPECT_EQ(TestSupport::reasonOf<ExProgramAborted>([&] { c.getSibling(4); }),
              "Unexpected constraint index : 4");
    EXPECT_THROW(c.getSibling(-1), ExProgramAborted);
}

TEST(ConstraintGrid, GridValuesAndConversions) {
    EXPECT_EQ(UiConstraint::getUIGrid(), GeVector2<float>(7.f, 7.f));
    EXPECT_EQ(UiConstraint::getUIGridGap(), GeVector2<float>(4.f, 3.f));
    EXPECT_EQ(UiConstraint::getUIGridScale(), GeVector2<float>(1.f, 1.f));
    EXPECT_EQ(UiConstraint::pixelsToUIUnits({14.f, 7.f}), GeVector2<float>(2.5f, 1.5f));
    EXPECT_EQ(UiConstraint::clampAndConvertToUIGrid({0, 70, 0, 35}),
              GeRectangle<int>(0, 66, 0, 32));
    // The size is clamped against the origin, and the origin added after.
    EXPECT_EQ(UiConstraint::clampAndConvertToUIGrid({10, 80, 5, 40}),
              GeRectangle<int>(10, 76, 5, 37));
    EXPECT_EQ(UiConstraint::clampAndConvertToUIGrid({20, 22, 30, 31}),
              GeRectangle<int>(20, 40, 30, 60));
}

TEST(ConstraintShorthands, EdgesOfTheSubclasses) {
    EXPECT_EQ(UiHFillConstraint(0, 0, UiConstraint::TypePixel), UiFillConstraint());
    EXPECT_EQ(UiVFillLeftConstraint(0, 0, UiConstraint::TypePixel), UiFillConstraint());
    EXPECT_EQ(toText(UiRelConstraint(2, -3, 5, 0, UiConstraint::TypeUnit)),
              "2 u l -3 u t 5 u l 0 u t");
    EXPECT_EQ(toText(UiHFillDownConstraint(-2, -1, UiConstraint::TypeUnit)),
              "0 p l -2 u t 0 p r -1 u t");
    EXPECT_EQ(UiVFillConstraint(-10, 0, UiConstraint::TypePixel).calcRect(200, 100),
              GeRectangle<int>(190, 200, 0, 100));
    EXPECT_EQ(toText(UiConstraint(GeRectangle<int>(1, 2, 3, 4), UiConstraint::TargetLow,
                                  UiConstraint::TargetLow, UiConstraint::TargetHigh,
                                  UiConstraint::TargetHigh)),
              "1 p l 3 p b 2 p r 4 p t");
}

TEST(ConstraintCompare, ValuesNearlyEqualEverythingElseExactly) {
    UiConstraint a = parse("1 p l 0 p b 100000 p r 0 p t");
    UiConstraint b = a;
    b.X2 = 100000.008f; // within one epsilon of the magnitude
    EXPECT_TRUE(a == b);
    b.X2 = 100020.f;
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(parse("0 p s x 0 p b 0 p r 0 p t") == parse("0 p s y 0 p b 0 p r 0 p t"));
    EXPECT_FALSE(parse("0 p l 0 p b 0 p r 0 p t") == parse("0 uu l 0 p b 0 p r 0 p t"));
    EXPECT_FALSE(parse("0 p l 0 p b 0 p r 0 p t") == parse("0 p c 0 p b 0 p r 0 p t"));
}

TEST(ConstraintText, RoundTripsThroughTheTextForm) {
    for (std::string text :
         {"0 p l 0 p b 0 p r 0 p t", "0 u l 0 p b 10 u w 0 p t",
          "2.5 uu s left -1 % so below 10 u w 50 % c", "3 p r 4 p t 5 p c 6 p h"}) {
        EXPECT_EQ(toText(parse(text)), text);
    }
    // The pair keywords read on either axis and are written by the axis.
    EXPECT_EQ(toText(parse("0 p b 0 p l 0 p t 10 p w")), "0 p l 0 p b 0 p r 10 p h");
}

TEST(ConstraintText, BadStringsRaiseWithTheirText) {
    EXPECT_EQ(readError<UiResourceEx::UiConstraintEx::ExUnknownType>("0 q l 0 p b 0 p r 0 p t"),
              "Error, Unknown constraint type q (line ends with \"l 0 p b 0 p r 0 p t\")");
    EXPECT_EQ(readError<UiResourceEx::UiConstraintEx::ExUnknownTarget>("0 p l 0 p x 0 p r 0 p t"),
              "Error, Unknown constraint target x (line ends with \"0 p r 0 p t\")");
    EXPECT_EQ(readError<UiResourceEx::ExIncompleteResource>("0 p l 0 p b"),
              "Error, unexpected end of resource specification.");
    EXPECT_EQ(readError<UiResourceEx::ExBadNumber>("0 p l zero p b 0 p r 0 p t"),
              "Bad number \"zero\" for edge Y1: not a number.");
    EXPECT_EQ(readError<UiResourceEx::ExIncompleteResource>("0 p s"),
              "Error, unexpected end of resource specification.");
    EXPECT_EQ(readError<UiResourceEx::UiConstraintEx::ExBaseDimension>("10 p w 0 p b 20 p w 0 p t"),
              "Error, dimension used twice within the same axis");
    EXPECT_THROW(UiConstraint(0, 0, 0, 0, UiConstraint::TypePixel, UiConstraint::TypePixel,
                              UiConstraint::TypePixel, UiConstraint::TypePixel,
                              UiConstraint::TargetLow, UiConstraint::TargetDimension,
                              UiConstraint::TargetLow, UiConstraint::TargetDimension),
                 UiResourceEx::UiConstraintEx::ExBaseDimension);
}

TEST(ConstraintText, FailedReadKeepsThePreviousConstraint) {
    UiConstraint c = parse("1 p l 2 p b 3 p r 4 p t");
    std::istringstream is("5 p l 6 p q");
    EXPECT_THROW(is >> c, UiResourceEx);
    EXPECT_EQ(toText(c), "1 p l 2 p b 3 p r 4 p t");
}

std::string toXml(UiConstraint const& c) {
    std::ostringstream os;
    {
        XmlWriter writer(os);
        XmlWriter::ElementGuard guard(writer, "Constraint");
        c.write(writer);
    }
    return os.str();
}

TEST(ConstraintXml, RoundTripsAndWritesSiblingsOnlyWhenNeeded) {
    UiConstraint c = parse("2.5 uu s left 0 p b 10 u w -3 % so top");
    std::string xml = toXml(c);
    EXPECT_NE(xml.find("<X1 Value=\"2.5\" Type=\"uu\" Target=\"s\" Sibling=\"left\"/>"),
              std::string::npos)
        << xml;
    EXPECT_NE(xml.find("<Y1 Value=\"0\" Type=\"p\" Target=\"b\"/>"), std::string::npos) << xml;
    XmlDocument document(xml, "constraint");
    UiConstraint back;
    back.read(document.getRoot());
    EXPECT_TRUE(back.isInitialized());
    EXPECT_EQ(back, c);
}

TEST(ConstraintXml, MissingPartsAndUnknownKeywordsRaise) {
    auto readXml = [](std::string const& xml) {
        XmlDocument document(xml, "constraint");
        UiConstraint c;
        c.read(document.getRoot());
    };
    std::string const good = "<X1 Value='0' Type='p' Target='l'/><Y1 Value='0' Type='p' "
                             "Target='b'/><X2 Value='0' Type='p' Target='r'/>";
    EXPECT_NO_THROW(
        readXml("<Constraint>" + good + "<Y2 Value='0' Type='p' Target='t'/></Constraint>"));
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::ExIncompleteResource>(
                  [&] { readXml("<Constraint>" + good + "</Constraint>"); }),
              "Error, wrong resource specification for resource ''.");
    EXPECT_THROW(readXml("<Constraint>" + good + "<Y2 Value='0' Type='p'/></Constraint>"),
                 UiResourceEx::ExIncompleteResource);
    EXPECT_THROW(
        readXml("<Constraint>" + good + "<Y2 Value='0' Type='p' Target='s'/></Constraint>"),
        UiResourceEx::ExIncompleteResource);
    EXPECT_THROW(
        readXml("<Constraint>" + good + "<Y2 Value='0' Type='pp' Target='t'/></Constraint>"),
        UiResourceEx::UiConstraintEx::ExUnknownType);
    EXPECT_THROW(
        readXml("<Constraint>" + good + "<Y2 Value='0' Type='p' Target='up'/></Constraint>"),
        UiResourceEx::UiConstraintEx::ExUnknownTarget);
}

} // namespace
} // namespace Zr
