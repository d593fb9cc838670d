#include "foundation/base/MException.h"
#include "setup/choices/MPageWalk.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

/// A page that tells what it is asked, and answers as a test wants it.
class WalkPage final : public MWalkPage {
public:
    WalkPage(const char* name, std::string& log) : name(name), log(log) {}
    ~WalkPage() noexcept override = default;

    bool ShouldSkip(bool back) override {
        Tell(back ? "?back" : "?");
        if (fails) throw MException({}, "broken", MExceptionGeneral);
        return skips;
    }
    void OnShown() override { Tell("shown"); }
    bool IsNextEnabled() override { return canGoOn; }
    bool OnNext() override {
        Tell("next");
        if (meanwhile) meanwhile();
        return !vetoes;
    }
    bool OnPrevious() override { return !vetoes; }
    void OnExit() override { Tell("exit"); }
    void Tell(const char* what) { log += name + what + " "; }

    std::string name;
    bool skips = false;
    bool fails = false;
    bool vetoes = false;
    bool canGoOn = true;
    std::function<void()> meanwhile;  ///< what happens while the page is left

private:
    std::string& log;
};

class PageWalkTest : public testing::Test, private MPageWalkView {
protected:
    PageWalkTest() {
        for (WalkPage* page : {&a, &b, &c, &d}) walk.Add(*page);
        walk.Finish(abort, error);
    }
    ~PageWalkTest() noexcept override = default;

    std::string Take() { return std::exchange(log, ""); }

    void ShowPage(MWalkPage& page) override { log += "[" + static_cast<WalkPage&>(page).name + "] "; }
    void ShowButtons(const MWalkButtons& shown) override { buttons = shown; }
    void Repaint() override {}
    bool ConfirmExit(MWalkPage&) override { return isSure; }
    void ShowError(const MString& text) override { log += "error:" + Text(text) + " "; }
    void EndWalk(MModalValue result) override { log += result == MModalValue::Ok ? "end1 " : "end2 "; }

    std::string log;
    MPageWalk walk{*this};
    WalkPage a{"a", log}, b{"b", log}, c{"c", log}, d{"d", log}, abort{"abort", log}, error{"error", log};
    MWalkButtons buttons;
    bool isSure = true;
};

TEST_F(PageWalkTest, GoesForthAndBackOverWhatIsSkipped) {
    b.skips = true;
    walk.Begin();
    EXPECT_EQ(Take(), "a? [a] ashown ");
    EXPECT_TRUE(buttons.isNextEnabled && !buttons.isPreviousEnabled && buttons.isPreviousVisible);
    walk.Previous();
    a.vetoes = true;
    walk.Next();
    a.vetoes = false;
    EXPECT_EQ(Take(), "anext ") << "nothing before the first page, and a veto keeps the user";
    walk.Next();
    EXPECT_EQ(Take(), "anext b? bnext c? [c] cshown bshown ") << "a skipped page decides as well";
    walk.Previous();
    EXPECT_EQ(Take(), "b?back bnext a?back [a] ashown bshown ") << "on the way back, too";
    walk.Next();
    c.canGoOn = false;
    walk.UpdateButtons();
    walk.Next();
    EXPECT_FALSE(buttons.isNextEnabled);
    c.canGoOn = true;
    Take();
    walk.Next();
    EXPECT_EQ(Take(), "cnext d? [d] dshown ");
    EXPECT_TRUE(!buttons.isNextVisible && !buttons.isPreviousVisible && buttons.isExitVisible);
    walk.Next();
    walk.Previous();
    walk.Exit();
    EXPECT_EQ(Take(), "dexit end2 ") << "the last page is left without a question";
}

TEST_F(PageWalkTest, GoesOneWayAtATime) {
    walk.Begin();
    a.meanwhile = [this] {
        walk.Next();
        walk.Exit();
    };
    Take();
    walk.Next();
    EXPECT_EQ(Take(), "anext b? [b] bshown ") << "clicks while a program is waited for";
    walk.Previous();
    a.meanwhile = [] { throw MException({}, "broken", MExceptionGeneral); };
    EXPECT_THROW(walk.Next(), MException);
    a.meanwhile = nullptr;
    Take();
    walk.Next();
    EXPECT_EQ(Take(), "anext b? [b] bshown ");
}

TEST_F(PageWalkTest, EndsWhereNoPageIsLeft) {
    d.skips = true;
    walk.Begin();
    a.skips = true;
    walk.Next();
    walk.Next();
    Take();
    walk.Next();
    EXPECT_EQ(Take(), "cnext d? end1 dshown ");
    b.skips = true;
    walk.Previous();
    EXPECT_EQ(Take(), "b?back bnext a?back end1 ashown bshown ");
}

TEST_F(PageWalkTest, LeadsAwayByExitAndByFailures) {
    walk.Begin();
    isSure = false;
    walk.Exit();
    isSure = true;
    Take();
    walk.Exit();
    EXPECT_EQ(Take(), "aexit abort? [abort] abortshown ");
    walk.Exit();
    EXPECT_EQ(Take(), "abortexit end2 ");

    c.fails = true;
    b.skips = true;
    walk.Begin();
    walk.Next();
    EXPECT_EQ(Take(), "a? [a] ashown anext b? bnext c? error? [error] errorshown error:broken bshown ");
    error.fails = true;
    walk.Activate(c, false);
    EXPECT_EQ(Take(), "c? error? error:broken end1 error:broken ") << "and no further";
}

}  // namespace
