#include "platform_qt/qt_project_lock.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

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

QString lock_path(const QString& project) {
    const QFileInfo info(project);
    return QStringLiteral("%1/.%2.lock").arg(info.path(), info.fileName());
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

Outcome take(QLockFile& lock) {
    lock.setStaleLockTime(0);
    if (lock.tryLock(0)) return Outcome::locked;
    const Outcome outcome = outcome_of_failure(lock.error());
    if (outcome != Outcome::elsewhere || !removes_unreadable_lock(lock)) return outcome;
    return lock.tryLock(0) ? Outcome::locked : outcome_of_failure(lock.error());
}

}  // namespace

bool QtProjectLock::acquire(const std::string& project_path) {
    const QString project = project_of(project_path);
    if (held_.count(project) == 0) {
        auto lock = std::make_unique<QLockFile>(lock_path(project));
        const Outcome outcome = take(*lock);
        if (outcome == Outcome::elsewhere) return false;
        if (outcome == Outcome::impossible) lock.reset();
        held_.emplace(project, std::move(lock));
    }
    known_.insert_or_assign(project_path, project);
    return true;
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
