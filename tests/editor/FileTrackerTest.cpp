#include "editor/FileTracker.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <memory>

#include "SettingsScratch.h"
#include "editor/TrackingDoc.h"
#include "framework/MDIChildWnd.h"
#include "framework/MDIFrameWnd.h"
#include "framework/View.h"
#include "framework/WinApp.h"

namespace {

class CFrame : public CMDIFrameWnd {
protected:
    CUserStore &UserStore() override { return UserSettings().User(); }
    std::string ComposeTitle() const override { return {}; }
};

class CApp : public CWinApp {
public:
    CApp() { mainWnd_ = &frame_; }
    ~CApp() override { CloseAllDocuments(); }
    bool InitInstance() override { return true; }
    std::string SaveQuestion(const std::string &) const override { return {}; }
    std::string BoxTitle() const override { return {}; }

private:
    CFrame frame_;
};

class CDoc : public CTrackingDoc {
public:
    using CTrackingDoc::CTrackingDoc;
    bool OnSaveDocument(const std::string &) override { return true; }
};

// Writes down what the tracker told.
class CToldView : public CView {
public:
    explicit CToldView(std::string &told) {
        OnMessage(kMsgFileChanged, [&told](intptr_t, intptr_t) { told += 'c'; });
        OnMessage(kMsgFileDeleted, [&told](intptr_t, intptr_t) { told += 'd'; });
    }
};

class CFileTrackerTest : public testing::Test {
protected:
    void SetUp() override {
        app.AddDocTemplate(std::make_unique<CDocTemplate>(
            129, "\nN\nN\nC\n.c\nI\nT",
            CDocTemplate::Parts{[this] { return std::make_unique<CDoc>(tracker); }, [] { return new CMDIChildWnd; },
                                [this](CMDIChildWnd *) -> CView * { return new CToldView(told); }}));
        scratch.Write("a.c", "text");
        SetTime("a.c", 1000);
        path = scratch.Windows("a.c");
        document = app.OpenDocumentFile(path);
        ASSERT_TRUE(document);
    }

    void SetTime(const char *name, time_t seconds) const {
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, scratch.Native(name).c_str(), times, 0), 0);
    }

    std::string Check() {
        tracker.CheckTrackedFiles();
        EXPECT_EQ(told, before) << "told inside the tick";
        DeliverWaitingMessages();
        const std::string news = told.substr(before.size());
        before = told;
        return news;
    }

    CSettingsScratch settings;
    CScratchDirectory scratch;
    CFileTracker tracker;
    std::string path, told, before;
    CApp app;
    CDocument *document = nullptr;
};

}  // namespace

TEST_F(CFileTrackerTest, TellsAChangeOnce) {
    EXPECT_TRUE(tracker.TrackFile(path, true));
    EXPECT_EQ(Check(), "");
    SetTime("a.c", 900);  // an older file put back
    EXPECT_EQ(Check(), "");
    SetTime("a.c", 1001);
    EXPECT_EQ(Check(), "c");
    EXPECT_FALSE(tracker.IsFileTracked(path));
    SetTime("a.c", 1002);
    EXPECT_EQ(Check(), "");
}

TEST_F(CFileTrackerTest, TellsWhenTheFileIsGone) {
    tracker.TrackFile(path, true);
    std::filesystem::remove(scratch.Native("a.c"));
    EXPECT_EQ(Check(), "d");
    EXPECT_FALSE(tracker.IsFileTracked(path));
    EXPECT_FALSE(tracker.TrackFile(path, true));
    EXPECT_FALSE(tracker.IsFileTracked(path));
    EXPECT_EQ(Check(), "");
}

TEST_F(CFileTrackerTest, LooksAtArmedFilesOnly) {
    tracker.TrackFile(path, false);
    EXPECT_TRUE(tracker.IsFileTracked(path));
    EXPECT_FALSE(tracker.IsFileArmed(path));
    SetTime("a.c", 2000);
    EXPECT_EQ(Check(), "");
    tracker.ArmFile(path);  // takes the new time for the known one
    EXPECT_EQ(Check(), "");
    SetTime("a.c", 3000);
    tracker.DisarmFile(path);
    EXPECT_EQ(Check(), "");
    std::filesystem::remove(scratch.Native("a.c"));
    tracker.ArmFile(path);  // nothing to take: stays as it was
    EXPECT_FALSE(tracker.IsFileArmed(path));
}

TEST_F(CFileTrackerTest, ComparesNamesWithoutCase) {
    tracker.TrackFile(path, true);
    std::string other = path;
    other.back() = 'C';
    EXPECT_TRUE(tracker.IsFileArmed(other));
    tracker.DisarmFile(other);
    EXPECT_FALSE(tracker.IsFileArmed(path));
    tracker.UntrackFile(other);
    EXPECT_FALSE(tracker.IsFileTracked(path));
}

TEST_F(CFileTrackerTest, KeepsNamesApartThatDifferInCase) {
    scratch.Write("A.C", "other");
    SetTime("A.C", 1000);
    const std::string upper = scratch.Windows("A.C");
    tracker.TrackFile(path, true);
    tracker.TrackFile(upper, false);
    EXPECT_TRUE(tracker.IsFileArmed(path));
    EXPECT_FALSE(tracker.IsFileArmed(upper));
    tracker.UntrackFile(upper);
    EXPECT_TRUE(tracker.IsFileArmed(path));
}

TEST_F(CFileTrackerTest, RemovesOneRecordOfTwo) {
    tracker.TrackFile(path, true);
    tracker.TrackFile(path, true);
    tracker.UntrackFile(path);
    EXPECT_TRUE(tracker.IsFileTracked(path));
    tracker.TrackFile(path, true);
    SetTime("a.c", 5000);
    EXPECT_EQ(Check(), "cc");  // no record is passed over when one goes
}

TEST_F(CFileTrackerTest, ForgetsAClosedDocument) {
    tracker.TrackFile(path, true);
    document->OnCloseDocument();
    EXPECT_FALSE(tracker.IsFileTracked(path));
}
