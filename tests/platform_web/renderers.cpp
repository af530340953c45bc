#include "platform_web/renderers.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <map>
#include <unistd.h>

namespace tavernook {

namespace {

QByteArray bytes_of(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Behind the name in brackets: the state, then the parent.
int parent_of(const QString& process) {
    const QByteArray text = bytes_of("/proc/" + process + "/stat");
    return text.mid(text.lastIndexOf(')') + 2).split(' ').value(1).toInt();
}

bool is_ours(int process, const std::map<int, int>& parents) {
    while (process > 1) {
        if (process == ::getpid()) return true;
        const auto parent = parents.find(process);
        if (parent == parents.end()) return false;
        process = parent->second;
    }
    return false;
}

}  // namespace

bool end_renderers() {
    std::map<int, int> parents;
    for (const QString& name : QDir("/proc").entryList(QDir::Dirs)) {
        if (name.toInt() > 0) parents[name.toInt()] = parent_of(name);
    }
    bool found = false;
    for (const auto& [process, parent] : parents) {
        // They are what comes out of a zygote.
        const bool draws =
            bytes_of("/proc/" + QString::number(parent) + "/cmdline").contains("--type=zygote");
        if (draws && is_ours(process, parents)) found = ::kill(process, SIGKILL) == 0 || found;
    }
    return found;
}

}  // namespace tavernook
