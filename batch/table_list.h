#pragma once

#include "batch/list.h"
#include "records/csv.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// Rows of csv or tsv. The columns of results are appended under their names; one that is there
/// already stays, or takes the new results. A row with fewer fields than the header is filled up in
/// front of them.
class TableList : public List {
public:
    TableList(RecordWindow& window, char separator, Task& task, const ListOptions& options);

    std::string problem() const override { return m_problem; }

    Question question() override;
    void pass(std::string& bytes) const override;
    void write(std::string& bytes, const Question& question, const Values* values) override;
    void addMembers(JsonLine& object, bool hasResults) override;
    bool hasOwn(std::size_t column) const override;

protected:
    Reading read(Record& record) override;

private:
    static constexpr std::size_t none = std::string_view::npos;

    void takeHeader(const Record& record);
    std::size_t placeOf(const std::vector<std::string_view>& names) const;
    std::string_view valueAt(std::size_t place) const;
    void appendValue(std::string& bytes, std::string_view value) const;
    std::string surplusName(std::size_t place) const;
    const std::string* replacement(std::size_t place, const Values* values) const;

    CsvReader m_reader;
    std::vector<std::string> m_names;   ///< of the header, as they are written there
    std::vector<std::string> m_members; ///< the same as names of an object's members
    MemberNames m_taken{refusalMember}; ///< by them
    std::vector<std::size_t> m_columns; ///< for each result its place in the header, or none
    std::vector<std::size_t> m_added;   ///< the results that have none
    std::size_t m_home = none;
    std::size_t m_target = none;
    bool m_isHeaderRead = false;
    bool m_isHeader = false;
    std::string m_problem;
    std::string m_member;
};

} // namespace orbisgrid
