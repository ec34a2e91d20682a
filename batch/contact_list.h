#pragma once

#include "batch/list.h"
#include "records/adif.h"

#include <array>
#include <string>
#include <string_view>

namespace orbisgrid {

/// Contacts of an ADIF log. The target is GRIDSQUARE with its GRIDSQUARE_EXT, or else the place of
/// LAT and LON; Home is MY_GRIDSQUARE; the options may name other fields for the two. Fields that a
/// contact has stay, or are written anew; others are added before its end.
class ContactList : public List {
public:
    ContactList(RecordWindow& window, Task& task, const ListOptions& options);

    Question question() override;
    void write(std::string& bytes, const Question& question, const Values* values) override;
    void addMembers(JsonLine& object, bool hasResults) override;

protected:
    Reading read(Record& record) override { return m_reader.next(record); }

private:
    /// A field that questions are made of.
    struct AskedField {
        std::string name;       ///< in capitals
        std::string_view value; ///< empty where the contact has none
    };

    void findFields();
    void putFields(const Question& question, const Values& values);

    AdifReader m_reader;
    std::array<AskedField, 6> m_asked;
    std::string m_target; ///< of two of them
    ContactFields m_fields;
};

} // namespace orbisgrid
