#pragma once

#include "batch/task.h"
#include "records/format.h"
#include "records/json.h"
#include "records/record.h"

#include <memory>
#include <string>
#include <string_view>

namespace orbisgrid {

/// What the options say about lists.
struct ListOptions {
    std::string homeColumn;   ///< or the field of a contact; empty: the usual names
    std::string targetColumn; ///< likewise
    bool hasHeader = false;   ///< the first line of `lines` is one
    bool isReplacing = false; ///< results that are there already are written anew

    bool namesColumns() const { return !homeColumn.empty() || !targetColumn.empty(); }
};

/// The member of an object that says why there are no results.
inline constexpr const char* refusalMember = "error";

/// A list in one format: reads its records one by one, and writes each as it came with its results.
class List {
public:
    List(Task& task, const ListOptions& options)
        : m_task(task)
        , m_options(options) {}

    List(const List&) = delete;
    List& operator=(const List&) = delete;
    virtual ~List() = default;

    /// The next record, which `record` shows then.
    Reading next();

    const Record& record() const { return m_record; }

    /// Why nothing can be done with this list; empty if it can. To be asked behind each record that
    /// passes through.
    virtual std::string problem() const { return {}; }

    /// What the record asks, if it is data. Valid until the next one.
    virtual Question question() = 0;

    /// Puts a record that passes through behind `bytes`. A header gets the names of the results.
    virtual void pass(std::string& bytes) const { bytes += m_record.bytes; }

    /// Puts the record behind `bytes`, with its results: null where they were refused.
    virtual void write(std::string& bytes, const Question& question, const Values* values) = 0;

    /// The record's own fields as members of an object, without those that its results replace,
    /// where it `hasResults`. None is called `refusalMember`.
    virtual void addMembers(JsonLine& object, bool hasResults) = 0;

    /// Whether a column of results is among these already, and stays.
    virtual bool hasOwn(std::size_t /*column*/) const { return false; }

protected:
    virtual Reading read(Record& record) = 0;

    Task& task() const { return m_task; }

    const ListOptions& options() const { return m_options; }

private:
    Task& m_task;
    const ListOptions& m_options;
    Record m_record;
};

/// A list of this format. `format` is one that can be read.
[[nodiscard]] std::unique_ptr<List> makeList(Format format, RecordWindow& window, Task& task,
                                             const ListOptions& options);

} // namespace orbisgrid
