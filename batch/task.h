#pragma once

#include "core/position.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orbisgrid {

/// What a record asks.
struct Question {
    std::string_view home;         ///< a locator; empty where the record names none
    std::string_view target;       ///< a locator, for `convert` a position in any notation
    std::optional<Position> place; ///< in the place of the target
    bool isLongWay = false;        ///< a contact by the long path
    std::string_view refusal;      ///< why it cannot be answered; mostly empty
};

/// A column of results. What is no number is a text.
struct Column {
    std::string_view name;
    bool isNumber = true;
};

/// The results of a record, one for each column; empty where there is none.
using Values = std::vector<std::string>;

/// What became of a question.
struct Answer {
    std::string_view refusal; ///< why there are no results; empty where there are
    std::string_view remark;  ///< something to be said about results
    std::string_view text;    ///< what of the question it is about
};

/// Fields of a contact: names and values.
using ContactFields = std::vector<std::pair<std::string_view, std::string_view>>;

/// What a command does to each record.
class Task {
public:
    Task() = default;
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    virtual ~Task() = default;

    virtual const std::vector<Column>& columns() const = 0;

    /// Puts the results into `values`, which has a text for each column. After a refusal they mean
    /// nothing. The views of the result hold as long as those of the question.
    virtual Answer answer(const Question& question, Values& values) = 0;

    /// The results of the last question as the fields of a contact.
    virtual void putFields(const Question& question, const Values& values,
                           ContactFields& fields) = 0;

    /// Whether records go out with their results.
    virtual bool writesRecords() const { return true; }

    /// What is written behind all records; nothing where there can be none.
    virtual std::optional<std::string> ending() { return std::string(); }

    /// The columns that a table may have its target in.
    virtual std::vector<std::string_view> targetColumns() const = 0;

    /// Whether a question has a Home beside its target.
    virtual bool hasHome() const { return false; }

    /// Whether it must have one.
    virtual bool needsHome() const { return false; }
};

} // namespace orbisgrid
