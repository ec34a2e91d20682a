#include "batch/table_list.h"

#include "records/format.h"
#include "records/lines.h"

#include <algorithm>
#include <utility>

namespace orbisgrid {

namespace {

/// What a person is told to name: "gridsquare, target or locator".
std::string enumerated(const std::vector<std::string_view>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0)
            text += i + 1 == names.size() ? " or " : ", ";
        text += names[i];
    }
    return text;
}

} // namespace

TableList::TableList(RecordWindow& window, char separator, Task& task, const ListOptions& options)
    : List(task, options)
    , m_reader(window, separator) {}

Reading TableList::read(Record& record) {
    const Reading reading = m_reader.next(record);
    const bool isRow = reading == Reading::record && !record.content.empty();
    m_isHeader = isRow && !m_isHeaderRead;
    if (m_isHeader)
        takeHeader(record);
    return reading;
}

void TableList::takeHeader(const Record& record) {
    m_isHeaderRead = true;
    if (!isClosed(record.fields.back())) {
        m_problem = "the quotes of its header never close";
        return;
    }
    for (const Field& field : record.fields) {
        std::string name;
        appendUnquoted(name, field);
        m_members.push_back(m_taken.take(name));
        m_names.push_back(std::move(name));
    }
    for (const Column& column : task().columns()) {
        const std::size_t place = placeOf({column.name});
        if (place == none)
            m_added.push_back(m_columns.size());
        m_columns.push_back(place);
    }

    const std::string& home = options().homeColumn;
    const std::string& target = options().targetColumn;
    std::vector<std::string_view> homes{"my_gridsquare", "home"};
    if (!home.empty())
        homes = {home};
    std::vector<std::string_view> targets = task().targetColumns();
    if (!target.empty())
        targets = {target};
    if (task().hasHome())
        m_home = placeOf(homes);
    m_target = placeOf(targets);
    if (m_target == none)
        m_problem = "there is no column " + enumerated(targets);
    else if (m_home == none && (task().needsHome() || !home.empty()))
        m_problem = "there is no column " + enumerated(homes);
}

/// Of several names the first that the header has decides.
std::size_t TableList::placeOf(const std::vector<std::string_view>& names) const {
    for (const std::string_view name : names) {
        const auto found =
            std::find_if(m_names.begin(), m_names.end(),
                         [&](const std::string& own) { return isColumn(own, name); });
        if (found != m_names.end())
            return static_cast<std::size_t>(found - m_names.begin());
    }
    return none;
}

std::string_view TableList::valueAt(std::size_t place) const {
    return place < record().fields.size() ? record().fields[place].value : std::string_view{};
}

Question TableList::question() {
    Question question{valueAt(m_home), valueAt(m_target), {}, false, {}};
    if (withoutBlanks(question.home).empty())
        question.home = {};
    if (!isClosed(record().fields.back()))
        question.refusal = "Quotes that never close!";
    else if (record().fields.size() > m_names.size())
        question.refusal = "More fields than the header has!";
    return question;
}

bool TableList::hasOwn(std::size_t column) const {
    return m_columns[column] != none && !options().isReplacing;
}

/// In quotes where it needs them.
void TableList::appendValue(std::string& bytes, std::string_view value) const {
    if (value.find(m_reader.separator()) == std::string_view::npos &&
        value.find('"') == std::string_view::npos) {
        bytes += value;
        return;
    }
    bytes += '"';
    for (const char byte : value) {
        if (byte == '"')
            bytes += '"';
        bytes += byte;
    }
    bytes += '"';
}

void TableList::pass(std::string& bytes) const {
    if (!m_isHeader || !m_problem.empty()) {
        bytes += record().bytes;
        return;
    }
    bytes += record().bytes.substr(0, record().room());
    for (const std::size_t column : m_added)
        (bytes += m_reader.separator()) += task().columns()[column].name;
    bytes += record().bytes.substr(record().room());
}

/// The result that takes the place of the field there; null where the field stays.
const std::string* TableList::replacement(std::size_t place, const Values* values) const {
    if (values == nullptr || !options().isReplacing)
        return nullptr;
    const auto found = std::find(m_columns.begin(), m_columns.end(), place);
    return found == m_columns.end()
               ? nullptr
               : &(*values)[static_cast<std::size_t>(found - m_columns.begin())];
}

void TableList::write(std::string& bytes, const Question& /*question*/, const Values* values) {
    const Record& row = record();
    if (!isClosed(row.fields.back())) {
        bytes += row.bytes;
        return;
    }
    const char* written = row.bytes.data();
    const auto copyTo = [&](const char* end) {
        bytes.append(written, end);
        written = end;
    };
    if (options().isReplacing) {
        for (std::size_t i = 0; i < row.fields.size(); ++i) {
            if (const std::string* value = replacement(i, values)) {
                copyTo(row.fields[i].bytes.data());
                appendValue(bytes, *value);
                written += row.fields[i].bytes.size();
            }
        }
    }
    copyTo(row.bytes.data() + row.room());
    for (std::size_t i = row.fields.size(); i < m_names.size(); ++i) {
        bytes += m_reader.separator();
        if (const std::string* value = replacement(i, values))
            appendValue(bytes, *value);
    }
    for (const std::size_t column : m_added) {
        bytes += m_reader.separator();
        if (values != nullptr)
            appendValue(bytes, (*values)[column]);
    }
    copyTo(row.bytes.data() + row.bytes.size());
}

/// For a field that no name of the header stands above.
std::string TableList::surplusName(std::size_t place) const {
    MemberNames taken = m_taken;
    return taken.take("field_" + std::to_string(place + 1));
}

void TableList::addMembers(JsonLine& object, bool hasResults) {
    const Record& row = record();
    for (std::size_t i = 0; i < std::max(m_members.size(), row.fields.size()); ++i) {
        const bool isResult = std::find(m_columns.begin(), m_columns.end(), i) != m_columns.end();
        if (isResult && hasResults && options().isReplacing)
            continue;
        m_member.clear();
        if (i < row.fields.size()) // a short row is filled up
            appendUnquoted(m_member, row.fields[i]);
        if (i < m_members.size())
            object.addText(m_members[i], m_member);
        else
            object.addText(surplusName(i), m_member);
    }
}

} // namespace orbisgrid
