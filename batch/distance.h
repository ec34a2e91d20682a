#pragma once

#include "batch/task.h"
#include "core/text.h"
#include "geodesy/great_circle.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

struct DistanceOptions {
    std::string home;         ///< of records that name none; empty: those are refused
    bool isLongPath = false;  ///< the way round the other side as well
    bool isEllipsoid = false; ///< the geodesic distance on WGS-84 as well
};

/// Distance, azimuth and both positions, digit for digit as Calculate shows them. A locator counts
/// by its first six characters, as the boxes cut it.
class DistanceTask : public Task {
public:
    explicit DistanceTask(DistanceOptions options);

    const std::vector<Column>& columns() const override { return m_columns; }

    Answer answer(const Question& question, Values& values) override;

    void putFields(const Question& question, const Values& values, ContactFields& fields) override;

    std::vector<std::string_view> targetColumns() const override;

    bool hasHome() const override { return true; }

    bool needsHome() const override { return m_options.home.empty(); }

private:
    /// What is kept of a Home for the next record, which mostly has the same.
    struct Home {
        std::string typed;    ///< cut to six characters
        Text locator;         ///< completed; empty where it is refused
        Position point;       ///< where the distance begins
        std::string latitude; ///< as the window shows it
        std::string longitude;
    };

    bool takeHome(std::string_view locator);
    std::optional<LocatorPath> pathTo(const Question& question, TextView target) const;
    void putLongPath(const LocatorPath& path, bool isAzimuthNone, Values& values) const;
    bool putEllipsoid(Values& values) const;

    DistanceOptions m_options;
    std::vector<Column> m_columns;
    std::size_t m_ellipsoidColumn{};
    Home m_home;
};

} // namespace orbisgrid
