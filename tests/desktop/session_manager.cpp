#include "tests/desktop/session_manager.h"

#include <poll.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>

namespace orbisgrid::test {

/// What the test wants of the thread that talks to the program.
enum class Command { none, announceEnd, callOff, end };

struct SessionManager::State {
    std::string address;
    int listenerCount = 0;
    IceListenObj* listeners = nullptr;
    IceConn ice = nullptr;
    SmsConn program = nullptr;
    std::atomic<int> saves = 0;
    std::atomic<bool> hasLeft = false;
    std::atomic<Command> command = Command::none;
    std::atomic<bool> isOver = false;
    std::mutex mutex; ///< of the properties
    std::map<std::string, std::string> properties;
    std::thread thread; ///< a program that starts waits for answers

    void listen();
    void serve();
    void obey();
    void accept(IceListenObj listener);
    void read();
    void leave();
};

namespace {

using State = SessionManager::State;

Bool everybodyMayCome(char* /*host*/) {
    return True;
}

State& of(SmPointer manager) {
    return *static_cast<State*>(manager);
}

Status onRegister(SmsConn program, SmPointer /*manager*/, char* former) {
    std::free(former);
    char* id = SmsGenerateClientID(program);
    SmsRegisterClientReply(program, id);
    std::free(id);
    // The protocol wants a new program to be asked at once.
    SmsSaveYourself(program, SmSaveLocal, False, SmInteractStyleNone, False);
    return 1;
}

void onSaved(SmsConn program, SmPointer manager, Bool /*success*/) {
    ++of(manager).saves;
    SmsSaveComplete(program);
}

void onClosed(SmsConn program, SmPointer manager, int count, char** reasons) {
    SmFreeReasons(count, reasons);
    SmsCleanUp(program);
    IceSetShutdownNegotiation(of(manager).ice, False);
    IceCloseConnection(of(manager).ice);
    of(manager).leave();
}

std::string textOf(const SmProp& property) {
    const std::string type = property.type;
    std::string text = type;
    for (int i = 0; i < property.num_vals; ++i) {
        const SmPropValue& value = property.vals[i];
        const auto* bytes = static_cast<const char*>(value.value);
        text += ' ';
        if (type == SmCARD8)
            text += std::to_string(static_cast<unsigned char>(*bytes));
        else
            text.append(bytes, static_cast<std::size_t>(value.length));
    }
    return text;
}

void onProperties(SmsConn /*program*/, SmPointer manager, int count, SmProp** properties) {
    const std::lock_guard lock(of(manager).mutex);
    for (int i = 0; i < count; ++i) {
        of(manager).properties[properties[i]->name] = textOf(*properties[i]);
        SmFreeProperty(properties[i]);
    }
    std::free(properties);
}

void onPropertiesDeleted(SmsConn /*program*/, SmPointer /*manager*/, int count, char** names) {
    for (int i = 0; i < count; ++i)
        std::free(names[i]);
    std::free(names);
}

Status onProgram(SmsConn program, SmPointer manager, unsigned long* mask, SmsCallbacks* callbacks,
                 char** /*failureReason*/) {
    of(manager).program = program;
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    *callbacks = {};
    callbacks->register_client = {onRegister, manager};
    callbacks->interact_request = {[](SmsConn who, SmPointer, int) { SmsInteract(who); }, manager};
    callbacks->interact_done = {[](SmsConn, SmPointer, Bool) {}, manager};
    callbacks->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {},
                                        manager};
    callbacks->save_yourself_phase2_request = {
        [](SmsConn who, SmPointer) { SmsSaveYourselfPhase2(who); }, manager};
    callbacks->save_yourself_done = {onSaved, manager};
    callbacks->close_connection = {onClosed, manager};
    callbacks->set_properties = {onProperties, manager};
    callbacks->delete_properties = {onPropertiesDeleted, manager};
    callbacks->get_properties = {
        [](SmsConn who, SmPointer) { SmsReturnProperties(who, 0, nullptr); }, manager};
    return 1;
}

} // namespace

void SessionManager::State::accept(IceListenObj listener) {
    IceAcceptStatus status = IceAcceptSuccess;
    ice = IceAcceptConnection(listener, &status);
}

void SessionManager::State::read() {
    if (IceProcessMessages(ice, nullptr, nullptr) != IceProcessMessagesIOError)
        return;
    IceCloseConnection(ice); // the program has died
    leave();
}

void SessionManager::State::leave() {
    ice = nullptr;
    hasLeft = true;
}

void SessionManager::State::obey() {
    const Command wanted = command.exchange(Command::none);
    if (ice == nullptr)
        return;
    if (wanted == Command::announceEnd)
        SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleAny, False);
    else if (wanted == Command::callOff)
        SmsShutdownCancelled(program);
    else if (wanted == Command::end)
        SmsDie(program);
    IceFlush(ice);
}

void SessionManager::State::serve() {
    while (!isOver) {
        obey();
        std::vector<pollfd> waiting;
        for (int i = 0; i < listenerCount; ++i)
            waiting.push_back({IceGetListenConnectionNumber(listeners[i]), POLLIN, 0});
        if (ice != nullptr)
            waiting.push_back({IceConnectionNumber(ice), POLLIN, 0});
        constexpr int milliseconds = 20;
        ::poll(waiting.data(), waiting.size(), milliseconds);
        const auto count = static_cast<std::size_t>(listenerCount);
        for (std::size_t i = 0; i < waiting.size(); ++i) {
            if (waiting[i].revents == 0)
                continue;
            if (i < count)
                accept(listeners[i]);
            else
                read();
        }
    }
}

void SessionManager::State::listen() {
    IceSetIOErrorHandler([](IceConn) {}); // the library's own ends the process
    std::array<char, 256> error{};
    const int size = static_cast<int>(error.size());
    if (SmsInitialize("orbisgrid-test", "1", onProgram, this, everybodyMayCome, size,
                      error.data()) == 0 ||
        IceListenForConnections(&listenerCount, &listeners, size, error.data()) == 0)
        throw std::runtime_error(error.data());
    for (int i = 0; i < listenerCount; ++i)
        IceSetHostBasedAuthProc(listeners[i], everybodyMayCome);
    char* addresses = IceComposeNetworkIdList(listenerCount, listeners);
    address = addresses;
    std::free(addresses);
}

namespace {

bool waitUntil(const std::function<bool()>& isDone) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!isDone()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

} // namespace

SessionManager::SessionManager()
    : m_state(std::make_unique<State>()) {
    m_state->listen();
    m_state->thread = std::thread([this] { m_state->serve(); });
}

SessionManager::~SessionManager() {
    m_state->isOver = true;
    m_state->thread.join();
    IceFreeListenObjs(m_state->listenerCount, m_state->listeners);
}

const std::string& SessionManager::address() const {
    return m_state->address;
}

bool SessionManager::waitForProgram() {
    return waitUntil([this] { return m_state->saves > 0; });
}

bool SessionManager::announceEnd() {
    const int before = m_state->saves;
    m_state->command = Command::announceEnd;
    return waitUntil([this, before] { return m_state->saves > before; });
}

std::string SessionManager::property(const std::string& name) const {
    const std::lock_guard lock(m_state->mutex);
    const auto found = m_state->properties.find(name);
    return found == m_state->properties.end() ? std::string() : found->second;
}

void SessionManager::callOff() {
    m_state->command = Command::callOff;
}

bool SessionManager::end() {
    m_state->command = Command::end;
    return waitUntil([this] { return m_state->hasLeft.load(); });
}

} // namespace orbisgrid::test
