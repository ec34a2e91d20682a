#include "batch/batch_run.h"

#include "batch/message_text.h"
#include "platform/byte_stream.h"
#include "records/record_window.h"

#include <cerrno>
#include <tuple>
#include <utility>

namespace orbisgrid {

namespace {

/// So much is written at a time where one block that was read gives more: a quarter of a megabyte.
bool isFull(std::string_view block) {
    return block.size() >= 262144;
}

std::string_view unitOf(Format format) {
    switch (format) {
    case Format::csv:
    case Format::tsv:
        return "row";
    case Format::adif:
        return "contact";
    case Format::lines:
    case Format::json:
        break;
    }
    return "line";
}

} // namespace

/// Writes what is there before it waits for more: where the format is known, a line that comes
/// through a pipe is answered at once, and one of a file with all others of its block.
class BatchRun::WatchedSource : public ByteSource {
public:
    WatchedSource(BatchRun& run, ByteSource& source)
        : m_run(run)
        , m_source(source) {}

    std::optional<std::size_t> read(std::span<char> room) override {
        m_run.m_progress.update(m_run.m_done);
        if (!m_run.flush())
            return std::nullopt;
        const auto count = m_source.read(room);
        if (count)
            m_run.m_done.bytes += *count;
        return count;
    }

private:
    BatchRun& m_run;
    ByteSource& m_source;
};

BatchRun::BatchRun(RunOptions options, Task& task, RunSinks sinks, Progress& progress)
    : m_options(std::move(options))
    , m_task(task)
    , m_output(sinks.output)
    , m_messages(sinks.messages)
    , m_progress(progress)
    , m_values(task.columns().size()) {}

bool BatchRun::process(ByteSource& source, const std::string& name) {
    WatchedSource watched(*this, source);
    RecordWindow window(watched);
    const auto format = formatOf(window, name);
    if (!format)
        return false;
    if (m_options.output && *m_options.output != Format::json && *m_options.output != *format) {
        fail(name, "a list of the format " + std::string(nameOf(*format)) +
                       " can be written as it is, or as json");
        return false;
    }
    if (*format == Format::lines && m_options.list.namesColumns()) {
        fail(name, "lines have no columns that could be named");
        return false;
    }
    m_unit = unitOf(*format);
    endLine();
    const auto list = makeList(*format, window, m_task, m_options.list);
    return processRecords(*list, name, m_options.output == Format::json);
}

/// A list whose last line has no end must not swallow the first one of the next.
void BatchRun::endLine() {
    if (m_out.empty() ? m_isLineOpen : m_out.back() != '\n')
        m_out += '\n';
}

std::optional<Format> BatchRun::formatOf(RecordWindow& window, const std::string& name) {
    if (m_options.input)
        return m_options.input;
    if (const auto format = formatOfFile(name))
        return format;
    if (m_options.list.hasHeader)
        return Format::lines;
    const auto isLineThere = [&] { return window.bytes().find('\n') != std::string_view::npos; };
    std::optional<Reading> failure;
    while (!failure && !isLineThere() && !window.isWhole() && window.bytes().size() < guessedFrom)
        failure = window.fetch();
    const std::string_view begin = window.bytes().substr(window.markLength(), guessedFrom);
    if (!failure && beginsWithPlace(begin.substr(0, begin.find('\n'))))
        return Format::lines;
    if (!failure)
        failure = window.fetchUntil(guessedFrom);
    if (failure) {
        if (!m_isStopped) // what could not be written has said so
            fail(name, reasonOf(errno));
        return std::nullopt;
    }
    std::vector<std::string_view> columns = m_task.targetColumns();
    columns.insert(columns.end(), {"my_gridsquare", "home"});
    if (!m_options.list.targetColumn.empty())
        columns = {m_options.list.targetColumn};
    return guessedFormat(window.bytes().substr(window.markLength(), guessedFrom), columns);
}

bool BatchRun::processRecords(List& list, const std::string& name, bool isJson) {
    for (;;) {
        switch (list.next()) {
        case Reading::end:
            return true;
        case Reading::tooLong:
            fail(name, std::string(m_unit) + " " + std::to_string(list.record().line) +
                           " is too long to be one");
            return false;
        case Reading::unreadable:
            if (!m_isStopped)
                fail(name, reasonOf(errno));
            return false;
        case Reading::record:
            break;
        }
        if (list.record().isData) {
            if (!answer(list, name, isJson))
                return false;
        } else {
            if (!isJson && m_task.writesRecords())
                list.pass(m_out);
            if (const std::string problem = list.problem(); !problem.empty()) {
                fail(name, problem);
                return false;
            }
        }
        if (isFull(m_out) && !flush())
            return false;
    }
}

bool BatchRun::answer(List& list, const std::string& name, bool isJson) {
    ++m_done.lines;
    const Question question = list.question();
    const Answer answer = question.refusal.empty() ? m_task.answer(question, m_values)
                                                   : Answer{question.refusal, {}, question.target};
    if (!answer.refusal.empty()) {
        ++m_refused;
        sayOf(list.record(), name, {answer.refusal, answer.text});
        if (m_options.isStrict)
            return stop(Status::someRefused);
    } else if (!answer.remark.empty()) {
        sayOf(list.record(), name, {answer.remark, answer.text});
    }
    if (isJson)
        writeJson(list, answer.refusal);
    else if (m_task.writesRecords())
        list.write(m_out, question, answer.refusal.empty() ? &m_values : nullptr);
    return true;
}

void BatchRun::writeJson(List& list, std::string_view refusal) {
    JsonLine object(m_out);
    list.addMembers(object, refusal.empty());
    for (std::size_t i = 0; i < m_values.size() && refusal.empty(); ++i) {
        const Column& column = m_task.columns()[i];
        if (list.hasOwn(i))
            continue;
        if (column.isNumber)
            object.addNumber(column.name, m_values[i]);
        else
            object.addText(column.name, m_values[i]);
    }
    if (!refusal.empty())
        object.addText(refusalMember, refusal);
    object.end();
}

void BatchRun::sayOf(const Record& record, const std::string& name, const Notice& notice) {
    if (m_options.isQuiet)
        return;
    std::string line = printable(name) + ":" + std::to_string(record.line) + ": ";
    line += notice.what;
    if (!notice.text.empty())
        (line += " (").append(shortened(notice.text)) += ')';
    say(line);
}

void BatchRun::say(std::string_view line) {
    m_said += line;
    m_said += '\n';
    if (isFull(m_said))
        std::ignore = flush();
}

void BatchRun::fail(const std::string& name, const std::string& reason) {
    say("orbisgrid-batch: " + printable(name) + ": " + reason);
    std::ignore = stop(Status::failed);
}

bool BatchRun::stop(Status status) {
    m_status = status;
    m_isStopped = true;
    return false;
}

/// Results first, as a person reads them. Result: false where they cannot be written, which has
/// been said then.
bool BatchRun::flush() {
    if (!m_said.empty() || (m_options.isOutputShown && !m_out.empty()))
        m_progress.erase();
    if (!m_out.empty())
        m_isLineOpen = m_out.back() != '\n';
    const int error = m_out.empty() ? 0 : m_output.write(m_out);
    m_out.clear();
    if (error != 0)
        loseOutput(error);
    sayNow();
    return error == 0;
}

/// Where that cannot be, there is nobody to be told.
void BatchRun::sayNow() {
    if (!m_said.empty())
        std::ignore = m_messages.write(m_said);
    m_said.clear();
}

void BatchRun::loseOutput(int error) {
    if (error == EPIPE)
        std::ignore = stop(Status::brokenPipe);
    else
        fail(m_options.outputName, reasonOf(error));
}

Status BatchRun::finish() {
    if (!flush() || m_isStopped)
        return end();
    const auto ending = m_task.ending();
    if (!ending) {
        say("orbisgrid-batch: there is no Home to make it around");
        std::ignore = stop(Status::failed);
        return end();
    }
    m_out = *ending;
    if (!flush())
        return end();
    if (m_refused > 0) {
        m_status = Status::someRefused;
        if (!m_options.isQuiet)
            say(grouped(m_done.lines) + " " + std::string(m_unit) +
                (m_done.lines == 1 ? ", " : "s, ") + grouped(m_refused) + " refused");
    }
    if (const int error = m_output.finish(); error != 0)
        loseOutput(error);
    return end();
}

/// The last words.
Status BatchRun::end() {
    m_progress.erase();
    sayNow();
    return m_status;
}

} // namespace orbisgrid
