#include "batch/list.h"

#include "batch/contact_list.h"
#include "batch/line_list.h"
#include "batch/table_list.h"

namespace orbisgrid {

Reading List::next() {
    return read(m_record);
}

std::unique_ptr<List> makeList(Format format, RecordWindow& window, Task& task,
                               const ListOptions& options) {
    switch (format) {
    case Format::csv:
        return std::make_unique<TableList>(window, ',', task, options);
    case Format::tsv:
        return std::make_unique<TableList>(window, '\t', task, options);
    case Format::adif:
        return std::make_unique<ContactList>(window, task, options);
    case Format::lines:
    case Format::json:
        break;
    }
    return std::make_unique<LineList>(window, task, options);
}

} // namespace orbisgrid
