#include "fuzz/oracle.h"
#include "fuzz/xml_reader.h"
#include "geodesy/locator_check.h"
#include "map/caption.h"
#include "map/labels.h"
#include "map/map_file.h"
#include "map/path_map.h"
#include "map/svg.h"

#include <cmath>
#include <cstring>

namespace orbisgrid::fuzz {

namespace {

/// Takes numbers and texts from the front of the input; zeros and nothing behind its end.
class Input {
public:
    explicit Input(std::string_view bytes)
        : m_rest(bytes) {}

    std::uint8_t byte() {
        if (m_rest.empty())
            return 0;
        const auto value = static_cast<std::uint8_t>(m_rest.front());
        m_rest.remove_prefix(1);
        return value;
    }

    std::int16_t number() {
        const unsigned low = byte(), high = byte();
        return static_cast<std::int16_t>(low | (high << 8U));
    }

    /// Any double, infinities and no numbers among them.
    double anything() {
        std::uint64_t bits = 0;
        for (int i = 0; i < 8; ++i)
            bits = (bits << 8U) | byte();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    /// Mostly within the world, in quarters of a degree.
    double degrees() {
        const std::int16_t value = number();
        return value == 0x7FFF ? anything() : value / 4.0;
    }

    Text line() {
        const std::size_t end = std::min(m_rest.find('\n'), m_rest.size());
        const Text text = fromUtf8(m_rest.substr(0, end));
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        return text;
    }

    bool isAtEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
};

PathMapOptions optionsOf(Input& input) {
    PathMapOptions options;
    const unsigned flags = input.byte();
    options.view.centre.latitude = input.degrees();
    options.view.centre.longitude = input.degrees();
    options.view.radiusKilometres = (flags & 1U) != 0 ? input.anything() : 20 * input.number();
    options.view.textSize = (flags & 2U) != 0 ? input.anything() : 14;
    if ((flags & 4U) != 0)
        options.moment = Moment{std::int64_t{input.number()} << (input.byte() % 48)};
    if ((flags & 8U) != 0)
        options.home = input.line();
    if ((flags & 16U) != 0) {
        options.cross.emplace();
        options.cross->latitude = input.degrees();
        options.cross->longitude = input.degrees();
    }
    options.drawsPaths = (flags & 32U) == 0;
    constexpr std::size_t mostTargets = 8;
    while (!input.isAtEnd() && options.targets.size() < mostTargets) {
        MapTarget& target = options.targets.emplace_back();
        target.place.latitude = input.degrees();
        target.place.longitude = input.degrees();
        target.text = input.line();
    }
    return options;
}

void requireInside(Picture::Point point, double radius) {
    require(std::hypot(point.x - 500, point.y - 500) <= radius, "a point beyond its place");
}

/// Each shape where its role allows it: finite, and within the rim or the picture.
class Inspector {
public:
    explicit Inspector(const Picture& picture)
        : m_rim(picture.radius + 1e-6) {}

    void operator()(const Picture::Area& area) const { inspect(area.rings, m_rim); }

    void operator()(const Picture::Lines& lines) const {
        const bool isBeyond = lines.role == Role::tick || lines.role == Role::cross;
        inspect(lines.lines, isBeyond ? 600 : m_rim);
    }

    void operator()(const Picture::Circle& circle) const {
        require(circle.radius > 0 && circle.radius <= m_rim, "radius of a circle");
    }

    void operator()(const Picture::Dot& dot) const {
        requireInside(dot.place, m_rim);
        require(dot.radius > 0 && dot.radius < 50, "radius of a dot");
    }

    void operator()(const Picture::Label& label) const {
        const LabelBox box = boxOf(label);
        require(box.left >= 0 && box.top >= 0 && box.right <= 1000 && box.bottom <= 1000,
                "a text beyond the picture");
    }

private:
    static void inspect(const std::vector<Picture::Polyline>& lines, double radius) {
        for (const Picture::Polyline& line : lines) {
            for (const Picture::Point point : line)
                requireInside(point, radius);
        }
    }

    double m_rim;
};

void requireApart(const Picture& picture) {
    std::vector<LabelBox> boxes;
    for (const Picture::Shape& shape : picture.shapes) {
        if (const auto* label = std::get_if<Picture::Label>(&shape))
            boxes.push_back(boxOf(*label));
    }
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            require(boxes[i].left >= boxes[k].right || boxes[k].left >= boxes[i].right ||
                        boxes[i].top >= boxes[k].bottom || boxes[k].top >= boxes[i].bottom,
                    "two texts in one place");
        }
    }
}

void comparePicture(std::string_view bytes) {
    Input input(bytes);
    const PathMapOptions options = optionsOf(input);
    const Picture picture = pathMap(options);
    for (const Picture::Shape& shape : picture.shapes)
        std::visit(Inspector(picture), shape);
    requireApart(picture);
    const Text words = options.home.value_or(Text());
    require(isXml(svgText(picture, {words, words})), "XML of a picture");
}

void compareFile(std::string_view bytes) {
    Input input(bytes);
    MapFileOptions options;
    options.home = input.line();
    options.targets = {input.line()};
    options.radiusKilometres = input.anything();
    const auto file = mapFile(options);
    require(file.has_value() == checkedHome(options.home).has_value(), "file of a home");
    require(!file || isXml(*file), "XML of a file");
    const auto caption = pathCaption({options.home, options.targets[0]});
    require(!caption || file.has_value(), "caption without a file");
    require(!caption || file->find(toUtf8(*caption)) != std::string::npos, "caption in the file");
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    fuzz::comparePicture(fuzz::bytesOf(data, size));
    fuzz::compareFile(fuzz::bytesOf(data, size));
    return 0;
}
