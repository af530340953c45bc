#include "platform_qt/qt_file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QStandardPaths>
#include <algorithm>

#include "basics/fault.h"
#include "platform_qt/dialog_parent.h"
#include "platform_qt/qt_text.h"

namespace tavernook {

namespace {

QString description_alone(const QString& description) {
    const qsizetype bracket = description.lastIndexOf(QLatin1Char('('));
    if (bracket > 0 && description.endsWith(QLatin1Char(')'))) {
        return description.left(bracket).trimmed();
    }
    return description.trimmed();
}

// A dialog of Qt's own has widgets from the start; the desktop's has none here.
bool is_desktops_own(const QFileDialog& dialog) {
    return dialog.layout() == nullptr;
}

QString suffix_of_choice(const std::vector<FileFilter>& filters, const QFileDialog& dialog,
                         const QString& chosen) {
    for (const FileFilter& filter : filters) {
        if (name_filter(filter, is_desktops_own(dialog)) == chosen) return suffix_of(filter);
    }
    return filters.empty() ? QString() : suffix_of(filters.front());
}

// On the heap: the window under it may go, and take it along, while it asks.
QPointer<QFileDialog> new_dialog(const FileDialogRequest& request, const DialogStart& start,
                                 const std::vector<FileFilter>& filters) {
    QPointer<QFileDialog> dialog =
        new QFileDialog(dialog_parent(), text_to_qstring(request.title), start.folder);
    dialog->setObjectName(QStringLiteral("file_dialog"));
    dialog->setSupportedSchemes({QStringLiteral("file")});
    QStringList shown;
    for (const FileFilter& filter : filters) {
        shown.append(name_filter(filter, is_desktops_own(*dialog)));
    }
    if (!shown.isEmpty()) dialog->setNameFilters(shown);
    return dialog;
}

// What the user chose; deletes the dialog. Fault 32755 on Cancel.
QString chosen_file(const QPointer<QFileDialog>& dialog) {
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (dialog.isNull()) throw Fault(fault_number::cancel_was_selected);
    const QString chosen = accepted ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    if (chosen.isEmpty()) throw Fault(fault_number::cancel_was_selected);
    return QDir::cleanPath(QFileInfo(chosen).absoluteFilePath());
}

bool user_agrees_to_replace(const QString& path) {
    const QString question =
        QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(path);
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, QFileDialog::tr("Save As"), QString(),
                        QMessageBox::Yes | QMessageBox::No, dialog_parent());
    box->setObjectName(QStringLiteral("replace_box"));
    box->setTextFormat(Qt::PlainText);
    box->setText(question);
    box->setDefaultButton(QMessageBox::No);
    const bool agreed = box->exec() == QMessageBox::Yes;
    delete box;
    return agreed;
}

}  // namespace

std::vector<FileFilter> file_filters(std::string_view filter) {
    const QStringList parts = text_to_qstring(filter).split(QLatin1Char('|'));
    std::vector<FileFilter> filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString& pattern : patterns) {
            pattern = pattern.trimmed();
            if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
        }
        if (patterns.isEmpty()) patterns.append(QStringLiteral("*"));
        filters.push_back({description_alone(parts[i]), patterns});
    }
    return filters;
}

QString suffix_of(const FileFilter& filter) {
    const QString pattern = filter.patterns.value(0);
    if (!pattern.startsWith(QLatin1String("*."))) return {};
    const QString suffix = pattern.mid(2);
    const bool plain = std::all_of(suffix.begin(), suffix.end(),
                                   [](QChar letter) { return letter.isLetterOrNumber(); });
    return plain ? suffix : QString();
}

QString name_filter(const FileFilter& filter, bool with_capitals) {
    QStringList patterns = filter.patterns;
    if (with_capitals) {
        for (const QString& pattern : filter.patterns) patterns.append(pattern.toUpper());
        patterns.removeDuplicates();
    }
    return QStringLiteral("%1 (%2)").arg(filter.description, patterns.join(QLatin1Char(' ')));
}

QString with_suffix(const QString& chosen, const QString& suffix) {
    const bool has_one = QFileInfo(chosen).fileName().contains(QLatin1Char('.'));
    return suffix.isEmpty() || has_one ? chosen : chosen + QLatin1Char('.') + suffix;
}

DialogStart dialog_start(const QString& initial_file) {
    const QFileInfo initial(QDir::fromNativeSeparators(initial_file));
    const QString name = initial.fileName();
    const bool is_pattern = name.contains(QLatin1Char('*')) || name.contains(QLatin1Char('?'));
    if (initial_file.isEmpty() || initial.isRelative()) {
        const QString documents =
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        return {QFileInfo(documents).isDir() ? documents : QDir::homePath(),
                is_pattern ? QString() : name};
    }
    QString folder = initial.path();
    while (!QFileInfo(folder).isDir() && folder != QFileInfo(folder).path()) {
        folder = QFileInfo(folder).path();
    }
    return {folder, is_pattern ? QString() : name};
}

std::string QtFileDialogs::open_file(const FileDialogRequest& request) {
    const DialogStart start = dialog_start(path_to_qstring(request.initial_file));
    const auto dialog = new_dialog(request, start, file_filters(request.filter));
    dialog->setFileMode(QFileDialog::ExistingFile);
    if (!start.name.isEmpty()) dialog->selectFile(start.name);
    return qstring_to_path(chosen_file(dialog));
}

// Qt's own dialog adds the suffix before it asks whether to replace a file. A desktop's own may
// ask about the bare name only, so that the suffix is added, and the question asked, behind it.
std::string QtFileDialogs::save_file(const FileDialogRequest& request) {
    const auto filters = file_filters(request.filter);
    DialogStart start = dialog_start(path_to_qstring(request.initial_file));
    for (;;) {
        const auto dialog = new_dialog(request, start, filters);
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setFileMode(QFileDialog::AnyFile);
        if (!start.name.isEmpty()) dialog->selectFile(start.name);
        QString suffix = suffix_of_choice(filters, *dialog, dialog->selectedNameFilter());
        const bool adds_suffix = !is_desktops_own(*dialog);
        if (adds_suffix) dialog->setDefaultSuffix(suffix);
        QObject::connect(dialog, &QFileDialog::filterSelected, dialog,
                         [&, shown = dialog.data()](const QString& chosen) {
                             suffix = suffix_of_choice(filters, *shown, chosen);
                             if (adds_suffix) shown->setDefaultSuffix(suffix);
                         });
        const QString chosen = chosen_file(dialog);
        const QString path = with_suffix(chosen, suffix);
        if (path == chosen || !QFileInfo::exists(path) || user_agrees_to_replace(path)) {
            return qstring_to_path(path);
        }
        start = {QFileInfo(chosen).path(), QFileInfo(chosen).fileName()};
    }
}

}  // namespace tavernook
