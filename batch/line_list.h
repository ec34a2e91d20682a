#pragma once

#include "batch/list.h"
#include "records/lines.h"

namespace orbisgrid {

/// Lines: two locators, or one where Home is known; for other tasks a position. Results stand
/// behind the line, each behind a tab.
class LineList : public List {
public:
    LineList(RecordWindow& window, Task& task, const ListOptions& options);

    Question question() override;
    void pass(std::string& bytes) const override;
    void write(std::string& bytes, const Question& question, const Values* values) override;
    void addMembers(JsonLine& object, bool hasResults) override;

protected:
    Reading read(Record& record) override;

private:
    LineReader m_reader;
    Question m_question;
    bool m_isHeaderDue;
    bool m_isHeader = false;
};

} // namespace orbisgrid
