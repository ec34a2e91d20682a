#pragma once

#include "batch/position_text.h"
#include "batch/task.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

struct ConvertOptions {
    Notation from = Notation::automatic;
    std::size_t characters = 6; ///< of the locator that is written: 6, 8 or 10
};

/// One position in all notations. Each is made of the decimal degrees as they are written, as the
/// converter's panels are; but no digit of them is cut. A locator that was read is written as it
/// was completed.
class ConvertTask : public Task {
public:
    explicit ConvertTask(ConvertOptions options);

    const std::vector<Column>& columns() const override { return m_columns; }

    Answer answer(const Question& question, Values& values) override;

    void putFields(const Question& question, const Values& values, ContactFields& fields) override;

    std::vector<std::string_view> targetColumns() const override;

private:
    ConvertOptions m_options;
    std::vector<Column> m_columns;
    std::string m_contactLatitude;
    std::string m_contactLongitude;
};

} // namespace orbisgrid
