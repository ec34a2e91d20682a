#pragma once

#include "batch/task.h"
#include "map/map_file.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

struct MapOptions {
    std::string home; ///< the centre; empty: the Home of the first record
    double radiusKilometres = halfCircumference;
    std::optional<Moment> moment;     ///< day and night
    std::optional<Outlines> outlines; ///< land and borders, where there are any
};

/// The smallest radius of a map, kilometres: below it the subsquares that the dots stand for fill
/// the map.
inline constexpr double smallestRadius = 100;

/// The picture of all Targets around Home, as an SVG file. Each is drawn once, at the centre of its
/// subsquare, also where a contact names its place in another way. Records do not go out.
class MapTask : public Task {
public:
    explicit MapTask(MapOptions options);

    const std::vector<Column>& columns() const override { return m_columns; }

    Answer answer(const Question& question, Values& values) override;

    void putFields(const Question& /*question*/, const Values& /*values*/,
                   ContactFields& /*fields*/) override {}

    std::vector<std::string_view> targetColumns() const override;

    bool hasHome() const override { return true; }

    bool needsHome() const override { return m_options.home.empty(); }

    bool writesRecords() const override { return false; }

    std::optional<std::string> ending() override;

private:
    MapOptions m_options;
    std::vector<Column> m_columns; ///< none
    Text m_home;                   ///< checked
    std::set<Text> m_drawn;        ///< Targets, checked
    std::vector<Text> m_targets;   ///< the same in their order: the first ones have room first
};

} // namespace orbisgrid
