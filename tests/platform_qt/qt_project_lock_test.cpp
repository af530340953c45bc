#include "platform_qt/qt_project_lock.h"

#include <QDateTime>
#include <QSysInfo>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "basics/date.h"
#include "fakes/child_process.h"
#include "fakes/temp_folder.h"
#include "platform_qt/helper_program.h"
#include "platform_qt/qt_text.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;

// Another program that takes the project and keeps it until it is ended.
class OtherProgram {
  public:
    explicit OtherProgram(const std::string& project) {
        process_.start(helper_program(), {QStringLiteral("take-lock"), path_to_qstring(project)});
        while (!process_.canReadLine() && process_.waitForReadyRead(process_time_limit_ms)) {
        }
        answer = process_.readLine().trimmed().toStdString();
    }
    ~OtherProgram() { end(); }

    void end() {
        process_.closeWriteChannel();
        process_.waitForFinished(process_time_limit_ms);
    }
    void kill() {
        process_.kill();
        process_.waitForFinished(process_time_limit_ms);
    }

    std::string answer;

  private:
    QProcess process_;
};

std::string answer_to_other(const std::string& project) {
    return OtherProgram(project).answer;
}

class ProjectLockTest : public testing::Test {
  protected:
    ProjectLockTest() { write_whole_file(project, "x"); }

    TempFolder folder;
    std::string project = folder.path("home.tvk");
    std::string lock_file = folder.path(".home.tvk.lock");
    QtProjectLock lock;
};

TEST_F(ProjectLockTest, KeepsAnotherProgramOutUntilReleased) {
    EXPECT_TRUE(lock.acquire(project));
    EXPECT_TRUE(fs::exists(lock_file));
    EXPECT_EQ(answer_to_other(project), "refused");
    lock.release(project);
    EXPECT_FALSE(fs::exists(lock_file));
    EXPECT_EQ(answer_to_other(project), "held");
}

TEST_F(ProjectLockTest, AnotherProgramKeepsUsOutUntilItEnds) {
    OtherProgram other(project);
    ASSERT_EQ(other.answer, "held");
    EXPECT_FALSE(lock.acquire(project));
    EXPECT_FALSE(lock.acquire(project));
    other.end();
    EXPECT_TRUE(lock.acquire(project));
}

TEST_F(ProjectLockTest, ReleasingWhatWeWereRefusedLeavesItToTheOther) {
    const OtherProgram other(project);
    EXPECT_FALSE(lock.acquire(project));
    lock.release(project);
    EXPECT_FALSE(lock.acquire(project));
}

TEST_F(ProjectLockTest, ALockLeftByACrashDoesNotCount) {
    OtherProgram other(project);
    ASSERT_EQ(other.answer, "held");
    other.kill();
    ASSERT_TRUE(fs::exists(lock_file));
    EXPECT_TRUE(lock.acquire(project));
    EXPECT_EQ(answer_to_other(project), "refused");
}

TEST_F(ProjectLockTest, ALockCutShortByACrashDoesNotCount) {
    for (const char* rest : {"", "12", "no number\n\n\n"}) {
        write_whole_file(lock_file, rest);
        EXPECT_TRUE(lock.acquire(project)) << rest;
        EXPECT_EQ(answer_to_other(project), "refused");
        lock.release(project);
    }
}

TEST_F(ProjectLockTest, AcquiringTwiceIsHoldingOnce) {
    EXPECT_TRUE(lock.acquire(project));
    EXPECT_TRUE(lock.acquire(project));
    lock.release(project);
    EXPECT_EQ(answer_to_other(project), "held");
}

TEST_F(ProjectLockTest, SeveralProjectsAreHeldAtOnce) {
    const std::string second = folder.path("cabin.tvk");
    EXPECT_TRUE(lock.acquire(project));
    EXPECT_TRUE(lock.acquire(second));
    EXPECT_EQ(answer_to_other(project), "refused");
    EXPECT_EQ(answer_to_other(second), "refused");
    lock.release(project);
    EXPECT_EQ(answer_to_other(project), "held");
    EXPECT_EQ(answer_to_other(second), "refused");
}

TEST_F(ProjectLockTest, EveryWayToTheFileIsTheSameProject) {
    fs::create_symlink(project, folder.path("link.tvk"));
    fs::create_directory(folder.path("sub"));
    fs::create_directory_symlink(folder.path(), folder.path("sub/up"));
    EXPECT_TRUE(lock.acquire(folder.path("./sub/../home.tvk")));
    for (const char* way : {"home.tvk", "link.tvk", "sub/up/home.tvk", "./home.tvk"}) {
        EXPECT_EQ(answer_to_other(folder.path(way)), "refused") << way;
        EXPECT_TRUE(lock.acquire(folder.path(way))) << way;
    }
    for (const char* way : {"./sub/../home.tvk", "home.tvk", "sub/up/home.tvk", "./home.tvk"}) {
        lock.release(folder.path(way));
        EXPECT_EQ(answer_to_other(project), "refused") << way;
    }
    lock.release(folder.path("link.tvk"));
    EXPECT_EQ(answer_to_other(project), "held");
}

TEST_F(ProjectLockTest, AProjectThatIsNotSavedYetIsLockedToo) {
    const std::string fresh = folder.path("new.tvk");
    EXPECT_TRUE(lock.acquire(fresh));
    EXPECT_EQ(answer_to_other(fresh), "refused");
    EXPECT_FALSE(fs::exists(fresh));
    write_whole_file(fresh, "x");
    EXPECT_TRUE(lock.acquire(fresh));
    EXPECT_EQ(answer_to_other(fresh), "refused");
    lock.release(fresh);
    EXPECT_EQ(answer_to_other(fresh), "held");
}

TEST_F(ProjectLockTest, ALinkThatSavingReplacedIsReleasedAllTheSame) {
    const std::string link = folder.path("link.tvk");
    fs::create_symlink(project, link);
    EXPECT_TRUE(lock.acquire(link));
    fs::remove(link);
    write_whole_file(link, "y");
    lock.release(link);
    EXPECT_FALSE(fs::exists(lock_file));
    EXPECT_EQ(answer_to_other(project), "held");
}

TEST_F(ProjectLockTest, TheEndOfTheProgramFreesEverything) {
    auto other = std::make_unique<QtProjectLock>();
    EXPECT_TRUE(other->acquire(project));
    EXPECT_FALSE(lock.acquire(project));
    other.reset();
    EXPECT_FALSE(fs::exists(lock_file));
    EXPECT_TRUE(lock.acquire(project));
}

TEST_F(ProjectLockTest, AFolderThatCannotBeWrittenNeedsNoLock) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(exit_status_in_child([&] {
                  constexpr uid_t nobody = 65534;
                  if (::geteuid() == 0 && ::setuid(nobody) != 0) ::_exit(2);
                  QtProjectLock readers;
                  EXPECT_TRUE(readers.acquire(project));
                  EXPECT_FALSE(fs::exists(lock_file));
                  readers.release(project);
                  EXPECT_TRUE(readers.acquire(project));
              }),
              0);
    ::chmod(folder.path().c_str(), 0755);
}

TEST_F(ProjectLockTest, AMissingFolderNeedsNoLock) {
    EXPECT_TRUE(lock.acquire(folder.path("no such folder/home.tvk")));
    EXPECT_FALSE(fs::exists(folder.path("no such folder")));
}

// --- A lock that another machine has left: on a stick, or in a folder that is kept the same on
// both

class LockOfAnotherMachine : public ProjectLockTest {
  protected:
    void leave_lock(const std::string& host, const std::string& machine_number) {
        write_whole_file(lock_file, "4711\nTavernook\n" + host + "\n" + machine_number + "\n\n");
        const timespec moment = {1'715'700'600, 0};
        const timespec times[2] = {moment, moment};
        ASSERT_EQ(::utimensat(AT_FDCWD, lock_file.c_str(), times, 0), 0);
    }
    static std::string number_of_this_machine() {
        return QSysInfo::machineUniqueId().toStdString();
    }
    static std::string name_of_this_machine() { return QSysInfo::machineHostName().toStdString(); }
};

TEST_F(LockOfAnotherMachine, NamesItAndTheTime) {
    leave_lock("kitchen", "0123456789abcdef");
    EXPECT_FALSE(lock.acquire(project));
    const auto holder = lock.holder_elsewhere(project);
    ASSERT_TRUE(holder.has_value());
    EXPECT_EQ(holder->machine, "kitchen");
    const QDateTime since = QDateTime::fromSecsSinceEpoch(1'715'700'600);
    EXPECT_EQ(date_text(holder->since),
              since.toString(QStringLiteral("M/d/yyyy h:mm:ss AP")).toStdString());
}

TEST_F(LockOfAnotherMachine, IsTakenOver) {
    leave_lock("kitchen", "0123456789abcdef");
    ASSERT_FALSE(lock.acquire(project));
    EXPECT_TRUE(lock.take_over(project));
    EXPECT_EQ(answer_to_other(project), "refused");
    EXPECT_FALSE(lock.holder_elsewhere(project).has_value());
    lock.release(project);
    EXPECT_FALSE(fs::exists(lock_file));
}

TEST_F(LockOfAnotherMachine, OfTheSameNameIsKnownByItsNumber) {
    if (number_of_this_machine().empty()) GTEST_SKIP() << "this machine has no number";
    leave_lock(name_of_this_machine(), "0123456789abcdef");
    EXPECT_FALSE(lock.acquire(project));
    EXPECT_TRUE(lock.holder_elsewhere(project).has_value());
    // And this machine under the name that it had before is none.
    leave_lock("kitchen", number_of_this_machine());
    EXPECT_FALSE(lock.holder_elsewhere(project).has_value());
}

TEST_F(LockOfAnotherMachine, WithoutANumberIsKnownByItsName) {
    leave_lock("kitchen", "");
    EXPECT_TRUE(lock.holder_elsewhere(project).has_value());
    leave_lock(name_of_this_machine(), "");
    EXPECT_FALSE(lock.holder_elsewhere(project).has_value());
}

TEST_F(LockOfAnotherMachine, IsNoneOfARunningProgramHere) {
    const OtherProgram other(project);
    ASSERT_EQ(other.answer, "held");
    EXPECT_FALSE(lock.holder_elsewhere(project).has_value());
    EXPECT_FALSE(lock.take_over(project));
    EXPECT_FALSE(lock.acquire(project));
}

TEST_F(LockOfAnotherMachine, IsNoneWithoutALock) {
    EXPECT_FALSE(lock.holder_elsewhere(project).has_value());
    EXPECT_TRUE(lock.take_over(project));
    EXPECT_EQ(answer_to_other(project), "refused");
}

TEST_F(ProjectLockTest, TheLongestNamesAreLockedToo) {
    for (const std::size_t length : {244U, 249U, 250U, 255U}) {
        const std::string longest = folder.path(std::string(length - 4, 'n') + ".tvk");
        write_whole_file(longest, "x");
        EXPECT_TRUE(lock.acquire(longest));
        EXPECT_EQ(answer_to_other(longest), "refused") << length;
        lock.release(longest);
    }
}

TEST_F(ProjectLockTest, ALongNamesLockLeftByACrashDoesNotCount) {
    const std::string longest = folder.path(std::string(251, 'n') + ".tvk");
    write_whole_file(longest, "x");
    OtherProgram other(longest);
    ASSERT_EQ(other.answer, "held");
    other.kill();
    EXPECT_TRUE(lock.acquire(longest));
}

TEST_F(ProjectLockTest, ReleasingWhatWasNeverHeldDoesNothing) {
    lock.release(project);
    lock.release("");
    EXPECT_TRUE(lock.acquire(project));
}

}  // namespace
}  // namespace tavernook
