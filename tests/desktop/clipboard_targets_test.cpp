#include "platform/clipboard_keeper.h"
#include "tests/support/child.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <vector>

#include <unistd.h>
#include <xcb/xcb.h>

namespace orbisgrid {

namespace {

using test::shell;

class ClipboardTargetsTest : public testing::Test {
protected:
    void SetUp() override { m_server.useInThisProcess(); }

    static void copy(const std::string& text) {
        ASSERT_EQ(test::inChild([&] { return ClipboardHandover::start(text).wait() ? 0 : 1; }), 0);
    }

    static std::string clipboard(const std::string& target) {
        return shell("timeout 5 xclip -o -selection clipboard -t '" + target + "' 2>/dev/null")
            .output;
    }

    test::XServer m_server;
};

TEST_F(ClipboardTargetsTest, AreListed) {
    copy("JO20AW");
    EXPECT_EQ(clipboard("TARGETS"), "TARGETS\nTIMESTAMP\nMULTIPLE\nUTF8_STRING\n"
                                    "text/plain;charset=utf-8\nTEXT\nSTRING\n");
}

TEST_F(ClipboardTargetsTest, GiveTheTextInTheirEncoding) {
    copy("4.04° Ж\r\n");
    for (const char* target : {"UTF8_STRING", "text/plain;charset=utf-8", "TEXT"})
        EXPECT_EQ(clipboard(target), "4.04° Ж\r\n") << target;
    EXPECT_EQ(clipboard("STRING"), "4.04\xB0 ?\r\n");
}

TEST_F(ClipboardTargetsTest, OtherTargetsAreRefused) {
    copy("JO20AW");
    for (const char* target : {"text/html", "image/png", "SAVE_TARGETS"})
        EXPECT_EQ(clipboard(target), "") << target;
    EXPECT_EQ(clipboard("UTF8_STRING"), "JO20AW") << "and it still answers";
}

/// The server counts milliseconds. "At no known time" would be 0, twice.
TEST_F(ClipboardTargetsTest, TimestampIsOneOfTheServer) {
    copy("JO20AW");
    const long first = std::strtol(clipboard("TIMESTAMP").c_str(), nullptr, 10);
    ::usleep(300000);
    copy("FN42AA");
    const long second = std::strtol(clipboard("TIMESTAMP").c_str(), nullptr, 10);
    EXPECT_GE(second - first, 300);
    EXPECT_LT(second - first, 20000);
}

// A requestor that asks for several targets at once, as xclip does not --------------------------

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

class Requestor {
public:
    Requestor()
        : m_connection(xcb_connect(nullptr, nullptr), xcb_disconnect)
        , m_window(xcb_generate_id(get())) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(get())).data->root;
        xcb_create_window(get(), XCB_COPY_FROM_PARENT, m_window, root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    }

    xcb_atom_t atom(const std::string& name) const {
        const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(
            get(), xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr));
        return reply->atom;
    }

    void setAtoms(xcb_atom_t property, const std::vector<xcb_atom_t>& atoms) const {
        xcb_change_property(get(), XCB_PROP_MODE_REPLACE, m_window, property, atom("ATOM_PAIR"), 32,
                            static_cast<std::uint32_t>(atoms.size()), atoms.data());
    }

    std::string bytes(xcb_atom_t property) const {
        const std::unique_ptr<xcb_get_property_reply_t, Free> reply(xcb_get_property_reply(
            get(),
            xcb_get_property(get(), 0, m_window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1000),
            nullptr));
        const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
        return {static_cast<const char*>(xcb_get_property_value(reply.get())), length};
    }

    /// Asks and waits. Result: the property that the answer names (0: refused).
    xcb_atom_t request(xcb_atom_t target, xcb_atom_t property) const {
        xcb_convert_selection(get(), m_window, atom("CLIPBOARD"), target, property,
                              XCB_CURRENT_TIME);
        xcb_flush(get());
        const std::unique_ptr<xcb_generic_event_t, Free> event(xcb_wait_for_event(get()));
        EXPECT_EQ(event->response_type & 0x7F, XCB_SELECTION_NOTIFY);
        return reinterpret_cast<const xcb_selection_notify_event_t*>(event.get())->property;
    }

private:
    xcb_connection_t* get() const { return m_connection.get(); }

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> m_connection;
    xcb_window_t m_window;
};

TEST_F(ClipboardTargetsTest, MultipleGivesEachPairAndMarksTheRefused) {
    copy("4.04°");
    const Requestor requestor;
    const xcb_atom_t pairs = requestor.atom("PAIRS");
    const xcb_atom_t first = requestor.atom("FIRST");
    const xcb_atom_t second = requestor.atom("SECOND");
    const xcb_atom_t third = requestor.atom("THIRD");
    requestor.setAtoms(pairs, {requestor.atom("UTF8_STRING"), first, requestor.atom("text/html"),
                               second, requestor.atom("STRING"), third});
    EXPECT_EQ(requestor.request(requestor.atom("MULTIPLE"), pairs), pairs);
    EXPECT_EQ(requestor.bytes(first), "4.04°");
    EXPECT_EQ(requestor.bytes(second), "");
    EXPECT_EQ(requestor.bytes(third), "4.04\xB0");
    std::array<xcb_atom_t, 6> left{};
    const std::string bytes = requestor.bytes(pairs);
    ASSERT_EQ(bytes.size(), sizeof left);
    bytes.copy(reinterpret_cast<char*>(left.data()), sizeof left);
    EXPECT_EQ(left[1], first);
    EXPECT_EQ(left[3], 0U);
    EXPECT_EQ(left[5], third);
}

TEST_F(ClipboardTargetsTest, MultipleWithoutItsListIsRefused) {
    copy("JO20AW");
    const Requestor requestor;
    EXPECT_EQ(requestor.request(requestor.atom("MULTIPLE"), requestor.atom("NOTHING")), 0U);
}

TEST_F(ClipboardTargetsTest, RequestWithoutAPropertyMeansTheTarget) {
    copy("JO20AW");
    const Requestor requestor;
    const xcb_atom_t target = requestor.atom("UTF8_STRING");
    EXPECT_EQ(requestor.request(target, 0), target);
    EXPECT_EQ(requestor.bytes(target), "JO20AW");
}

} // namespace

} // namespace orbisgrid
