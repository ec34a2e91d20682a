#include "map/svg.h"

#include "map/role_style.h"
#include "tests/support/table.h"

#include <limits>

namespace orbisgrid {

namespace {

using test::Row;

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::string svgOf(Picture::Shape shape) {
    Picture picture;
    picture.shapes.push_back(std::move(shape));
    return svgText(picture, {u"A title", u"What is seen."});
}

TEST(Svg, HasItsFrameAndItsWords) {
    const std::string text = svgText({}, {u"A title", u"What is seen."});
    EXPECT_TRUE(text.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "));
    EXPECT_TRUE(contains(text, " viewBox=\"0 0 1000 1000\""));
    EXPECT_TRUE(contains(text, "<title>A title</title>\n<desc>What is seen.</desc>\n<style>"));
    EXPECT_TRUE(text.ends_with("</style>\n</svg>\n"));
}

TEST(Svg, AnAreaIsAPathOfClosedRings) {
    const std::string text = svgOf(Picture::Area{
        Role::land, {{{0, 0}, {10, 0}, {10, 10}}, {{20.25, 20}, {30, 20}, {30, 30.125}}}});
    EXPECT_TRUE(
        contains(text, "<path class=\"land\" d=\"M0 0L10 0 10 10ZM20.25 20L30 20 30 30.13Z\"/>\n"));
    EXPECT_TRUE(contains(text, "\npath{fill:none;fill-rule:evenodd}\n"));
}

TEST(Svg, LinesStayOpen) {
    const std::string text =
        svgOf(Picture::Lines{Role::longPath, {{{1, 2}, {3, 4}}, {{-5, 6}, {7, 8}}}});
    EXPECT_TRUE(contains(text, "<path class=\"long-path\" d=\"M1 2L3 4M-5 6L7 8\"/>\n"));
    EXPECT_TRUE(contains(text, "\n.long-path{fill:none;stroke:#b00020;stroke-width:1.6;"
                               "stroke-dasharray:9 6}\n"));
}

TEST(Svg, NoLinesAreNoElement) {
    EXPECT_FALSE(contains(svgOf(Picture::Lines{Role::border, {}}), "<path"));
}

TEST(Svg, CirclesAndDotsAreCircles) {
    EXPECT_TRUE(contains(svgOf(Picture::Circle{Role::rim, {500, 500}, 447.25}),
                         "<circle class=\"rim\" cx=\"500\" cy=\"500\" r=\"447.25\"/>\n"));
    EXPECT_TRUE(contains(svgOf(Picture::Dot{Role::home, {1.5, 2}, 4}),
                         "<circle class=\"home\" cx=\"1.5\" cy=\"2\" r=\"4\"/>\n"));
}

TEST(Svg, LabelsAreTextsWithTheirAnchor) {
    using enum Picture::Anchor;
    const auto label = [](Picture::Anchor anchor) {
        return svgOf(Picture::Label{Role::homeLabel, {10, 20}, anchor, 14, u"JO20AW"});
    };
    EXPECT_TRUE(contains(label(start),
                         "<text class=\"home-label\" x=\"10\" y=\"20\" font-size=\"14\" "
                         "text-anchor=\"start\">JO20AW</text>\n"));
    EXPECT_TRUE(contains(label(middle), "text-anchor=\"middle\""));
    EXPECT_TRUE(contains(label(end), "text-anchor=\"end\""));
}

class SvgNumberTest : public testing::TestWithParam<Row> {};

TEST_P(SvgNumberTest, IsShort) {
    const std::string text = svgOf(Picture::Circle{Role::ring, {GetParam().number("value"), 0}, 1});
    EXPECT_TRUE(contains(text, std::string(" cx=\"").append(GetParam()["text"]).append("\" ")))
        << text;
}

INSTANTIATE_TEST_SUITE_P(Rows, SvgNumberTest,
                         testing::ValuesIn(test::readTable("map_svg_number.tsv")), test::testName);

class SvgTextTest : public testing::TestWithParam<Row> {};

TEST_P(SvgTextTest, IsXml) {
    const Text text = GetParam().text("text");
    const std::string file =
        svgText({{}, 1, {Picture::Label{Role::note, {}, {}, 10, text}}}, {text, text});
    const std::string expected = GetParam()["written"];
    EXPECT_TRUE(contains(file, std::string(">").append(expected).append("</text>"))) << file;
    EXPECT_TRUE(contains(file, std::string("<title>").append(expected).append("</title>")));
    EXPECT_TRUE(contains(file, std::string("<desc>").append(expected).append("</desc>")));
}

INSTANTIATE_TEST_SUITE_P(Rows, SvgTextTest, testing::ValuesIn(test::readTable("map_svg_text.tsv")),
                         test::testName);

std::string titleOf(Text text) {
    const std::string file = svgText({}, {std::move(text), {}});
    const std::size_t start = file.find("<title>") + 7;
    return file.substr(start, file.find("</title>") - start);
}

TEST(Svg, WhatXmlCannotHoldIsReplaced) {
    const std::string lost = "\xEF\xBF\xBD";
    for (char16_t code = 0; code < 0x20; ++code) {
        const bool isAllowed = code == u'\t' || code == u'\n' || code == u'\r';
        const std::string written = titleOf(Text(1, code));
        EXPECT_EQ(written == lost, !isAllowed) << static_cast<int>(code);
    }
    EXPECT_EQ(titleOf(u"\t\n"), "\t\n");
    EXPECT_EQ(titleOf(u"\r"), "&#13;");
    EXPECT_EQ(titleOf(Text{0xFFFE, 0xFFFF}), lost + lost);
    EXPECT_EQ(titleOf(Text(1, 0xFFFD)), lost);
    EXPECT_EQ(titleOf(Text(1, 0xD800)), lost) << "half of a pair";
    EXPECT_EQ(titleOf(Text{0xD83D, 0xDE00}), "\xF0\x9F\x98\x80");
}

/// Whoever changes a colour looks at pictures: on paper, and light and dark on a screen.
TEST(Svg, HasRoomForTheLargestNumber) {
    Picture picture;
    picture.shapes.emplace_back(
        Picture::Circle{Role::ring, {std::numeric_limits<double>::max(), 0}, 1});
    const std::string file = svgText(picture, {});
    EXPECT_EQ(file.find('\0'), std::string::npos);
}

TEST(Svg, PensHaveTheirExactWidths) {
    const RoleStyles styles = printStyles();
    const std::pair<Role, double> widths[] = {
        {Role::land, 0.6},  {Role::border, 0.6}, {Role::grid, 0.4},      {Role::ring, 0.7},
        {Role::tick, 1.2},  {Role::rim, 1.2},    {Role::shortPath, 2.4}, {Role::longPath, 1.6},
        {Role::cross, 1.6}, {Role::note, 0.15},  {Role::homeLabel, 0.15}};
    for (const auto& [role, width] : widths)
        EXPECT_EQ(styles.of(role).width, width) << roleName(role);
}

TEST(Svg, HasTheLookOfPaper) {
    const std::string look =
        ".sea{fill:#ffffff;stroke:none}\n"
        ".land{fill:#d9d4c5;stroke:#77705c;stroke-width:0.6}\n"
        ".border{fill:none;stroke:#a39c88;stroke-width:0.6}\n"
        ".night{fill:#222233;fill-opacity:0.16;stroke:none}\n"
        ".grid{fill:none;stroke:#8fa3b8;stroke-width:0.4}\n"
        ".grid-label{fill:#4c647c;stroke:#ffffff;stroke-width:0.15em}\n"
        ".ring{fill:none;stroke:#444466;stroke-width:0.7;stroke-dasharray:1 3}\n"
        ".ring-label{fill:#444466;stroke:#ffffff;stroke-width:0.15em}\n"
        ".tick{fill:none;stroke:#222222;stroke-width:1.2}\n"
        ".bearing-label{fill:#222222;stroke:#ffffff;stroke-width:0.15em}\n"
        ".cardinal{fill:#222222;stroke:#ffffff;stroke-width:0.15em;font-weight:bold}\n"
        ".rim{fill:none;stroke:#222222;stroke-width:1.2}\n"
        ".short-path{fill:none;stroke:#b00020;stroke-width:2.4}\n"
        ".long-path{fill:none;stroke:#b00020;stroke-width:1.6;stroke-dasharray:9 6}\n"
        ".cross{fill:none;stroke:#000000;stroke-width:1.6}\n"
        ".target{fill:#b00020;stroke:none}\n"
        ".home{fill:#000000;stroke:none}\n"
        ".target-label{fill:#222222;stroke:#ffffff;stroke-width:0.15em;font-weight:bold}\n"
        ".home-label{fill:#222222;stroke:#ffffff;stroke-width:0.15em;font-weight:bold}\n"
        ".note{fill:#222222;stroke:#ffffff;stroke-width:0.15em}\n";
    const std::string file = svgText({}, {});
    EXPECT_NE(file.find(look + "</style>"), std::string::npos) << file;
}

} // namespace

} // namespace orbisgrid
