#include "platform_qt/freedesktop_associations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <fcntl.h>
#include <sys/stat.h>

namespace tavernook {

namespace {

constexpr int tool_time_limit_ms = 10'000;
const QLatin1String project_type("application/x-tavernook-project");
const QLatin1String entry_name("tavernook.desktop");

QByteArray shipped(const char* name) {
    QFile file(QLatin1String(":/tavernook/desktop/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool holds(const QString& path, const QByteArray& content) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() == content.size() &&
           file.readAll() == content;
}

// True when the file was made or changed.
bool write_when_changed(const QString& path, const QByteArray& content) {
    if (content.isEmpty() || holds(path, content)) return false;
    if (!QDir().mkpath(QFileInfo(path).path())) return false;
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
           file.commit();
}

// Escapes of a desktop entry's value.
QString entry_value(QString text) {
    return text.replace(QLatin1String("\\"), QLatin1String("\\\\"))
        .replace(QLatin1String("\n"), QLatin1String("\\n"))
        .replace(QLatin1String("\t"), QLatin1String("\\t"))
        .replace(QLatin1String("\r"), QLatin1String("\\r"));
}

QByteArray desktop_entry(const QString& program) {
    QByteArray entry = shipped("tavernook.desktop.in");
    entry.replace("@EXEC@", exec_word(program).toUtf8());
    entry.replace("@TRY_EXEC@", entry_value(program).toUtf8());
    return entry;
}

// A tool that is missing is passed over; one that hangs is ended.
void run_tool(const QString& name, const QStringList& arguments, const QString& data_home) {
    const QString tool = QStandardPaths::findExecutable(name);
    if (tool.isEmpty()) return;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), data_home);
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(tool, arguments);
    if (process.waitForFinished(tool_time_limit_ms)) return;
    process.kill();
    process.waitForFinished(tool_time_limit_ms);
}

// Also when an earlier run could not tell the database, so that its outcome is missing.
void write_types(const QString& data_home) {
    const QString folder = data_home + QLatin1String("/mime");
    const bool changed = write_when_changed(folder + QLatin1String("/packages/tavernook.xml"),
                                            shipped("tavernook-mime.xml"));
    const QString outcome = folder + QLatin1Char('/') + project_type + QLatin1String(".xml");
    if (!changed && QFile::exists(outcome)) return;
    run_tool(QStringLiteral("update-mime-database"), {folder}, data_home);
}

// Desktops look for new icons when the time of the theme's folder has changed.
void write_icons(const QString& data_home) {
    const QString theme = data_home + QLatin1String("/icons/hicolor");
    const QString icons = theme + QLatin1String("/scalable/");
    bool changed =
        write_when_changed(icons + QLatin1String("apps/tavernook.svg"), shipped("tavernook.svg"));
    for (const char* name :
         {"application-x-tavernook-project.svg", "application-x-tavernook-recipe.svg"}) {
        const QString path = icons + QLatin1String("mimetypes/") + QLatin1String(name);
        changed = write_when_changed(path, shipped(name)) || changed;
    }
    if (changed) utimensat(AT_FDCWD, QFile::encodeName(theme).constData(), nullptr, 0);
}

void write_entry(const QString& data_home, const QString& program) {
    const QString folder = data_home + QLatin1String("/applications");
    const QString path = folder + QLatin1Char('/') + entry_name;
    if (!write_when_changed(path, desktop_entry(program))) return;
    run_tool(QStringLiteral("update-desktop-database"), {folder}, data_home);
    run_tool(QStringLiteral("xdg-mime"), {QStringLiteral("default"), entry_name, project_type},
             data_home);
}

}  // namespace

QString exec_word(const QString& path) {
    QString word;
    for (const QChar letter : path) {
        if (QStringLiteral("\"`$\\").contains(letter)) word.append(QLatin1Char('\\'));
        word.append(letter);
        if (letter == QLatin1Char('%')) word.append(letter);
    }
    return QLatin1Char('"') + entry_value(word) + QLatin1Char('"');
}

FreedesktopAssociations::FreedesktopAssociations(QString data_home, QString program)
    : data_home_(std::move(data_home)), program_(std::move(program)) {}

void FreedesktopAssociations::write() {
    if (data_home_.isEmpty()) return;
    write_types(data_home_);
    write_icons(data_home_);
    write_entry(data_home_, program_);
}

}  // namespace tavernook
