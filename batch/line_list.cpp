#include "batch/line_list.h"

namespace orbisgrid {

LineList::LineList(RecordWindow& window, Task& task, const ListOptions& options)
    : List(task, options)
    , m_reader(window)
    , m_isHeaderDue(options.hasHeader) {}

Reading LineList::read(Record& record) {
    const Reading reading = m_reader.next(record);
    m_isHeader = m_isHeaderDue && record.isData;
    if (m_isHeader) {
        m_isHeaderDue = false;
        record.isData = false;
    }
    return reading;
}

Question LineList::question() {
    const std::string_view line = record().content;
    m_question = {};
    if (!task().hasHome()) {
        m_question.target = withoutBlanks(line);
        return m_question;
    }
    const Words words = wordsOf(line);
    if (words.count == 1)
        m_question.target = words.first[0];
    else if (words.count == 2)
        m_question = {words.first[0], words.first[1], {}, false, {}};
    else
        m_question = {{}, withoutBlanks(line), {}, false, "More than two locators!"};
    return m_question;
}

void LineList::pass(std::string& bytes) const {
    if (!m_isHeader) {
        bytes += record().bytes;
        return;
    }
    bytes += record().bytes.substr(0, record().room());
    for (const Column& column : task().columns())
        (bytes += '\t') += column.name;
    bytes += record().bytes.substr(record().room());
}

void LineList::write(std::string& bytes, const Question& /*question*/, const Values* values) {
    bytes += record().bytes.substr(0, record().room());
    for (std::size_t i = 0; i < task().columns().size(); ++i) {
        bytes += '\t';
        if (values != nullptr)
            bytes += (*values)[i];
    }
    bytes += record().bytes.substr(record().room());
}

void LineList::addMembers(JsonLine& object, bool /*hasResults*/) {
    if (!task().hasHome()) {
        object.addText("position", m_question.target);
        return;
    }
    if (!m_question.home.empty())
        object.addText("home", m_question.home);
    object.addText("target", m_question.target);
}

} // namespace orbisgrid
