#include "tests/support/sealed_box.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <stdexcept>

namespace orbisgrid::test {

namespace {

constexpr int patience = 5000; ///< milliseconds until a program counts as not started
constexpr int aMoment = 150;   ///< milliseconds in which an unwanted start would show

/// Writes each argument and a zero byte behind it into a record of its own. The record gets its
/// name when it is whole, so a reader never sees half of one. Only the shell's own commands and
/// full paths: PATH leads nowhere else.
const char* const standIn = "#!/bin/sh\n"
                            "record='%1'\n"
                            ": > \"$record/$$.part\"\n"
                            "for argument in \"$@\"; do\n"
                            "    printf '%s\\000' \"$argument\" >> \"$record/$$.part\"\n"
                            "done\n"
                            "/bin/mv \"$record/$$.part\" \"$record/$$.whole\"\n";

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

std::optional<QByteArray> readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

QStringList wholeRecords(const QString& records) {
    return QDir(records).entryList({QStringLiteral("*.whole")}, QDir::Files, QDir::Time);
}

} // namespace

SealedBox::SealedBox() {
    if (!m_directory.isValid())
        throw std::runtime_error("no temporary folder");
    for (const char* const name : {"program", "config", "data", "bin", "records"})
        QDir().mkpath(folder(QString::fromLatin1(name)));
    setVariable("PATH", QFile::encodeName(folder(QStringLiteral("bin"))));
    setVariable("XDG_CONFIG_HOME", QFile::encodeName(configFolder()));
    setVariable("XDG_DATA_HOME", QFile::encodeName(folder(QStringLiteral("data"))));
    setVariable("XDG_CURRENT_DESKTOP", {});
    installProgram(QStringLiteral("xdg-open"));
}

SealedBox::~SealedBox() {
    for (const auto& [name, value] : m_previousVariables) {
        if (value)
            qputenv(name.constData(), *value);
        else
            qunsetenv(name.constData());
    }
}

QString SealedBox::folder(const QString& name) const {
    return m_directory.filePath(name);
}

QString SealedBox::programFolder() const {
    return folder(QStringLiteral("program"));
}

QString SealedBox::configFolder() const {
    return folder(QStringLiteral("config"));
}

void SealedBox::writeProgramFile(const QString& name, const QByteArray& content) const {
    writeFile(programFolder() + u'/' + name, content);
}

std::optional<QByteArray> SealedBox::programFile(const QString& name) const {
    return readFile(programFolder() + u'/' + name);
}

QString SealedBox::installProgram(const QString& name) const {
    const QString records = folder(QStringLiteral("records")) + u'/' + name;
    QDir().mkpath(records);
    QString path = folder(QStringLiteral("bin")) + u'/' + name;
    writeFile(path, QString::fromLatin1(standIn).arg(records).toUtf8());
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

void SealedBox::setVariable(const char* name, const QByteArray& value) {
    const std::optional<QByteArray> previous =
        qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt;
    m_previousVariables.try_emplace(name, previous);
    qputenv(name, value);
}

std::optional<QByteArray> SealedBox::takeRecord(const QString& program) const {
    const QString records = folder(QStringLiteral("records")) + u'/' + program;
    if (!QTest::qWaitFor([&] { return !wholeRecords(records).isEmpty(); }, patience))
        return std::nullopt;
    // Newest first: the oldest is the next to take.
    const QString path = records + u'/' + wholeRecords(records).last();
    std::optional<QByteArray> content = readFile(path);
    QFile::remove(path);
    return content;
}

std::optional<QByteArray> SealedBox::takeOpenedAddress() const {
    const std::optional<QByteArray> record = takeRecord(QStringLiteral("xdg-open"));
    if (!record || record->count('\0') != 1)
        return std::nullopt;
    return record->chopped(1);
}

bool SealedBox::takeStart(const QString& program) const {
    return takeRecord(program) == QByteArray();
}

bool SealedBox::nothingStarted() const {
    QTest::qWait(aMoment);
    const QDir records(folder(QStringLiteral("records")));
    const QStringList programs = records.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::ranges::all_of(programs, [&](const QString& program) {
        return QDir(records.filePath(program)).isEmpty();
    });
}

} // namespace orbisgrid::test
