#pragma once

#include "batch/list.h"
#include "batch/output.h"
#include "batch/progress.h"
#include "records/byte_source.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orbisgrid {

/// How the program ends.
enum class Status {
    allPassed = 0,
    someRefused = 1,
    failed = 2,      ///< wrong usage, or something that cannot be read or written
    brokenPipe = 141 ///< nobody reads the output any more: what a shell says of that
};

/// How a run goes about its lists.
struct RunOptions {
    std::optional<Format> input;  ///< nothing: guessed
    std::optional<Format> output; ///< nothing: as it came
    ListOptions list;
    bool isStrict = false; ///< stops at the first refusal
    bool isQuiet = false;  ///< says nothing about single records
    std::string outputName = "standard output";
    bool isOutputShown = false; ///< on a terminal: the line of progress makes way for it
};

/// Where a run writes.
struct RunSinks {
    ByteSink& output;
    ByteSink& messages; ///< for a person
};

/// Puts lists through a task, one after the other, and counts.
class BatchRun {
public:
    /// Everything is kept as a reference.
    BatchRun(RunOptions options, Task& task, RunSinks sinks, Progress& progress);

    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    /// All records of a list, whose name stands in front of each message. Result: whether to go on.
    bool process(ByteSource& source, const std::string& name);

    /// Says that a list cannot be read.
    void fail(const std::string& name, const std::string& reason);

    /// What is still to be written is, and the closing line said.
    Status finish();

private:
    class WatchedSource;

    /// What is said of a record, and which text of it that is about.
    struct Notice {
        std::string_view what, text;
    };

    void endLine();
    std::optional<Format> formatOf(RecordWindow& window, const std::string& name);
    bool processRecords(List& list, const std::string& name, bool isJson);
    bool answer(List& list, const std::string& name, bool isJson);
    void writeJson(List& list, std::string_view refusal);
    void say(std::string_view line);
    void sayOf(const Record& record, const std::string& name, const Notice& notice);
    bool flush();
    void sayNow();
    bool stop(Status status);
    void loseOutput(int error);
    Status end();

    RunOptions m_options;
    Task& m_task;
    ByteSink& m_output;
    ByteSink& m_messages;
    Progress& m_progress;
    Values m_values;
    std::string m_out;         ///< to be written
    std::string m_said;        ///< likewise
    bool m_isLineOpen = false; ///< what was written last has no line end
    WorkDone m_done;
    std::uint64_t m_refused = 0;
    std::string_view m_unit = "line";
    Status m_status = Status::allPassed;
    bool m_isStopped = false;
};

} // namespace orbisgrid
