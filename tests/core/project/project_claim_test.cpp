// One program at a time has a project.
#include "core/project/project_claim.h"

#include <gtest/gtest.h>

#include "basics/date.h"
#include "fakes/test_platform.h"

namespace tavernook {

namespace {

using Held = std::set<std::string>;

class ProjectClaim : public testing::Test {
  protected:
    TestPlatform platform;
};

TEST_F(ProjectClaim, IsTakenAndGivenBack) {
    EXPECT_TRUE(claim_project("/a/home.tvk"));
    EXPECT_EQ(platform.lock.held, Held{"/a/home.tvk"});
    release_claims();
    EXPECT_EQ(platform.lock.held, Held{});
}

TEST_F(ProjectClaim, OfAProjectOpenElsewhereIsRefusedAndTold) {
    platform.lock.taken_elsewhere.insert("/a/home.tvk");
    platform.boxes.expect_message(
        "The project home.tvk is already open in another Tavernook window.  Close it there first, "
        "then open it here.");
    EXPECT_FALSE(claim_project("/a/home.tvk"));
    EXPECT_EQ(platform.lock.held, Held{});
}

// --- A lock that another machine has left

class ClaimOfAnotherMachine : public ProjectClaim {
  protected:
    ClaimOfAnotherMachine() {
        platform.lock.taken_elsewhere.insert(home);
        platform.lock.on_other_machines[home] = {"kitchen",
                                                 date_from_moment({2024, 5, 14}, {18, 30, 0})};
    }
    ExpectedBox& user_is_asked(Answer answer) {
        return platform.boxes
            .expect_message(
                "The project home.tvk is marked as open on the computer kitchen, since 5/14/2024 "
                "6:30:00 PM.  If it is not open there any more, press YES to use it here.  If it "
                "is, press NO and close it there first: what both save would not come together.",
                answer)
            .title("Project Open Elsewhere")
            .buttons(Buttons::yes_no)
            .default_button(DefaultButton::no);
    }
    const std::string home = "/a/home.tvk";
};

TEST_F(ClaimOfAnotherMachine, IsTakenOverByYes) {
    user_is_asked(Answer::yes);
    EXPECT_TRUE(claim_project(home));
    EXPECT_EQ(platform.lock.held, Held{home});
    release_claims();
    EXPECT_EQ(platform.lock.held, Held{});
}

TEST_F(ClaimOfAnotherMachine, StaysWithNoAndNothingElseIsSaid) {
    user_is_asked(Answer::no);
    EXPECT_FALSE(claim_project(home));
    EXPECT_EQ(platform.lock.held, Held{});
}

TEST_F(ClaimOfAnotherMachine, ThatSomebodyElseTakesMeanwhileIsTold) {
    user_is_asked(Answer::yes).during([&] { platform.lock.on_other_machines.clear(); });
    platform.boxes.expect_message(
        "The project home.tvk is already open in another Tavernook window.  Close it there first, "
        "then open it here.");
    EXPECT_FALSE(claim_project(home));
}

TEST_F(ProjectClaim, ANameIsShownInTheCodePage) {
    platform.lock.taken_elsewhere.insert(
        "/a/K\xC3\xBC"
        "che.tvk");
    platform.boxes.expect_message(
        "The project K\xFC"
        "che.tvk is already open in another Tavernook window.  Close it there "
        "first, then open it here.");
    EXPECT_FALSE(
        claim_project("/a/K\xC3\xBC"
                      "che.tvk"));
}

TEST_F(ProjectClaim, TheEarlierOneStaysUntilTheNewOneIsKept) {
    EXPECT_TRUE(claim_project("/a/home.tvk"));
    EXPECT_TRUE(claim_project("/a/cabin.tvk"));
    EXPECT_EQ(platform.lock.held, (Held{"/a/home.tvk", "/a/cabin.tvk"}));
    keep_only_claim("/a/cabin.tvk");
    EXPECT_EQ(platform.lock.held, Held{"/a/cabin.tvk"});
}

TEST_F(ProjectClaim, ARefusalLeavesTheEarlierOne) {
    EXPECT_TRUE(claim_project("/a/home.tvk"));
    platform.lock.taken_elsewhere.insert("/a/cabin.tvk");
    platform.boxes.expect_message(
        "The project cabin.tvk is already open in another Tavernook window.  Close it there "
        "first, then open it here.");
    EXPECT_FALSE(claim_project("/a/cabin.tvk"));
    EXPECT_EQ(platform.lock.held, Held{"/a/home.tvk"});
    keep_only_claim("/a/home.tvk");
    EXPECT_EQ(platform.lock.held, Held{"/a/home.tvk"});
}

TEST_F(ProjectClaim, ClaimingTwiceHoldsOnce) {
    EXPECT_TRUE(claim_project("/a/home.tvk"));
    EXPECT_TRUE(claim_project("/a/home.tvk"));
    keep_only_claim("/a/home.tvk");
    EXPECT_EQ(platform.lock.held, Held{"/a/home.tvk"});
    release_claims();
    EXPECT_EQ(platform.lock.held, Held{});
}

TEST_F(ProjectClaim, KeepingWhatWasNeverClaimedKeepsNothing) {
    EXPECT_TRUE(claim_project("/a/home.tvk"));
    keep_only_claim("/a/cabin.tvk");
    EXPECT_EQ(platform.lock.held, Held{});
    release_claims();
}

}  // namespace

}  // namespace tavernook
