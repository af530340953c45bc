#include "platform_qt/qt_project_lock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <algorithm>

#include "basics/code_page.h"
#include "basics/file_names.h"
#include "platform_qt/qt_text.h"

namespace tavernook {

namespace {

// Follows links; a file that does not exist yet is looked for in its folder.
QString project_of(const std::string& path) {
    const QFileInfo given(path_to_qstring(path));
    const QString file = given.canonicalFilePath();
    if (!file.isEmpty()) return file;
    const QString folder = QFileInfo(given.absolutePath()).canonicalFilePath();
    if (!folder.isEmpty()) return QDir::cleanPath(folder + QLatin1Char('/') + given.fileName());
    return QDir::cleanPath(given.absoluteFilePath());
}

// While a stale lock goes, there is for a moment another file of this name with ".rmlock" behind
// it.
QString lock_path(const QString& project) {
    constexpr std::size_t behind_it = 7;
    const QFileInfo info(project);
    const QString hidden = QStringLiteral("%1/.%2").arg(info.path(), info.fileName());
    return path_to_qstring(path_with_ending(qstring_to_path(hidden), ".lock", behind_it));
}

enum class Outcome { locked, elsewhere, impossible };

Outcome outcome_of_failure(QLockFile::LockError error) {
    return error == QLockFile::LockFailedError ? Outcome::elsewhere : Outcome::impossible;
}

// A lock file that does not say whose it is was cut short by a crash. Removing it fails while a
// running program holds it.
bool removes_unreadable_lock(QLockFile& lock) {
    qint64 process = 0;
    QString host;
    QString program;
    return !lock.getLockInfo(&process, &host, &program) && lock.removeStaleLockFile();
}

// The lock file's fourth line; empty where it cannot be told.
QByteArray machine_number_in(const QString& lock_file) {
    QFile file(lock_file);
    if (!file.open(QIODevice::ReadOnly)) return {};
    constexpr int most_bytes = 4096;
    const QList<QByteArray> lines = file.read(most_bytes).split('\n');
    return lines.value(3).trimmed();
}

// Machines have a number of their own; their names may be alike, or change.
bool is_of_this_machine(const QString& lock_file, const QString& host) {
    const QByteArray number = machine_number_in(lock_file);
    const QByteArray own = QSysInfo::machineUniqueId();
    if (!number.isEmpty() && !own.isEmpty()) return number == own;
    return host.isEmpty() || host == QSysInfo::machineHostName();
}

Date date_of(const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    return date_from_moment({date.year(), date.month(), date.day()},
                            {time.hour(), time.minute(), time.second()});
}

Outcome take(QLockFile& lock) {
    lock.setStaleLockTime(0);
    if (lock.tryLock(0)) return Outcome::locked;
    const Outcome outcome = outcome_of_failure(lock.error());
    if (outcome != Outcome::elsewhere || !removes_unreadable_lock(lock)) return outcome;
    return lock.tryLock(0) ? Outcome::locked : outcome_of_failure(lock.error());
}

}  // namespace

bool QtProjectLock::acquire(const std::string& project_path) {
    return hold(project_path, Others::respected);
}

bool QtProjectLock::take_over(const std::string& project_path) {
    return hold(project_path, Others::swept_away);
}

bool QtProjectLock::hold(const std::string& project_path, Others others) {
    const QString project = project_of(project_path);
    if (held_.count(project) == 0) {
        auto lock = std::make_unique<QLockFile>(lock_path(project));
        // Of no avail while a program holds it that this machine can see.
        if (others == Others::swept_away && holder_elsewhere(project_path)) {
            lock->removeStaleLockFile();
        }
        const Outcome outcome = take(*lock);
        if (outcome == Outcome::elsewhere) return false;
        if (outcome == Outcome::impossible) lock.reset();
        held_.emplace(project, std::move(lock));
    }
    known_.insert_or_assign(project_path, project);
    return true;
}

std::optional<LockHolder> QtProjectLock::holder_elsewhere(const std::string& project_path) {
    const QString file = lock_path(project_of(project_path));
    qint64 process = 0;
    QString host;
    QString program;
    if (!QLockFile(file).getLockInfo(&process, &host, &program)) return {};
    if (is_of_this_machine(file, host)) return {};
    return LockHolder{text_from_utf8(qstring_to_path(host)),
                      date_of(QFileInfo(file).lastModified())};
}

void QtProjectLock::release(const std::string& project_path) {
    const auto as_given = known_.find(project_path);
    if (as_given == known_.end()) return;
    const QString project = as_given->second;
    known_.erase(as_given);
    // The same project may be held under another spelling of its path.
    const bool still_held = std::any_of(known_.begin(), known_.end(),
                                        [&](const auto& entry) { return entry.second == project; });
    if (!still_held) held_.erase(project);
}

}  // namespace tavernook
