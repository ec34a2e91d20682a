#include "platform/clipboard_selection.h"

#include "core/text.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace orbisgrid {

namespace {

/// What xcb hands out is freed as C does it.
struct Free {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-*)
};

template <typename T>
using Owned = std::unique_ptr<T, Free>;

constexpr xcb_atom_t noAtom = XCB_ATOM_NONE;
constexpr xcb_window_t noWindow = XCB_WINDOW_NONE;
constexpr std::uint8_t eventTypeMask = 0x7F; // the other bit says who sent it

xcb_atom_t atomFrom(xcb_connection_t* connection, xcb_intern_atom_cookie_t cookie) {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : noAtom;
}

xcb_intern_atom_cookie_t ask(xcb_connection_t* connection, std::string_view name) {
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_window_t ownerOf(xcb_connection_t* connection, xcb_atom_t selection) {
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, selection), nullptr));
    return reply ? reply->owner : noWindow;
}

/// In Latin-1, "?" for what it does not have.
std::string latin1(std::string_view utf8) {
    std::string bytes;
    for (const char16_t unit : fromUtf8(utf8))
        bytes += unit < 0x100 ? static_cast<char>(unit) : '?';
    return bytes;
}

} // namespace

ClipboardSelection::ClipboardSelection(std::string utf8)
    : m_utf8(std::move(utf8))
    , m_latin1(latin1(m_utf8)) {}

ClipboardSelection::~ClipboardSelection() {
    if (m_connection)
        xcb_disconnect(m_connection);
}

bool ClipboardSelection::take() {
    m_connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(m_connection) != 0)
        return false;
    // The first two only queue requests, which travel with the questions of the third: one journey
    // to the server less, and it may be a display far away.
    makeWindow();
    askServerTime();
    if (!internAtoms() || !awaitServerTime())
        return false;
    xcb_set_selection_owner(m_connection, m_window, m_atoms.clipboard, m_time);
    return ownerOf(m_connection, m_atoms.clipboard) == m_window;
}

/// A selection belongs to a window; this one is never seen.
void ClipboardSelection::makeWindow() {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    m_window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
}

/// The server's time by a change that changes nothing. "Now" in its place would leave it open which
/// of two owners came later.
void ClipboardSelection::askServerTime() {
    xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
}

bool ClipboardSelection::internAtoms() {
    const std::array<std::pair<std::string_view, xcb_atom_t*>, 8> wanted{
        {{"CLIPBOARD", &m_atoms.clipboard},
         {"UTF8_STRING", &m_atoms.utf8String},
         {"text/plain;charset=utf-8", &m_atoms.plainUtf8},
         {"TEXT", &m_atoms.text},
         {"TARGETS", &m_atoms.targets},
         {"TIMESTAMP", &m_atoms.timestamp},
         {"MULTIPLE", &m_atoms.multiple},
         {"ATOM_PAIR", &m_atoms.atomPair}}};
    std::array<xcb_intern_atom_cookie_t, wanted.size()> cookies{};
    // All questions before the first answer: one journey to the server.
    for (std::size_t i = 0; i < wanted.size(); ++i)
        cookies.at(i) = ask(m_connection, wanted.at(i).first);
    bool isComplete = true;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        *wanted.at(i).second = atomFrom(m_connection, cookies.at(i));
        isComplete = isComplete && *wanted.at(i).second != noAtom;
    }
    return isComplete;
}

bool ClipboardSelection::awaitServerTime() {
    while (const Owned<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
        if ((event->response_type & eventTypeMask) != XCB_PROPERTY_NOTIFY)
            continue;
        m_time = reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
        return true;
    }
    return false;
}

void ClipboardSelection::serve() {
    while (const Owned<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
        switch (event->response_type & eventTypeMask) {
        case XCB_SELECTION_CLEAR:
            return;
        case XCB_SELECTION_REQUEST:
            answer(*reinterpret_cast<const xcb_selection_request_event_t*>(event.get()));
            break;
        default: // a failure, for instance of a requestor that is gone
            break;
        }
    }
}

void ClipboardSelection::answer(const xcb_selection_request_event_t& request) {
    // Requestors of old name no property and mean the target.
    const xcb_atom_t property = request.property == noAtom ? request.target : request.property;
    const bool isGiven = request.target == m_atoms.multiple
                             ? convertEach(request.requestor, property)
                             : convert(request.requestor, request.target, property);
    xcb_selection_notify_event_t notify{};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = isGiven ? property : noAtom;
    std::array<char, 32> event{}; // the size of every event; the structure is shorter
    std::memcpy(event.data(), &notify, sizeof notify);
    xcb_send_event(m_connection, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, event.data());
    xcb_flush(m_connection);
}

bool ClipboardSelection::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
    const auto give = [&](xcb_atom_t type, std::uint32_t count, const void* values) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, type, 32,
                            count, values);
        return true;
    };
    if (target == m_atoms.targets) {
        const std::array<xcb_atom_t, 7> targets{
            m_atoms.targets,   m_atoms.timestamp, m_atoms.multiple, m_atoms.utf8String,
            m_atoms.plainUtf8, m_atoms.text,      XCB_ATOM_STRING};
        return give(XCB_ATOM_ATOM, targets.size(), targets.data());
    }
    if (target == m_atoms.timestamp)
        return give(XCB_ATOM_INTEGER, 1, &m_time);
    if (target == XCB_ATOM_STRING)
        return giveText(requestor, property, target, m_latin1);
    if (target == m_atoms.utf8String || target == m_atoms.plainUtf8)
        return giveText(requestor, property, target, m_utf8);
    return target == m_atoms.text && giveText(requestor, property, m_atoms.utf8String, m_utf8);
}

/// MULTIPLE: the property lists pairs of a target and a property; a pair that cannot be had gets
/// None in the place of its property.
bool ClipboardSelection::convertEach(xcb_window_t requestor, xcb_atom_t property) {
    constexpr std::uint32_t mostWords = 1024;
    const Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection,
                               xcb_get_property(m_connection, 0, requestor, property,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords),
                               nullptr));
    if (!reply || reply->format != 32)
        return false;
    const auto* first = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    std::vector<xcb_atom_t> pairs(first, first + reply->value_len);
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        if (!convert(requestor, pairs[i], pairs[i + 1]))
            pairs[i + 1] = noAtom;
    }
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, m_atoms.atomPair,
                        32, static_cast<std::uint32_t>(pairs.size()), pairs.data());
    return true;
}

bool ClipboardSelection::giveText(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                                  const std::string& bytes) {
    constexpr std::uint64_t requestHeader = 64; // more than it is
    // In units of four bytes.
    const std::uint64_t limit = std::uint64_t{xcb_get_maximum_request_length(m_connection)} * 4;
    if (bytes.size() + requestHeader > limit)
        return false;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    return true;
}

bool clipboardHasOwner() {
    const std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    if (xcb_connection_has_error(connection.get()) != 0)
        return false;
    const xcb_atom_t clipboard = atomFrom(connection.get(), ask(connection.get(), "CLIPBOARD"));
    return ownerOf(connection.get(), clipboard) != noWindow;
}

} // namespace orbisgrid
