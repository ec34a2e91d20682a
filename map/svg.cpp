#include "map/svg.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orbisgrid {

namespace {

constexpr std::string_view styleSheet = R"(
text{font-family:"DejaVu Sans","Liberation Sans",Arial,sans-serif;fill:#222;)"
                                        R"(stroke:#fff;stroke-width:.15em;paint-order:stroke}
path,line,circle{fill:none;stroke-linejoin:round}
.sea{fill:#fff}
.land{fill:#d9d4c5;fill-rule:evenodd;stroke:#77705c;stroke-width:.6}
.border{stroke:#a39c88;stroke-width:.6}
.night{fill:#223;fill-opacity:.16;fill-rule:evenodd}
.grid{stroke:#8fa3b8;stroke-width:.4}
.ring{stroke:#446;stroke-width:.7;stroke-dasharray:1 3}
.rim,.tick{stroke:#222;stroke-width:1.2}
.short-path{stroke:#b00020;stroke-width:2.4}
.long-path{stroke:#b00020;stroke-width:1.6;stroke-dasharray:9 6}
.cross{stroke:#000;stroke-width:1.6}
.home{fill:#000}
.target{fill:#b00020}
.grid-label{fill:#587088}
.ring-label{fill:#446}
.cardinal,.home-label,.target-label{font-weight:bold}
)";

/// A character that an XML 1.0 file can hold as it is.
bool isXml(char16_t character) {
    if (character < 0x20)
        return character == u'\t' || character == u'\n';
    return character < 0xFFFE;
}

/// UTF-8 with what XML gives a meaning spelled out.
std::string escaped(TextView text) {
    Text clean;
    for (const char16_t character : text) {
        switch (character) {
        case u'&':
            clean += u"&amp;";
            break;
        case u'<':
            clean += u"&lt;";
            break;
        case u'>':
            clean += u"&gt;";
            break;
        case u'\r':
            clean += u"&#13;"; // a reader would take it for a line feed
            break;
        default:
            clean += isXml(character) ? character : u'\xFFFD';
        }
    }
    return toUtf8(clean);
}

/// Writes the file from its beginning to its end.
class SvgWriter {
public:
    std::string file(const Picture& picture, const SvgWords& words) {
        m_text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                 "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1000 1000\" "
                 "role=\"img\">\n<title>" +
                 escaped(words.title) + "</title>\n<desc>" + escaped(words.description) +
                 "</desc>\n<style>";
        m_text += styleSheet;
        m_text += "</style>\n";
        for (const Picture::Shape& shape : picture.shapes)
            std::visit([this](const auto& each) { write(each); }, shape);
        return std::move(m_text += "</svg>\n");
    }

private:
    void write(const Picture::Area& area) { writePath(area.role, area.rings, "Z"); }

    void write(const Picture::Lines& lines) { writePath(lines.role, lines.lines, ""); }

    void write(const Picture::Circle& circle) {
        writeCircle(circle.role, circle.centre, circle.radius);
    }

    void write(const Picture::Dot& dot) { writeCircle(dot.role, dot.place, dot.radius); }

    void write(const Picture::Label& label) {
        static constexpr std::array<std::string_view, 3> anchors{"start", "middle", "end"};
        begin("text", label.role);
        attribute("x", label.place.x);
        attribute("y", label.place.y);
        attribute("font-size", label.size);
        m_text += " text-anchor=\"";
        m_text += anchors.at(static_cast<std::size_t>(label.anchor));
        m_text += "\">" + escaped(label.text) + "</text>\n";
    }

    /// Nothing for no lines: an empty path is an error to some readers.
    void writePath(Role role, const std::vector<Picture::Polyline>& lines, std::string_view end) {
        if (lines.empty())
            return;
        begin("path", role);
        m_text += " d=\"";
        for (const Picture::Polyline& line : lines) {
            char before = 'M';
            for (const Picture::Point& point : line) {
                m_text += before;
                number(point.x);
                m_text += ' ';
                number(point.y);
                before = before == 'M' ? 'L' : ' ';
            }
            m_text += end;
        }
        m_text += "\"/>\n";
    }

    void writeCircle(Role role, Picture::Point centre, double radius) {
        begin("circle", role);
        attribute("cx", centre.x);
        attribute("cy", centre.y);
        attribute("r", radius);
        m_text += "/>\n";
    }

    void begin(std::string_view element, Role role) {
        m_text += '<';
        m_text += element;
        m_text += " class=\"";
        m_text += roleName(role);
        m_text += '"';
    }

    void attribute(std::string_view name, double value) {
        m_text += ' ';
        m_text += name;
        m_text += "=\"";
        number(value);
        m_text += '"';
    }

    /// Hundredths are a fiftieth of a pixel of a large window.
    void number(double value) {
        std::array<char, 32> digits{};
        const double hundredths = std::round(value * 100) / 100;
        const auto written = std::to_chars(digits.data(), digits.data() + digits.size(),
                                           hundredths + 0.0, std::chars_format::fixed);
        m_text.append(digits.data(), written.ptr);
    }

    std::string m_text;
};

} // namespace

std::string svgText(const Picture& picture, const SvgWords& words) {
    return SvgWriter().file(picture, words);
}

} // namespace orbisgrid
