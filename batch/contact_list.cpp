#include "batch/contact_list.h"

#include <vector>

namespace orbisgrid {

namespace {

/// GRIDSQUARE holds up to eight characters of a locator, GRIDSQUARE_EXT the next ones. Ten are the
/// most that a locator has here.
constexpr std::size_t extended = 8;
constexpr std::size_t longest = 10;

/// Whether a field is about the other station, wherever the position of a result comes from.
bool isOfContact(std::string_view name) {
    return name == "GRIDSQUARE" || name == "GRIDSQUARE_EXT" || name == "LAT" || name == "LON";
}

/// The name that an option gives to a field, in capitals; else its usual one.
std::string nameOr(const std::string& option, const char* usual) {
    if (option.empty())
        return usual;
    return inCapitals(option);
}

} // namespace

ContactList::ContactList(RecordWindow& window, Task& task, const ListOptions& options)
    : List(task, options)
    , m_reader(window)
    , m_asked{{{nameOr(options.homeColumn, "MY_GRIDSQUARE"), {}},
               {nameOr(options.targetColumn, "GRIDSQUARE"), {}},
               {"GRIDSQUARE_EXT", {}},
               {"LAT", {}},
               {"LON", {}},
               {"ANT_PATH", {}}}} {}

/// One pass for all of them.
void ContactList::findFields() {
    for (AskedField& asked : m_asked)
        asked.value = {};
    for (const Field& field : record().fields) {
        for (AskedField& asked : m_asked) {
            // Without white space, which a length that is too large has in it.
            if (asked.value.empty() && isNamed(field, asked.name))
                asked.value = withoutWhiteSpace(field.value);
        }
    }
}

Question ContactList::question() {
    findFields();
    const auto& [home, target, extension, latitude, longitude, path] = m_asked;
    Question question;
    question.home = home.value;
    question.target = target.value;
    question.isLongWay = path.value == "L" || path.value == "l";
    if (question.target.empty()) {
        question.place = placeOf(latitude.value, longitude.value);
        const bool isThere = !latitude.value.empty() || !longitude.value.empty();
        if (isThere && !question.place)
            question.refusal = "LAT and LON name no place!";
        question.target = latitude.value;
    } else if (question.target.size() == extended && options().targetColumn.empty()) {
        (m_target = question.target) += extension.value.substr(0, longest - extended);
        question.target = m_target;
    }
    return question;
}

void ContactList::putFields(const Question& question, const Values& values) {
    task().putFields(question, values, m_fields);
    const bool isOfAnother = !options().targetColumn.empty();
    // An extension goes with what it extends.
    const bool staysAsItIs = !options().isReplacing && fieldOf(record(), "GRIDSQUARE") != nullptr;
    std::erase_if(m_fields, [&](const auto& field) {
        return (isOfAnother && isOfContact(field.first)) ||
               (staysAsItIs && field.first == "GRIDSQUARE_EXT");
    });
}

void ContactList::write(std::string& bytes, const Question& question, const Values* values) {
    m_fields.clear();
    if (values != nullptr)
        putFields(question, *values);
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

void ContactList::addMembers(JsonLine& object, bool /*hasResults*/) {
    MemberNames names(refusalMember);
    for (const Field& field : record().fields)
        object.addText(names.take(inCapitals(field.name)), field.value);
}

} // namespace orbisgrid
