// File types on desktops that follow the freedesktop.org rules: MIME types, icons, a desktop entry
// and the default program for projects, all below the user's data folder.
#pragma once

#include <QString>

#include "platform/file_associations.h"

namespace tavernook {

// Writes only what differs from what is there, and tells the desktop's databases only then; the
// default program is set only when the entry is new or changed, so that a later choice of the
// user's stands. A failure is passed over: the program runs as well without.
class FreedesktopAssociations : public FileAssociations {
  public:
    // `data_home` is what $XDG_DATA_HOME stands for, empty to leave the desktop alone; `program`
    // is the full path of the running program.
    FreedesktopAssociations(QString data_home, QString program);

    void write() override;

  private:
    QString data_home_;
    QString program_;
};

// The path as the first word of an Exec line: quoted, and escaped as that line demands.
QString exec_word(const QString& path);

}  // namespace tavernook
