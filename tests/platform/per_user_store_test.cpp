#include "platform/per_user_store.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"
#include "tests/support/one_start.h"

#include <QSettings>

#include <gtest/gtest.h>

#include <random>

#include <unistd.h>

#include <iostream>

namespace orbisgrid {

namespace {

using test::inChild;
using test::inChildWithoutRights;
using test::shell;
using test::TemporaryFolder;

const std::string foreignContent = "top=level\n"
                                   "\n"
                                   "[Another]\n"
                                   "list=a, b, \"c,d\"\n"
                                   "UseCounter=99\n"
                                   "\n"
                                   "[Orbisgrid]\n"
                                   "UseCounter=7\n"
                                   "foreign=\"kept; as it is\"\n";

Text counterIn(const PerUserStore& store) {
    return store.read(u"UseCounter", u"1").value_or(u"(unreadable)");
}

// Where it is -----------------------------------------------------------------------------------

/// What the probe prints, with a configuration folder of its own.
std::string probe(const TemporaryFolder& folder, const std::string& question,
                  const std::string& variable = "XDG_CONFIG_HOME") {
    return shell(variable + "='" + folder.path("config") + "' " + ORBISGRID_PROBE + " " + question)
        .output;
}

TEST(PerUserStore, LivesInTheConfigurationFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(probe(folder, "store-path"), folder.path("config/ZZ9QX.ini\n"));
    EXPECT_EQ(probe(folder, "store-path", "XDG_CONFIG_HOME= HOME"),
              folder.path("config/.config/ZZ9QX.ini\n"));
    EXPECT_EQ(probe(folder, "store-path", "XDG_CONFIG_HOME=relative HOME"),
              folder.path("config/.config/ZZ9QX.ini\n"));
}

TEST(PerUserStore, LivesWhereQSettingsWouldPutIt) {
    const TemporaryFolder folder;
    for (const std::string& configuration :
         {std::string(), folder.path("config"), folder.path("a//b/"), folder.path("Ж x")}) {
        EXPECT_EQ(inChild([&] {
                      ::setenv("XDG_CONFIG_HOME", configuration.c_str(), 1);
                      const QSettings settings(QSettings::IniFormat, QSettings::UserScope,
                                               QStringLiteral("ZZ9QX"));
                      return PerUserStore::defaultFilePath() == settings.fileName().toStdString()
                                 ? 0
                                 : 1;
                  }),
                  0)
            << configuration;
    }
}

TEST(PerUserStore, FirstStartsOfAProgram) {
    const TemporaryFolder folder;
    EXPECT_EQ(probe(folder, "start"), "1\n");
    const std::string path = std::filesystem::path(ORBISGRID_PROBE).parent_path().string();
    EXPECT_EQ(folder.content("config/ZZ9QX.ini"),
              "[Orbisgrid]\nPath=" + path + "\nVersion=3.1.1\nEXE=Orbisgrid.exe\nUseCounter=2\n");
    EXPECT_EQ(probe(folder, "start"), "2\n");
    EXPECT_EQ(probe(folder, "start"), "3\n");
    EXPECT_EQ(std::filesystem::status(folder.path("config")).permissions(),
              std::filesystem::perms::owner_all);
    EXPECT_EQ(folder.names(), std::set<std::string>{"config"});
}

// Reading and writing ---------------------------------------------------------------------------

TEST(PerUserStore, DefaultWhereThereIsNothing) {
    const TemporaryFolder folder;
    const PerUserStore store(folder.path("store.ini"));
    EXPECT_EQ(store.read(u"UseCounter", u"1"), u"1");
    folder.make("store.ini", "");
    EXPECT_EQ(store.read(u"UseCounter", u"1"), u"1");
    folder.make("store.ini", "[Another]\nUseCounter=5\n[Orbisgrid]\nusecounter=6\n");
    EXPECT_EQ(store.read(u"UseCounter", u"1"), u"1");
}

TEST(PerUserStore, TextsComeBackAsTheyWere) {
    const TemporaryFolder folder;
    PerUserStore store(folder.path("store.ini"));
    for (const Text& text :
         {Text(u"plain"), Text(u""), Text(u" blanks "), Text(u"a,b"), Text(u"a;b=c"),
          Text(u"\"quoted\""), Text(u"C:\\x\\n"), Text(u"/home/Ж/日本 📡"), Text(u"@Invalid()"),
          Text(u"@@"), Text(u"tab\tline\r\n"), Text(u"%20")}) {
        EXPECT_TRUE(store.write({{u"Path", text}}));
        EXPECT_EQ(store.read(u"Path", u"default"), text) << toUtf8(text);
    }
}

TEST(PerUserStore, QSettingsReadsWhatItWrote) {
    const TemporaryFolder folder;
    PerUserStore store(folder.path("store.ini"));
    EXPECT_TRUE(store.write({{u"Path", u"/a,b/Ж"}, {u"Version", u"3.1.1"}}));
    const QSettings settings(QString::fromStdString(folder.path("store.ini")),
                             QSettings::IniFormat);
    EXPECT_EQ(settings.value(QStringLiteral("Orbisgrid/Path")).toString().toStdString(), "/a,b/Ж");
    EXPECT_EQ(settings.allKeys().size(), 2);
}

/// Texts of the characters that mean something in the format, and some that don't.
Text randomText(std::mt19937& random) {
    constexpr TextView characters = u"a0fx1 \"\\,;=@%[]#\t\r\n\u0001\u007f\u00e9\u0416\u65e5";
    std::uniform_int_distribution<std::size_t> length(0, 12), which(0, characters.size());
    Text text;
    for (std::size_t i = length(random); i > 0; --i) {
        const std::size_t index = which(random);
        text += index == characters.size() ? TextView(u"📡") : characters.substr(index, 1);
    }
    return text;
}

TEST(PerUserStore, AgreesWithQSettingsOnRandomTexts) {
    const TemporaryFolder folder;
    std::mt19937 random(20021115);
    for (int i = 0; i < 2000; ++i) {
        const Text text = randomText(random);
        const std::string path = folder.path("store" + std::to_string(i) + ".ini");
        const QString file = QString::fromStdString(path);
        const QString key = QStringLiteral("Orbisgrid/Path");
        PerUserStore store(path);
        ASSERT_TRUE(store.write({{u"Path", text}}));
        // QSettings takes "," outside quotes for a list; there is none here.
        ASSERT_EQ(QSettings(file, QSettings::IniFormat).value(key).toString().toStdU16String(),
                  text)
            << i << ": " << toUtf8(text);
        const QString other = file + QStringLiteral(".other");
        QSettings(other, QSettings::IniFormat).setValue(key, QString::fromStdU16String(text));
        ASSERT_EQ(PerUserStore(other.toStdString()).read(u"Path", u"default"), text)
            << i << ": " << toUtf8(text);
    }
}

TEST(PerUserStore, ForeignGroupsAndKeysSurvive) {
    const TemporaryFolder folder;
    folder.make("store.ini", foreignContent, 0640);
    PerUserStore store(folder.path("store.ini"));
    EXPECT_TRUE(store.write({{u"UseCounter", u"8"}, {u"EXE", u"Orbisgrid.exe"}}));
    const QSettings settings(QString::fromStdString(folder.path("store.ini")),
                             QSettings::IniFormat);
    const auto value = [&](const char* key) {
        return settings.value(QString::fromLatin1(key)).toStringList().join(u'|').toStdString();
    };
    EXPECT_EQ(value("top"), "level");
    EXPECT_EQ(value("Another/list"), "a|b|c,d");
    EXPECT_EQ(value("Another/UseCounter"), "99");
    EXPECT_EQ(value("Orbisgrid/foreign"), "kept; as it is");
    EXPECT_EQ(value("Orbisgrid/UseCounter"), "8");
    EXPECT_EQ(value("Orbisgrid/EXE"), "Orbisgrid.exe");
    EXPECT_EQ(settings.allKeys().size(), 6);
    EXPECT_EQ(std::filesystem::status(folder.path("store.ini")).permissions(),
              std::filesystem::perms(0640));
}

TEST(PerUserStore, CounterThatAnEditorChanged) {
    const TemporaryFolder folder;
    PerUserStore store(folder.path("store.ini"));
    folder.make("store.ini", "[Orbisgrid]\nUseCounter=8,5\n");
    EXPECT_EQ(counterIn(store), u"8,5");
    EXPECT_EQ(test::oneStart(store), 8);
    EXPECT_EQ(counterIn(store), u"9");
    folder.make("store.ini", "[Orbisgrid]\r\nUseCounter=12abc\r\nno key in this line\r\n");
    EXPECT_EQ(test::oneStart(store), 12);
}

/// Two contents of one size within a tick of the file system's clock.
TEST(PerUserStore, SeesEveryChangeHoweverQuick) {
    const TemporaryFolder folder;
    PerUserStore store(folder.path("store.ini"));
    for (int i = 100; i < 300; ++i) {
        const std::string text = std::to_string(i);
        ASSERT_TRUE(store.write({{u"UseCounter", fromUtf8(text)}}));
        ASSERT_EQ(toUtf8(counterIn(store)), text);
    }
}

TEST(PerUserStore, LinkIsFollowed) {
    const TemporaryFolder folder;
    ASSERT_EQ(::symlink("elsewhere.ini", folder.path("store.ini").c_str()), 0);
    PerUserStore store(folder.path("store.ini"));
    EXPECT_EQ(counterIn(store), u"1") << "a link that leads nowhere yet";
    EXPECT_TRUE(store.write({{u"UseCounter", u"5"}}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("store.ini")));
    EXPECT_EQ(folder.content("elsewhere.ini"), "[Orbisgrid]\nUseCounter=5\n");
}

TEST(PerUserStore, UnchangedSettingsAreNotWrittenAgain) {
    const TemporaryFolder folder;
    folder.make("store.ini", foreignContent);
    PerUserStore store(folder.path("store.ini"));
    EXPECT_TRUE(store.write({{u"UseCounter", u"7"}, {u"foreign", u"kept; as it is"}}));
    EXPECT_EQ(folder.content("store.ini"), foreignContent) << "not even in another form";
}

// Failures --------------------------------------------------------------------------------------

TEST(PerUserStore, UnreadableIsNothingAndNotWritten) {
    const TemporaryFolder folder;
    folder.make("store.ini", foreignContent, 0);
    EXPECT_EQ(inChildWithoutRights([&] {
                  PerUserStore store(folder.path("store.ini"));
                  const bool isRead = store.read(u"UseCounter", u"1").has_value();
                  return isRead || store.write({{u"UseCounter", u"8"}}) ? 1 : 0;
              }),
              0);
    EXPECT_EQ(folder.names(), std::set<std::string>{"store.ini"});
}

TEST(PerUserStore, WriteProtectedIsReportedEvenForUnchangedSettings) {
    const TemporaryFolder folder;
    folder.make("store.ini", foreignContent, 0444);
    for (const Text& value : {Text(u"42"), Text(u"7")}) {
        EXPECT_EQ(inChildWithoutRights([&] {
                      PerUserStore store(folder.path("store.ini"));
                      return store.write({{u"UseCounter", value}}) ? 1 : 0;
                  }),
                  0);
    }
    EXPECT_EQ(folder.content("store.ini"), foreignContent);
}

TEST(PerUserStore, FolderThatCannotBeMadeIsReported) {
    const TemporaryFolder folder;
    folder.make("file", "x");
    PerUserStore store(folder.path("file/config/store.ini"));
    EXPECT_FALSE(store.write({{u"UseCounter", u"8"}}));
    EXPECT_EQ(folder.content("file"), "x");
}

TEST(PerUserStore, ReadOnlyFolderWithAWritableFile) {
    const TemporaryFolder folder;
    folder.make("store.ini", foreignContent, 0666);
    folder.setMode(0555);
    EXPECT_EQ(inChildWithoutRights([&] {
                  PerUserStore store(folder.path("store.ini"));
                  return store.write({{u"UseCounter", u"8"}}) && counterIn(store) == u"8" ? 0 : 1;
              }),
              0);
}

TEST(PerUserStore, FullDiskKeepsTheOldStore) {
    const TemporaryFolder folder;
    for (const std::size_t limit : {0U, 20U, 100U, 150U}) {
        folder.make("store.ini", foreignContent);
        EXPECT_EQ(inChild([&] {
                      test::limitFileSize(limit);
                      PerUserStore store(folder.path("store.ini"));
                      return store.write({{u"Path", Text(500, u'p')}}) ? 1 : 0;
                  }),
                  0)
            << limit;
        EXPECT_EQ(folder.content("store.ini"), foreignContent);
        EXPECT_EQ(folder.names(), std::set<std::string>{"store.ini"});
    }
}

TEST(PerUserStore, KilledAtEachSystemCallIsOldOrNew) {
    const TemporaryFolder folder;
    const TemporaryFolder scratch;
    std::set<Text> seen;
    const int kills = test::killAtEachSystemCall(
        [&] { folder.make("store.ini", foreignContent); },
        [&] {
            ::setenv("XDG_RUNTIME_DIR", scratch.path("").c_str(),
                     1); // it leaves its own there when killed
            PerUserStore store(folder.path("store.ini"));
            store.write({{u"UseCounter", u"8"}, {u"Path", Text(3000, u'p')}});
        },
        [&](int call) {
            PerUserStore store(folder.path("store.ini"));
            const Text counter = counterIn(store);
            EXPECT_EQ(store.read(u"foreign", u""), u"kept; as it is") << call;
            EXPECT_EQ(store.read(u"Path", u"")->size(), counter == u"8" ? 3000U : 0U) << call;
            seen.insert(counter);
        });
    if (kills == 0)
        GTEST_SKIP() << "SKIPPED: this system does not let processes be traced";
    EXPECT_EQ(seen, (std::set<Text>{u"7", u"8"}));
    std::cout << kills << " kills\n";
}

} // namespace

} // namespace orbisgrid
