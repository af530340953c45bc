// A home of the tests' own: whatever Qt or a tool keeps for the user goes there, not among the
// files of the person who runs the tests.
#include <cstdlib>
#include <sys/stat.h>

#include "fakes/temp_folder.h"
#include "gui_support/warning_guard.h"

namespace tavernook {
namespace {

class TestHome {
  public:
    TestHome() {
        set("HOME", folder_.path());
        set("XDG_CONFIG_HOME", folder_.path("config"));
        set("XDG_DATA_HOME", folder_.path("data"));
        set("XDG_CACHE_HOME", folder_.path("cache"));
        const std::string run_time = folder_.path("run");
        ::mkdir(run_time.c_str(), S_IRWXU);
        set("XDG_RUNTIME_DIR", run_time);
        ::unsetenv("TAVERNOOK_HOME");
    }

  private:
    static void set(const char* name, const std::string& value) {
        ::setenv(name, value.c_str(), 1);
    }

    TempFolder folder_;
};

const TestHome test_home;

}  // namespace
}  // namespace tavernook
