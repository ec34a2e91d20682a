#include "batch/program.h"

#include "batch/input.h"
#include "batch/message_text.h"
#include "batch/options.h"
#include "platform/byte_stream.h"
#include "platform/program_folder.h"
#include "platform/safe_file.h"

#include <cerrno>
#include <chrono>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

namespace orbisgrid {

namespace {

constexpr int standardOutput = 1;
constexpr int standardError = 2;

/// What messages call a file.
std::string shownName(const std::string& file) {
    return file == "-" ? "standard input" : file;
}

void processAll(const Invocation& call, BatchRun& run) {
    for (const std::string& name : call.files) {
        FileSource source(name);
        if (!source.isOpen()) {
            run.fail(name, reasonOf(errno));
            return;
        }
        if (!run.process(source, shownName(name)))
            return;
    }
}

int work(const Invocation& call, ByteSink& output, StreamSink& messages) {
    Progress::Show show;
    if (isTerminal(messages.stream()))
        show = [&messages](const std::string& bytes) { std::ignore = messages.write(bytes); };
    Progress progress(show, std::chrono::steady_clock::now);
    if (show)
        progress.setTotal(totalOf(call.files));
    const auto task = makeTask(call);
    BatchRun run(call.run, *task, {output, messages}, progress);
    processAll(call, run);
    return static_cast<int>(run.finish());
}

/// They lie beside the executable. A map without them is one all the same.
void readOutlines(MapOptions& map, StreamSink& messages) {
    const std::string path = executableFolder() + "/orbisgrid-map.dat";
    if (const auto bytes = readFile(path))
        map.outlines = Outlines::decode(*bytes);
    if (!map.outlines)
        std::ignore = messages.write("orbisgrid-batch: no outlines of land: " + path + "\n");
}

int refuse(StreamSink& messages, const std::string& why) {
    std::ignore = messages.write("orbisgrid-batch: " + why + "\n");
    return static_cast<int>(Status::failed);
}

int print(const std::string& text) {
    StreamSink output(standardOutput);
    int error = output.write(text);
    if (error == 0)
        error = output.finish();
    if (error == 0 || error == EPIPE)
        return 0;
    StreamSink(standardError).write("orbisgrid-batch: standard output: " + reasonOf(error) + "\n");
    return static_cast<int>(Status::failed);
}

} // namespace

std::unique_ptr<Task> makeTask(const Invocation& call) {
    if (call.command == Command::distance)
        return std::make_unique<DistanceTask>(call.distance);
    if (call.command == Command::map)
        return std::make_unique<MapTask>(call.map);
    return std::make_unique<ConvertTask>(call.convert);
}

int runProgram(std::span<char* const> arguments) {
    occupyStandardDescriptors();
    Invocation call = readInvocation(arguments);
    if (!call.wrong.empty()) {
        std::ignore = StreamSink(standardError).write(call.wrong + "\n");
        return static_cast<int>(Status::failed);
    }
    if (!call.shown.empty())
        return print(call.shown);
    StreamSink messages(standardError);
    if (call.command == Command::map)
        readOutlines(call.map, messages);
    if (call.outputFile.empty()) {
        StreamSink output(standardOutput);
        if (const auto name = fileThatIs(output.stream(), call.files))
            return refuse(messages, printable(shownName(*name)) +
                                        ": input and output are one file (-o replaces it)");
        call.run.isOutputShown = isTerminal(output.stream());
        return work(call, output, messages);
    }
    FileSink output(call.outputFile);
    if (const int error = output.error(); error != 0) {
        const std::string reason = error == EINVAL ? "not a regular file" : reasonOf(error);
        return refuse(messages, printable(call.outputFile) + ": " + reason);
    }
    return work(call, output, messages);
}

} // namespace orbisgrid
