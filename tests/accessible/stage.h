// The program that shows every screen in turn, and stands still before each until it is let go
// (tools/shots/stage.h tells how the two talk).
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QSet>
#include <QString>
#include <QStringList>
#include <optional>

namespace tavernook {

struct Scene {
    QString name;
    QStringList screens;  // the object names of the windows in sight
    QStringList seen;     // the words on them
    QString front;        // the title of the screen in front
    bool is_popup;        // something that has come up over its window
};

class Stage {
  public:
    explicit Stage(const QProcessEnvironment& environment);
    ~Stage();

    // The next scene, once it stands; none when all were shown.
    std::optional<Scene> next();

    // After the last one: whether the program came to its end by itself.
    bool ended_well();

  private:
    QProcess process_;
    bool stands_ = false;
};

}  // namespace tavernook
