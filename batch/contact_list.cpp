#include "batch/contact_list.h"

#include <algorithm>

namespace orbisgrid {

ContactList::ContactList(RecordWindow& window, Task& task, const ListOptions& options)
    : List(task, options)
    , m_reader(window) {}

/// Without white space, which a length that is too large has in it.
std::string_view ContactList::valueOf(std::string_view name) const {
    const Field* field = fieldOf(record(), name);
    return field == nullptr ? std::string_view{} : withoutWhiteSpace(field->value);
}

Question ContactList::question() {
    Question question;
    question.home = valueOf("MY_GRIDSQUARE");
    question.target = valueOf("GRIDSQUARE");
    const std::string_view path = valueOf("ANT_PATH");
    question.isLongWay = path == "L" || path == "l";
    if (question.target.empty()) {
        const std::string_view latitude = valueOf("LAT"), longitude = valueOf("LON");
        question.place = placeOf(latitude, longitude);
        if (!question.place && !(latitude.empty() && longitude.empty()))
            question.refusal = "LAT and LON name no place!";
        question.target = latitude;
    } else if (const std::string_view extension = valueOf("GRIDSQUARE_EXT"); !extension.empty()) {
        (m_target = question.target) += extension;
        question.target = m_target;
    }
    return question;
}

void ContactList::write(std::string& bytes, const Question& question, const Values* values) {
    m_fields.clear();
    if (values != nullptr)
        task().putFields(question, *values, m_fields);
    const Record& contact = record();
    const char* written = contact.bytes.data();
    const auto copyTo = [&](const char* end) {
        bytes.append(written, end);
        written = end;
    };
    if (options().isReplacing) {
        for (const Field& field : contact.fields) {
            for (const auto& [name, value] : m_fields) {
                if (!isNamed(field, name))
                    continue;
                copyTo(field.bytes.data());
                appendField(bytes, field.name, value);
                written += field.bytes.size();
            }
        }
    }
    copyTo(contact.bytes.data() + contact.room());
    const bool isItsEndBehind = isEnded(contact);
    for (const auto& [name, value] : m_fields) {
        if (value.empty() || fieldOf(contact, name) != nullptr)
            continue;
        if (!isItsEndBehind)
            bytes += ' ';
        appendField(bytes, name, value);
        if (isItsEndBehind)
            bytes += ' ';
    }
    copyTo(contact.bytes.data() + contact.bytes.size());
}

void ContactList::addMembers(JsonLine& object) {
    const auto& fields = record().fields;
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        const std::string member = capitalName(*field);
        const bool isRepeated = std::any_of(
            fields.begin(), field, [&](const Field& earlier) { return isNamed(earlier, member); });
        if (!isRepeated)
            object.addText(member, field->value);
    }
}

} // namespace orbisgrid
