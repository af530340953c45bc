#include "screens/parts/name_boxes.h"

#include <QSignalBlocker>
#include <memory>

namespace tavernook {

void show_name(QComboBox& box, const QString& name) {
    box.setCurrentIndex(box.findText(name, Qt::MatchFixedString));
    box.setEditText(name);
}

void change_list(QStringListModel& list, const QStringList& names,
                 const std::vector<QComboBox*>& over) {
    if (list.stringList() == names) return;
    QStringList shown;
    std::vector<std::unique_ptr<QSignalBlocker>> silence;
    for (QComboBox* box : over) {
        shown.append(box->currentText());
        silence.push_back(std::make_unique<QSignalBlocker>(box));
    }
    list.setStringList(names);
    for (std::size_t i = 0; i < over.size(); ++i) {
        show_name(*over[i], shown[static_cast<qsizetype>(i)]);
    }
}

}  // namespace tavernook
