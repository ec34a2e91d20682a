#include "records/json.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

TEST(MemberNames, AreThereOnce) {
    MemberNames names("error");
    EXPECT_EQ(names.take("call"), "call");
    EXPECT_EQ(names.take("Call"), "Call") << "another one to a reader of JSON";
    EXPECT_EQ(names.take("call"), "call_2");
    EXPECT_EQ(names.take("call"), "call_3");
    EXPECT_EQ(names.take("call_2"), "call_2_2");
    EXPECT_EQ(names.take("error"), "error_2");
    EXPECT_EQ(names.take(""), "");
    EXPECT_EQ(names.take(""), "_2");
}

std::string textOf(std::string_view value) {
    std::string bytes;
    JsonLine line(bytes);
    line.addText("k", value);
    line.end();
    return bytes;
}

TEST(JsonLine, HoldsTextsAndNumbers) {
    std::string bytes = "before\n";
    JsonLine line(bytes);
    line.addText("home", "JO20AW");
    line.addNumber("km", "5637");
    line.addNumber("azimuth", "");
    line.end();
    EXPECT_EQ(bytes, "before\n{\"home\":\"JO20AW\",\"km\":5637,\"azimuth\":null}\n");
}

TEST(JsonLine, MayHoldNothing) {
    std::string bytes;
    JsonLine(bytes).end();
    EXPECT_EQ(bytes, "{}\n");
}

TEST(JsonLine, EscapesWhatATextMayNotHold) {
    EXPECT_EQ(textOf("a\"b\\c/d"), "{\"k\":\"a\\\"b\\\\c/d\"}\n");
    EXPECT_EQ(textOf("\n\r\t"), "{\"k\":\"\\n\\r\\t\"}\n");
    EXPECT_EQ(textOf(std::string_view("\0\x0F\x10\x1F", 4)),
              "{\"k\":\"\\u0000\\u000f\\u0010\\u001f\"}\n");
    EXPECT_EQ(textOf(" ~\x7F"), "{\"k\":\" ~\x7F\"}\n");
}

TEST(JsonLine, KeepsUtf8AndReadsOtherBytesAsWindows1252) {
    EXPECT_EQ(textOf("Zürich 東"), "{\"k\":\"Zürich 東\"}\n");
    EXPECT_EQ(textOf("Z\xFCrich \x80"), "{\"k\":\"Zürich €\"}\n");
}

TEST(JsonLine, EscapesKeysToo) {
    std::string bytes;
    JsonLine line(bytes);
    line.addNumber("a\"b", "1");
    EXPECT_EQ(bytes, "{\"a\\\"b\":1");
}

} // namespace

} // namespace orbisgrid
