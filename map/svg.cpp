#include "map/svg.h"

#include "map/role_style.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orbisgrid {

namespace {

constexpr std::string_view fontFamily = R"("DejaVu Sans","Liberation Sans",Arial,sans-serif)";

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
                 "</desc>\n<style>\n";
        writeStyleSheet(printStyles());
        m_text += "</style>\n";
        for (const Picture::Shape& shape : picture.shapes)
            std::visit([this](const auto& each) { write(each); }, shape);
        return std::move(m_text += "</svg>\n");
    }

private:
    void writeStyleSheet(const RoleStyles& styles) {
        // Whoever shows it on something dark: the texts around the map are dark, too.
        m_text += "svg{background:#fff}\ntext{font-family:";
        m_text += fontFamily;
        m_text += ";paint-order:stroke}\npath,text{stroke-linejoin:round}\n"
                  "path{fill:none;fill-rule:evenodd}\n";
        for (const Role role : everyRole())
            writeRule(role, styles.of(role));
    }

    void writeRule(Role role, const RoleStyle& style) {
        m_text += '.';
        m_text += roleName(role);
        m_text += '{';
        writeColor("fill", style.fill);
        writeColor("stroke", style.stroke);
        if (style.width > 0) {
            m_text += ";stroke-width:";
            number(style.width);
            m_text += isTextRole(role) ? "em" : "";
        }
        if (style.dash > 0) {
            m_text += ";stroke-dasharray:";
            number(style.dash);
            m_text += ' ';
            number(style.gap);
        }
        m_text += style.isBold ? ";font-weight:bold}\n" : "}\n";
    }

    /// "fill:#222233;fill-opacity:0.16"; the stroke's stands behind the fill's.
    void writeColor(std::string_view property, std::uint32_t color) {
        constexpr std::string_view digits = "0123456789abcdef";
        if (property == "stroke")
            m_text += ';';
        m_text += property;
        m_text += ':';
        const std::uint32_t alpha = color >> 24U;
        if (alpha == 0) {
            m_text += "none";
            return;
        }
        m_text += '#';
        for (unsigned shift = 24; shift > 0; shift -= 4)
            m_text += digits[(color >> (shift - 4)) & 0xFU];
        if (alpha < 0xFF) {
            m_text += ';';
            m_text += property;
            m_text += "-opacity:";
            number(alpha / 255.0);
        }
    }

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
        std::array<char, 350> digits{}; // the largest number has 309
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
