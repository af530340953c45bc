// The engine starts before the first test: what it logs then of the display it runs on is no fault
// of a page.
#include <QCoreApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include "platform_web/web_fixture.h"

namespace tavernook {
namespace {

class EngineStart : public testing::Environment {
  public:
    void SetUp() override {
        const auto view = web_library().make();
        view->widget().show();
        QCoreApplication::processEvents();
    }
};

const testing::Environment* const engine_start = testing::AddGlobalTestEnvironment(new EngineStart);

}  // namespace
}  // namespace tavernook
