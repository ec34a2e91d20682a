#include "tests/support/in_process.h"

#include "batch/program.h"
#include "tests/support/pieces.h"

#include <sstream>
#include <vector>

namespace orbisgrid::test {

namespace {

class MemorySink : public ByteSink {
public:
    int write(std::string_view bytes) override {
        m_bytes += bytes;
        return 0;
    }

    const std::string& bytes() const { return m_bytes; }

private:
    std::string m_bytes;
};

} // namespace

BatchResult runBatch(const std::string& commandLine, ByteSource& list, const std::string& name) {
    std::istringstream stream("orbisgrid-batch " + commandLine);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    const Invocation call = readInvocation(arguments);
    if (!call.wrong.empty())
        return {{}, call.wrong + "\n", 2};
    if (!call.shown.empty())
        return {call.shown, {}, 0};
    MemorySink output, messages;
    Progress progress({}, std::chrono::steady_clock::now);
    const auto task = makeTask(call);
    BatchRun run(call.run, *task, {output, messages}, progress);
    run.process(list, name);
    const Status status = run.finish();
    return {output.bytes(), messages.bytes(), static_cast<int>(status)};
}

BatchResult runBatch(const std::string& commandLine, std::string_view list, const std::string& name,
                     std::size_t pieceSize) {
    Pieces pieces(list, pieceSize);
    return runBatch(commandLine, pieces, name);
}

} // namespace orbisgrid::test
