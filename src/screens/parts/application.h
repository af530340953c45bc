// The net beneath the screens. Every command, port method and painting ends its own Faults; should
// one slip through all the same, it would leave through Qt, which cannot bear it, and end the
// program with everything that is not saved. So each event that Qt hands out is caught here: the
// user sees the box of the screens, and the program goes on.
//
// A Fault that comes here is a mistake in the program. It is counted, and a test during which the
// count rises fails.
//
// What can go wrong: a part that throws whenever it is painted would throw again behind the box
// that tells of it. While the box stands, further ones are only counted.
#pragma once

#include <QApplication>

namespace tavernook {

class Application : public QApplication {
  public:
    Application(int& argc, char** argv);

    // False for an event whose receiver threw.
    bool notify(QObject* receiver, QEvent* event) override;
};

// Since the program has started.
int faults_caught_by_net() noexcept;

}  // namespace tavernook
