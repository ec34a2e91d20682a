#include "panels/system_info.h"
#include "tests/support/table.h"

#include <algorithm>
#include <map>

namespace orbisgrid {

namespace {

using test::Row;

/// A machine whose keys and values are set by hand and which counts what is asked of it.
class FakeRegistry : public ToolRegistry {
public:
    struct Stored {
        std::uint32_t type = stringValue;
        Text characters;
    };

    std::optional<Key> open(std::uint32_t root, TextView path, std::uint32_t access) override {
        lastRoot = root;
        lastAccess = access;
        const Text wanted(path);
        const bool isRefused = isReadOnly && access == allAccess;
        if (isRefused || !values.contains(wanted))
            return std::nullopt;
        openKeys.push_back(wanted);
        return openKeys.size();
    }

    std::optional<Value> query(Key key, TextView name, std::span<char16_t> buffer) override {
        bufferSize = buffer.size();
        bufferWasZero = std::ranges::all_of(buffer, [](char16_t unit) { return unit == 0; });
        const auto& named = values.at(openKeys.at(key - 1));
        const auto value = named.find(Text(name));
        if (value == named.end())
            return std::nullopt;
        const Text& characters = value->second.characters;
        if (characters.size() <= buffer.size())
            std::ranges::copy(characters, buffer.begin());
        return Value{value->second.type, characters.size()};
    }

    void close(Key key) override { closedKeys.push_back(openKeys.at(key - 1)); }

    std::map<Text, std::map<Text, Stored>> values;
    std::vector<Text> openKeys;
    std::vector<Text> closedKeys;
    std::size_t bufferSize = 0;
    std::uint32_t lastRoot = 0;
    std::uint32_t lastAccess = 0;
    bool bufferWasZero = false;
    bool isReadOnly = false; ///< this user may not write: opening with all access is refused
};

const Text toolKey = u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const Text folderKey = u"SOFTWARE\\Microsoft\\Shared Tools Location";

Text withZeros(const Text& text) {
    return replaced(text, {u'~', u'\0'});
}

class GetKeyValueTest : public testing::TestWithParam<Row> {};

TEST_P(GetKeyValueTest, ReadsTheValue) {
    const Row& row = GetParam();
    FakeRegistry registry;
    registry.values[u"key"][u"name"] = {static_cast<std::uint32_t>(row.number("type")),
                                        withZeros(row.text("characters"))};
    Text keyVal = row.text("KeyVal before");
    EXPECT_EQ(GetKeyValue(registry, ToolRegistry::localMachine, u"key", u"name", keyVal),
              row.flag("found"));
    EXPECT_EQ(toUtf8(keyVal), toUtf8(withZeros(row.text("KeyVal afterwards"))));
    EXPECT_EQ(registry.closedKeys, registry.openKeys);
    EXPECT_EQ(registry.openKeys.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Rows, GetKeyValueTest,
                         testing::ValuesIn(test::readTable("system_info_values.tsv")),
                         test::testName);

TEST(ToolRegistry, HasTheNumbersThatARegistryIsAskedWith) {
    EXPECT_EQ(ToolRegistry::localMachine, 0x80000002U);
    EXPECT_EQ(ToolRegistry::allAccess, 0x2003FU);
}

TEST(GetKeyValue, AsksWithAllAccessAndAnEmptyBufferOf1024Characters) {
    FakeRegistry registry;
    registry.values[u"key"][u"name"] = {ToolRegistry::stringValue, u"x"};
    Text keyVal;
    EXPECT_TRUE(GetKeyValue(registry, 0x80000002, u"key", u"name", keyVal));
    EXPECT_EQ(registry.lastRoot, 0x80000002U);
    EXPECT_EQ(registry.lastAccess, 0x2003FU);
    EXPECT_EQ(registry.bufferSize, 1024U);
    EXPECT_TRUE(registry.bufferWasZero);
}

TEST(GetKeyValue, KeepsA1024CharacterValueWhole) {
    FakeRegistry registry;
    registry.values[u"key"][u"name"] = {ToolRegistry::stringValue, Text(1024, u'x')};
    Text keyVal;
    EXPECT_TRUE(GetKeyValue(registry, ToolRegistry::localMachine, u"key", u"name", keyVal));
    EXPECT_EQ(keyVal, Text(1024, u'x'));
}

TEST(GetKeyValue, DropsTheZeroAtTheEndOfA1024CharacterValue) {
    FakeRegistry registry;
    registry.values[u"key"][u"name"] = {ToolRegistry::stringValue, Text(1023, u'x') + u'\0'};
    Text keyVal;
    EXPECT_TRUE(GetKeyValue(registry, ToolRegistry::localMachine, u"key", u"name", keyVal));
    EXPECT_EQ(keyVal, Text(1023, u'x'));
}

TEST(GetKeyValue, TakesASizeBeyondTheBufferForNoValue) {
    FakeRegistry registry;
    registry.values[u"key"][u"name"] = {ToolRegistry::stringValue, Text(1025, u'x')};
    Text keyVal = u"before";
    EXPECT_FALSE(GetKeyValue(registry, ToolRegistry::localMachine, u"key", u"name", keyVal));
    EXPECT_EQ(keyVal, u"");
}

TEST(GetKeyValue, EmptiesKeyValWhereTheKeyIsMissing) {
    FakeRegistry registry;
    Text keyVal = u"before";
    EXPECT_FALSE(GetKeyValue(registry, ToolRegistry::localMachine, u"key", u"name", keyVal));
    EXPECT_EQ(keyVal, u"");
    EXPECT_TRUE(registry.closedKeys.empty());
}

TEST(GetKeyValue, ClosesTheKeyWhereTheValueIsMissing) {
    FakeRegistry registry;
    registry.values[u"key"] = {};
    Text keyVal = u"before";
    EXPECT_FALSE(GetKeyValue(registry, ToolRegistry::localMachine, u"key", u"name", keyVal));
    EXPECT_EQ(keyVal, u"");
    EXPECT_EQ(registry.closedKeys, std::vector<Text>{u"key"});
}

/// Which of the two entries the machine has, and the path that follows from it.
class SystemInformationPathTest : public testing::Test {
protected:
    std::optional<Text> path() {
        return systemInformationPath(registry, [this](const Text& file) {
            askedFor = file;
            return fileIsThere;
        });
    }

    FakeRegistry registry;
    Text askedFor;
    bool fileIsThere = false;
};

TEST_F(SystemInformationPathTest, IsTheToolsOwnEntry) {
    registry.values[toolKey][u"PATH"] = {ToolRegistry::stringValue, u"/usr/bin/tool"};
    EXPECT_EQ(path(), u"/usr/bin/tool");
    EXPECT_EQ(askedFor, u"") << "the tool's own entry is not looked at on the disk";
}

TEST_F(SystemInformationPathTest, IsTheToolInTheFolderOfTheSecondEntry) {
    registry.values[folderKey][u"MSINFO"] = {ToolRegistry::stringValue, u"C:\\Tools"};
    fileIsThere = true;
    EXPECT_EQ(path(), u"C:\\Tools\\MSINFO32.EXE");
}

TEST_F(SystemInformationPathTest, IsNoneWhereTheFolderDoesNotHoldTheTool) {
    registry.values[folderKey][u"MSINFO"] = {ToolRegistry::stringValue, u"C:\\Tools"};
    EXPECT_EQ(path(), std::nullopt);
    EXPECT_EQ(askedFor, u"C:\\Tools\\MSINFO32.EXE");
}

TEST_F(SystemInformationPathTest, IsNoneWithNeitherEntry) {
    fileIsThere = true;
    EXPECT_EQ(path(), std::nullopt);
}

TEST_F(SystemInformationPathTest, IsNoneForAUserWithoutTheRightToWrite) {
    registry.values[toolKey][u"PATH"] = {ToolRegistry::stringValue, u"/usr/bin/tool"};
    registry.isReadOnly = true;
    EXPECT_EQ(path(), std::nullopt);
}

} // namespace

} // namespace orbisgrid
