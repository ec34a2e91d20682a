#include "batch/map_task.h"

#include "batch/box_text.h"
#include "geodesy/locator_check.h"
#include "map/caption.h"
#include "records/lines.h"

#include <utility>

namespace orbisgrid {

namespace {

constexpr std::string_view invalidLocator = "Invalid locator!";

/// The locator that counts of a text, checked; nothing where it is none.
std::optional<Text> locatorIn(std::string_view text) {
    const Text locator = widened(inItsBox(text));
    return hasAcceptedLength(locator) ? checkedHome(locator) : std::nullopt;
}

} // namespace

MapTask::MapTask(MapOptions options)
    : m_options(std::move(options))
    , m_home(locatorIn(m_options.home).value_or(Text())) {}

Answer MapTask::answer(const Question& question, Values& /*values*/) {
    if (question.home.empty() && m_options.home.empty())
        return {"No locator of Home!", {}, {}};
    if (!question.home.empty()) {
        const auto home = locatorIn(question.home);
        if (!home)
            return {invalidLocator, {}, question.home};
        if (!m_home.empty() && *home != m_home)
            return {"Another Home than the map's!", {}, question.home};
        m_home = *home;
    }
    const bool isThere = !withoutBlanks(question.target).empty();
    const auto target =
        question.place ? checkedHome(placeLocator(*question.place)) : locatorIn(question.target);
    if (!target)
        return {isThere ? invalidLocator : "No locator!", {}, isThere ? question.target : ""};
    if (m_drawn.insert(*target).second)
        m_targets.push_back(*target);
    return {};
}

std::optional<std::string> MapTask::ending() {
    return mapFile({m_home, m_targets, m_options.radiusKilometres, true, m_options.moment,
                    m_options.outlines ? &*m_options.outlines : nullptr});
}

std::vector<std::string_view> MapTask::targetColumns() const {
    return {"gridsquare", "target", "locator"};
}

} // namespace orbisgrid
